#include "SkinKit/Parsers/RegionParser.h"

#include "SkinKit/Parsers/IniParser.h"
#include "SkinKit/Platform/Numbers.h"
#include "SkinKit/Platform/Unicode.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace SkinKit::RegionParser {
namespace {

using Point = SkinRegion::Point;

// Takes the text up to the next of `separators` off the front of `text`, and the separator with it.
std::string_view takePiece(std::string_view& text, std::string_view separators)
{
    const auto end = text.find_first_of(separators);
    const auto piece = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    return piece;
}

// The next piece that is not empty; empty at the end.
std::string_view takeCoordinate(std::string_view& text)
{
    std::string_view piece;
    while (piece.empty() && !text.empty())
        piece = takePiece(text, ", \t");
    return piece;
}

// An integer, or a decimal number cut to one.
std::optional<std::int64_t> coordinate(std::string_view piece)
{
    if (const auto integer = Numbers::parseInteger<std::int64_t>(piece))
        return integer;
    constexpr double tooLarge = 0x1p63;
    const auto number = Numbers::parseDecimal(piece);
    if (!number || *number >= tooLarge || *number < -tooLarge)
        return std::nullopt;
    return static_cast<std::int64_t>(*number);
}

// Of one section; a thousand suit the most intricate window.
constexpr std::size_t mostPoints = 262'144;

SkinRegion::Polygon parsePoints(std::string_view list)
{
    SkinRegion::Polygon points;
    while (points.size() < mostPoints) {
        const auto first = takeCoordinate(list);
        const auto second = takeCoordinate(list);
        if (second.empty())
            break;
        const auto x = coordinate(first);
        const auto y = coordinate(second);
        if (x && y)
            points.push_back({*x, *y});
    }
    return points;
}

SkinRegion::Polygons dealOut(const SkinRegion::Polygon& points, std::string_view counts)
{
    SkinRegion::Polygons polygons;
    auto next = points.begin();
    while (!counts.empty()) {
        const auto count =
            Numbers::parseInteger<std::int64_t>(Unicode::trimmed(takePiece(counts, ",")));
        if (!count)
            continue;
        const auto taken = std::clamp<std::int64_t>(*count, 0, points.end() - next);
        if (*count >= 3 && taken > 0)
            polygons.emplace_back(next, next + taken);
        next += taken;
    }
    return polygons;
}

}

SkinRegion parse(std::string_view text)
{
    SkinRegion region;
    for (const auto& [name, section] : IniParser::parse(text)) {
        const auto counts = section.find("numpoints");
        const auto list = section.find("pointlist");
        if (counts == section.end() || list == section.end() || counts->second.empty() ||
            list->second.empty())
            continue;
        region.sections.emplace(name, dealOut(parsePoints(list->second), counts->second));
    }
    return region;
}

SkinRegion parse(ByteView bytes)
{
    return parse(Unicode::repaired(bytes));
}

}
