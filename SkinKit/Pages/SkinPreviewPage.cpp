#include "SkinKit/Pages/SkinPreviewPage.h"

#include "SkinKit/Base/HTMLText.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/System/Files.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"

#include <cstddef>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace SkinKit {
namespace {

constexpr std::string_view headStart = R"(<!doctype html>
<html><head><meta charset="utf-8"><title>)";

constexpr std::string_view headEnd = R"(</title>
<style>
body { font: 13px -apple-system, sans-serif; margin: 20px; color: #222; background: #fff; }
h1 { font-size: 17px; margin: 0 0 12px; }
img { display: block; margin-bottom: 12px; }
pre { white-space: pre-wrap; font: 12px ui-monospace, Menlo, monospace; }
.warnings { color: #a15c00; }
@media (prefers-color-scheme: dark) { body { color: #ddd; background: #1e1e1e; } .warnings { color: #e0a040; } }
</style></head><body>
)";

constexpr std::string_view imageLine =
    R"(<img src="cid:main" width="550" height="232" style="image-rendering: pixelated" alt="">)"
    "\n";
// Twice the size it is shown at, so that it is sharp on a display of twice the pixels.
constexpr int imageScale = 4;

constexpr std::size_t maxReadmeBytes = 20'480;

std::string titleOf(const std::filesystem::path& path)
{
    return Unicode::toValidUTF8(asBytes(Files::named(path).stem().string()));
}

std::string escaped(std::string_view text)
{
    return HTMLText::escaped(text, HTMLText::Apostrophe::kept);
}

std::string page(std::string_view title, std::string_view body)
{
    std::string html(headStart);
    html += escaped(title);
    html += headEnd;
    html += body;
    return html += "</body></html>";
}

std::string warningList(const std::vector<std::string>& warnings)
{
    if (warnings.empty())
        return {};
    std::string list = "<ul class=\"warnings\">\n";
    for (const auto& warning : warnings)
        list += "<li>" + escaped(warning) + "</li>\n";
    return list += "</ul>\n";
}

std::string body(std::string_view title, const Skin& skin, const std::optional<std::string>& readme)
{
    std::string text = "<h1>" + escaped(title) + "</h1>\n";
    text += imageLine;
    text += warningList(skin.warnings);
    if (readme)
        text += "<pre>" + escaped(*readme) + "</pre>\n";
    return text;
}

// Any text file but the three that belong to the format.
bool isReadmeName(std::string_view name)
{
    static const std::set<std::string_view> nonReadmeNames{"viscolor.txt", "pledit.txt",
                                                           "region.txt"};
    return name.ends_with(".txt") && !nonReadmeNames.contains(name);
}

// The file whose name begins with "readme", or else the first of all that may be one.
const ByteBuffer* readmeFile(const SkinArchive& archive)
{
    const ByteBuffer* first = nullptr;
    for (const auto& [name, bytes] : archive.files()) {
        if (!isReadmeName(name))
            continue;
        if (name.starts_with("readme"))
            return &bytes;
        if (!first)
            first = &bytes;
    }
    return first;
}

// The start of a text that is too long, without what is left of a character at the cut.
std::string cutShort(std::string_view text)
{
    constexpr std::string_view replacement = "\uFFFD";
    std::string start = Unicode::toValidUTF8(asBytes(text.substr(0, maxReadmeBytes)));
    while (start.ends_with(replacement))
        start.resize(start.size() - replacement.size());
    return start += "…";
}

}

SkinPreviewPage SkinPreviewPage::make(const std::filesystem::path& path,
                                      const SkinArchive::Limits& limits)
{
    const auto archive = SkinArchive::open(path, limits);
    const auto skin = archive ? SkinParser::parse(*archive, SkinParser::Sheets::croppedToSprites)
                              : std::unexpected(archive.error());
    if (!skin)
        return failure(path, skin.error().description());
    auto page = of(path, *archive, *skin);
    return page ? std::move(*page) : failure(path, page.error());
}

std::expected<SkinPreviewPage, std::string>
SkinPreviewPage::of(const std::filesystem::path& path, const SkinArchive& archive, const Skin& skin)
{
    auto picture = PNGWriter::data(
        MainWindowRenderer::render(skin, MainWindowState::idle(), imageScale, Clip::none));
    if (!picture)
        return std::unexpected("Could not render the skin");

    SkinPreviewPage result{.title = titleOf(path)};
    result.html = page(result.title, body(result.title, skin, readme(archive)));
    result.attachments.emplace("main", std::move(*picture));
    return result;
}

SkinPreviewPage SkinPreviewPage::failure(const std::filesystem::path& path,
                                         const std::string& reason)
{
    SkinPreviewPage result{.title = titleOf(path)};
    result.html = page(result.title, "<h1>Can't preview " + escaped(result.title) + "</h1>\n<p>" +
                                         escaped(reason) + "</p>\n");
    return result;
}

std::optional<std::string> SkinPreviewPage::readme(const SkinArchive& archive)
{
    const ByteBuffer* const bytes = readmeFile(archive);
    if (!bytes)
        return std::nullopt;
    auto text = Unicode::fromUTF8(*bytes);
    if (!text)
        text = Unicode::fromWindows1252(*bytes);
    if (!text || text->empty())
        return std::nullopt;
    return text->size() > maxReadmeBytes ? cutShort(*text) : text;
}

}
