#include "SkinKit/Display/HTMLText.h"
#include "SkinKit/Platform/Unicode.h"
#include "SkinKit/QuickLook/SkinPreviewPage.h"
#include "fuzz/Fuzzing.h"

#include <string_view>

// The input is a skin's read-me. What is shown of it is well-formed, not empty, not too long, and
// the start of what was decoded.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const ByteView content(data, size);
    const auto shown = SkinPreviewPage::readme(SkinArchive({
        {"readme.txt", ByteBuffer(content.begin(), content.end())}
    }));
    auto whole = Unicode::fromUTF8(content);
    if (!whole)
        whole = Unicode::fromWindows1252(content);
    fuzzing::require(shown.has_value() == (whole && !whole->empty()));
    if (!shown)
        return 0;

    constexpr std::string_view ellipsis = "…";
    constexpr std::size_t limit = 20'480;
    fuzzing::require(Unicode::fromUTF8(asBytes(*shown)) == shown);
    if (whole->size() <= limit) {
        fuzzing::require(shown == whole);
    } else {
        const auto start = std::string_view(*shown).substr(0, shown->size() - ellipsis.size());
        fuzzing::require(shown->ends_with(ellipsis) && start.size() <= limit &&
                         whole->starts_with(start) && !start.ends_with("\uFFFD"));
    }
    const auto escaped = HTMLText::escaped(*shown, HTMLText::Apostrophe::kept);
    fuzzing::require(escaped.find_first_of("<>\"") == escaped.npos);
    return 0;
}
