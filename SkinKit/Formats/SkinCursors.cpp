#include "SkinKit/Formats/SkinCursors.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Formats/AniDecoder.h"
#include "SkinKit/Formats/CurDecoder.h"

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

std::optional<Cursor> decodeWithin(ByteView bytes, LoadMeter& meter)
{
    return asText(bytes).starts_with("RIFF") ? asCursor(AniDecoder::decode(bytes, meter))
                                             : asCursor(CurDecoder::decode(bytes, meter));
}

}

std::span<const std::string_view> SkinCursors::names()
{
    return cursorNames;
}

SkinCursors SkinCursors::load(const SkinArchive& archive)
{
    LoadMeter meter;
    return load(archive, meter);
}

SkinCursors SkinCursors::load(const SkinArchive& archive, LoadMeter& meter)
{
    SkinCursors cursors;
    for (const auto name : cursorNames) {
        for (const std::string_view extension : {"cur", "ani"}) {
            const auto bytes = archive.file(name, {extension});
            if (!bytes || std::ssize(*bytes) > maxFileBytes)
                continue;
            if (auto cursor = decodeWithin(*bytes, meter))
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
    LoadMeter meter;
    return decodeWithin(bytes, meter);
}

const Cursor* SkinCursors::cursor(std::string_view name) const
{
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : &found->second;
}

}
