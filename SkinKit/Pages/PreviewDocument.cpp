#include "SkinKit/Pages/PreviewDocument.h"

#include "SkinKit/Base/Encodings.h"

#include <string_view>

namespace SkinKit::PreviewDocument {
namespace {

// All parts are in base 64, which has no "_", so that no line of them can be taken for it.
constexpr std::string_view boundary = "=_skin_preview";

void appendPart(std::string& document, std::string_view type, std::string_view id, ByteView content)
{
    document += "--";
    document += boundary;
    document += "\r\nContent-Type: ";
    document += type;
    document += "\r\nContent-Transfer-Encoding: base64\r\nContent-ID: <";
    document += id;
    document += ">\r\n\r\n";
    document += Base64::encodedLines(content);
}

}

std::string html(const SkinPreviewPage& page)
{
    std::string document = page.html;
    for (const auto& [id, content] : page.attachments) {
        // Double quotes in a skin's own texts are escaped, so this is the address and nothing else.
        const std::string address = "\"cid:" + id + "\"";
        if (const auto at = document.find(address); at != document.npos)
            document.replace(at, address.size(),
                             "\"data:image/png;base64," + Base64::encoded(content) + "\"");
    }
    return document;
}

std::string mhtml(const SkinPreviewPage& page)
{
    constexpr std::string_view pageID = "page";
    std::string document = "MIME-Version: 1.0\r\nContent-Type: multipart/related; "
                           "type=\"text/html\"; start=\"<";
    document += pageID;
    document += ">\";\r\n boundary=\"";
    document += boundary;
    document += "\"\r\n\r\n";
    appendPart(document, "text/html; charset=utf-8", pageID, asBytes(page.html));
    for (const auto& [id, content] : page.attachments)
        appendPart(document, "image/png", id, content);
    document += "--";
    document += boundary;
    return document += "--\r\n";
}

}
