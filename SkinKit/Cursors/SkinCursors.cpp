#include "SkinKit/Cursors/SkinCursors.h"

#include "SkinKit/Cursors/AniDecoder.h"
#include "SkinKit/Cursors/CurDecoder.h"
#include "SkinKit/Platform/Unicode.h"

#include <algorithm>
#include <array>
#include <utility>

namespace SkinKit {
namespace {

// clang-format off
constexpr std::array<std::string_view, 24> cursorNames{
    "CLOSE",    "EQCLOSE",  "EQNORMAL", "EQSLID",   "EQTITLE",  "MAINMENU", "MIN",      "MMENU",
    "NORMAL",   "PCLOSE",   "PNORMAL",  "POSBAR",   "PSIZE",    "PTBAR",    "PVSCROLL", "PWINBUT",
    "PWSNORM",  "PWSSIZE",  "SONGNAME", "TITLEBAR", "VOLBAL",   "WINBUT",   "WSNORMAL", "WSPOSBAR",
};
// clang-format on
static_assert(std::ranges::is_sorted(cursorNames));

template <typename Decoded>
std::optional<Cursor> asCursor(std::optional<Decoded> decoded)
{
    return decoded ? std::optional<Cursor>(std::move(*decoded)) : std::nullopt;
}

std::optional<Cursor> decodeWithin(ByteView bytes, CursorPicture::Budget& budget)
{
    return asText(bytes).starts_with("RIFF") ? asCursor(AniDecoder::decode(bytes, budget))
                                             : asCursor(CurDecoder::decode(bytes, budget));
}

}

std::span<const std::string_view> SkinCursors::names()
{
    return cursorNames;
}

SkinCursors SkinCursors::load(const SkinArchive& archive)
{
    SkinCursors cursors;
    std::int64_t pixels = 2 * CursorPicture::Budget::pixelsOfFile;
    for (const auto name : cursorNames) {
        for (const std::string_view extension : {"cur", "ani"}) {
            const auto bytes = archive.file(name, {extension});
            if (!bytes || std::ssize(*bytes) > maxFileBytes)
                continue;
            CursorPicture::Budget budget(*bytes, pixels);
            const std::int64_t before = budget.pixels;
            auto cursor = decodeWithin(*bytes, budget);
            pixels -= before - budget.pixels;
            if (cursor)
                cursors.byName.emplace(name, std::move(*cursor));
            else
                cursors.unreadable.push_back(Unicode::lowercased(name) + "." +
                                             std::string(extension));
            break;
        }
    }
    return cursors;
}

std::optional<Cursor> SkinCursors::decode(ByteView bytes)
{
    CursorPicture::Budget budget(bytes);
    return decodeWithin(bytes, budget);
}

const Cursor* SkinCursors::cursor(std::string_view name) const
{
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : &found->second;
}

}
