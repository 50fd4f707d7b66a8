#pragma once

#include "SkinKit/Pages/SkinPreviewPage.h"

#include <string>

// A preview page and its attachments as one file that stands alone.
namespace SkinKit::PreviewDocument {

// The page with every attachment in the place of its address, as a data: URI. Any browser shows it.
std::string html(const SkinPreviewPage& page);

// A MIME document (multipart/related) of the page as it is and its attachments, each found by its
// Content-ID. Lines end in "\r\n".
std::string mhtml(const SkinPreviewPage& page);

}
