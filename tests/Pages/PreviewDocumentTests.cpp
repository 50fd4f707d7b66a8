#include "SkinKit/Pages/PreviewDocument.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

using namespace SkinKit;

namespace {

const SkinPreviewPage page{
    .title = "x",
    .html = "<img src=\"cid:main\">\n<pre>cid:main &quot;cid:main&quot;</pre>",
    .attachments = {{"main", support::bytes("PNG")}},
};
const SkinPreviewPage failurePage{.title = "x", .html = "<p>Not a \"cid:main\"</p>"};

}

TEST(PreviewDocument, PutsThePictureIntoThePage)
{
    EXPECT_EQ(PreviewDocument::html(page),
              "<img src=\"data:image/png;base64,UE5H\">\n<pre>cid:main &quot;cid:main&quot;</pre>");
    EXPECT_EQ(PreviewDocument::html(failurePage), failurePage.html);
}

TEST(PreviewDocument, SetsThePictureBesideThePageInAMIMEDocument)
{
    EXPECT_EQ(PreviewDocument::mhtml(page),
              "MIME-Version: 1.0\r\n"
              "Content-Type: multipart/related; type=\"text/html\"; start=\"<page>\";\r\n"
              " boundary=\"=_skin_preview\"\r\n"
              "\r\n"
              "--=_skin_preview\r\n"
              "Content-Type: text/html; charset=utf-8\r\n"
              "Content-Transfer-Encoding: base64\r\n"
              "Content-ID: <page>\r\n"
              "\r\n"
              "PGltZyBzcmM9ImNpZDptYWluIj4KPHByZT5jaWQ6bWFpbiAmcXVvdDtjaWQ6bWFpbiZxdW90Ozwv\r\n"
              "cHJlPg==\r\n"
              "--=_skin_preview\r\n"
              "Content-Type: image/png\r\n"
              "Content-Transfer-Encoding: base64\r\n"
              "Content-ID: <main>\r\n"
              "\r\n"
              "UE5H\r\n"
              "--=_skin_preview--\r\n");
}
