#include "SkinKit/Formats/RegionParser.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Formats/IniParser.h"

#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
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

// The next pair of coordinates that are both numbers, or nothing at the end of the list.
std::optional<Point> takePoint(std::string_view& list)
{
    while (true) {
        const auto first = takeCoordinate(list);
        const auto second = takeCoordinate(list);
        if (second.empty())
            return std::nullopt;
        const auto x = coordinate(first);
        const auto y = coordinate(second);
        if (x && y)
            return Point{*x, *y};
    }
}

// Deals the points of `list` out to polygons of as many as `counts` say.
SkinRegion::Polygons readPolygons(std::string_view list, std::string_view counts, LoadMeter& meter)
{
    constexpr std::int64_t pointBytes = 3 * sizeof(Point); // drawing makes two copies of each
    constexpr std::int64_t polygonBytes = 4 * sizeof(SkinRegion::Polygon);
    constexpr int minPoints = 3;
    SkinRegion::Polygons polygons;
    while (!counts.empty() && !list.empty()) {
        const std::size_t unread = list.size() + counts.size();
        const auto count =
            Numbers::parseInteger<std::int64_t>(Unicode::trimmed(takePiece(counts, ",")));
        const bool isPolygon = count >= minPoints;
        if (isPolygon && !meter.take(polygonBytes))
            break;
        SkinRegion::Polygon polygon;
        for (std::int64_t i = 0; i < count.value_or(0); ++i) {
            const auto point = takePoint(list);
            if (!point)
                break;
            if (!isPolygon)
                continue;
            if (!meter.take(pointBytes)) {
                list = {};
                break;
            }
            polygon.push_back(*point);
        }
        if (!polygon.empty())
            polygons.push_back(std::move(polygon));
        if (!meter.hasTimeAfter(static_cast<std::int64_t>(unread - list.size() - counts.size())))
            break;
    }
    return polygons;
}

}

SkinRegion parse(ByteView bytes, LoadMeter& meter)
{
    LoadMeter::Scratch memory(meter);
    const std::string text = textOf(bytes, memory);
    SkinRegion region;
    for (const auto& [name, section] : IniParser::parse(text, memory)) {
        const auto counts = section.find("numpoints");
        const auto list = section.find("pointlist");
        constexpr std::int64_t sectionBytes = sizeof(decltype(region.sections)::value_type) + 80;
        if (counts == section.end() || list == section.end() || counts->second.empty() ||
            list->second.empty() || !meter.take(sectionBytes + std::ssize(name)))
            continue;
        region.sections.emplace(name, readPolygons(list->second, counts->second, meter));
    }
    return region;
}

SkinRegion parse(std::string_view text)
{
    LoadMeter meter;
    return parse(asBytes(text), meter);
}

}
