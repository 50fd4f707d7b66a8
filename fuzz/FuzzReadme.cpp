#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Pages/SkinPreviewPage.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

using namespace SkinKit;

constexpr std::size_t limit = 20'480;

// What is shown of it is well-formed, not empty, not too long, and the start of what was decoded.
void requireSound(const ByteBuffer& content)
{
    const auto shown = SkinPreviewPage::readme(SkinArchive({
        {"readme.txt", content}
    }));
    auto whole = Unicode::fromUTF8(content);
    if (!whole)
        whole = Unicode::fromWindows1252(content);
    fuzzing::require(shown.has_value() == (whole && !whole->empty()));
    if (!shown)
        return;
    if (whole->size() <= limit) {
        fuzzing::require(shown == whole);
        return;
    }
    constexpr std::string_view ellipsis = "…";
    const auto start = std::string_view(*shown).substr(0, shown->size() - ellipsis.size());
    fuzzing::require(shown->ends_with(ellipsis) && start.size() <= limit &&
                     whole->starts_with(start) && !start.ends_with("\uFFFD"));
    fuzzing::require(Unicode::fromUTF8(asBytes(*shown)).has_value());
    // Nothing is lost but what the cut went through, and replacement characters before it.
    for (std::string_view lost = std::string_view(*whole).substr(start.size());
         lost.size() > whole->size() - limit;)
        fuzzing::require(Unicode::takeCodePoint(lost) == Unicode::replacementCharacter ||
                         lost.size() < whole->size() - limit);
}

}

// The input is a skin's read-me, and the part of a long one where it is cut: its first byte says
// how far into the rest.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteBuffer content(data, data + size);
    requireSound(content);
    if (size < 2)
        return 0;
    const std::size_t cut = data[0] % size;
    content.erase(content.begin());
    content.insert(content.begin(), limit - cut, 'a');
    requireSound(content);
    return 0;
}
