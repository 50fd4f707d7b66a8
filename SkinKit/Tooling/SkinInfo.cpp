#include "SkinKit/Tooling/SkinInfo.h"

#include "SkinKit/Base/Encodings.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace SkinKit {
namespace {

std::string hex(const RGBColor& color)
{
    std::string text = "#";
    for (const std::uint8_t channel : {color.red, color.green, color.blue})
        Hex::append(text, channel, Hex::upperCase);
    return text;
}

// "1 step", "2 steps".
std::string counted(std::int64_t count, std::string_view what)
{
    return std::to_string(count).append(" ").append(what).append(count == 1 ? "" : "s");
}

std::string sizeText(Size size)
{
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

JSON::Object sizeFields(Size size)
{
    return {
        {"width",  size.width },
        {"height", size.height}
    };
}

using Region = SkinInfo::Region;
using CursorFacts = SkinInfo::CursorFacts;

Region regionOf(const SkinRegion::Polygons& section)
{
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    Region region{std::ssize(section), 0, most, most, least, least};
    for (const auto& polygon : section) {
        region.points += std::ssize(polygon);
        for (const auto& point : polygon) {
            region.left = std::min(region.left, point.x);
            region.top = std::min(region.top, point.y);
            region.right = std::max(region.right, point.x);
            region.bottom = std::max(region.bottom, point.y);
        }
    }
    return region;
}

std::string textOf(const Region& region)
{
    std::string counts =
        counted(region.polygons, "polygon") + ", " + counted(region.points, "point");
    if (region.points == 0)
        return counts;
    return counts + ", from " + std::to_string(region.left) + ", " + std::to_string(region.top) +
           " to " + std::to_string(region.right) + ", " + std::to_string(region.bottom);
}

JSON jsonOf(const Region& region)
{
    JSON::Object object{
        {"polygons", region.polygons},
        {"points",   region.points  }
    };
    if (region.points > 0)
        object["bounds"] = JSON::Object{
            {"left",   region.left  },
            {"top",    region.top   },
            {"right",  region.right },
            {"bottom", region.bottom}
        };
    return object;
}

CursorFacts factsOf(const CursorImage& image)
{
    return {.size = image.image.size(), .hotSpot = image.hotSpot, .bitCount = image.bitCount};
}

CursorFacts factsOf(const Cursor& cursor)
{
    if (const auto* still = std::get_if<StaticCursor>(&cursor)) {
        auto facts = factsOf(still->best());
        facts.images = std::ssize(still->images);
        return facts;
    }
    const auto& animated = std::get<AnimatedCursor>(cursor);
    auto facts = factsOf(animated.frames.front().best());
    facts.frames = std::ssize(animated.frames);
    facts.steps = std::ssize(animated.steps);
    return facts;
}

std::string_view kindOf(const CursorFacts& cursor)
{
    return cursor.frames > 0 ? "animated" : "static";
}

std::string textOf(const CursorFacts& cursor)
{
    return std::string(kindOf(cursor)) + ", " + sizeText(cursor.size) + ", hot spot " +
           std::to_string(cursor.hotSpot.x) + ", " + std::to_string(cursor.hotSpot.y) + ", " +
           (cursor.frames > 0
                ? counted(cursor.frames, "frame") + " in " + counted(cursor.steps, "step")
                : counted(cursor.images, "image"));
}

JSON jsonOf(const CursorFacts& cursor)
{
    JSON::Object object = sizeFields(cursor.size);
    object["kind"] = kindOf(cursor);
    object["hotSpot"] = JSON::Object{
        {"x", cursor.hotSpot.x},
        {"y", cursor.hotSpot.y}
    };
    object["bitCount"] = cursor.bitCount;
    if (cursor.frames > 0) {
        object["frames"] = cursor.frames;
        object["steps"] = cursor.steps;
    } else {
        object["images"] = cursor.images;
    }
    return object;
}

// Lines of a label and a value, the values one below the other.
class Table {
public:
    void heading(std::string_view text)
    {
        lines_.emplace_back();
        lines_.emplace_back(text);
    }
    void row(std::string_view label, std::string_view value)
    {
        constexpr std::size_t column = 20;
        std::string line("  ");
        line.append(label);
        line.resize(std::max(line.size() + 1, column), ' ');
        lines_.push_back(line.append(value));
    }
    void line(std::string text) { lines_.push_back(std::move(text)); }

    std::vector<std::string> take() { return std::move(lines_); }

private:
    std::vector<std::string> lines_;
};

template <typename Texts>
JSON::Array textArray(const Texts& texts)
{
    return JSON::Array(texts.begin(), texts.end());
}

JSON::Object sheetsJSON(const std::map<std::string, SkinInfo::Sheet>& sheets)
{
    JSON::Object object;
    for (const auto& [name, facts] : sheets) {
        JSON::Object sheet = sizeFields(facts.size);
        sheet["origin"] = facts.isGenerated ? "generated" : "file";
        sheet["hasAlpha"] = facts.hasAlpha;
        object[name] = sheet;
    }
    return object;
}

JSON::Object playlistStyleJSON(const PlaylistStyle& style)
{
    return {
        {"normal",             hex(style.normal)            },
        {"current",            hex(style.current)           },
        {"normalBackground",   hex(style.normalBackground)  },
        {"selectedBackground", hex(style.selectedBackground)},
        {"font",               style.font                   }
    };
}

}

namespace RequiredSprites {

std::vector<std::string_view> all()
{
    return {
        "MAIN_WINDOW_BACKGROUND",
        "MAIN_TITLE_BAR",
        "MAIN_PLAY_BUTTON",
        "MAIN_STEREO",
        "DIGIT_0",
        "MAIN_PLAYING_INDICATOR",
        "MAIN_POSITION_SLIDER_BACKGROUND",
        "MAIN_SHUFFLE_BUTTON",
        "MAIN_VOLUME_BACKGROUND",
        "MAIN_BALANCE_BACKGROUND",
    };
}

std::vector<std::string_view> missing(const Skin& skin)
{
    auto sprites = all();
    std::erase_if(sprites, [&skin](std::string_view sprite) {
        const auto resolved = skin.resolve(sprite);
        return resolved && !skin.generatedSheets.contains(resolved->sheet);
    });
    return sprites;
}

}

SkinInfo SkinInfo::of(std::string_view name, const SkinArchive& archive, const Skin& skin)
{
    SkinInfo info{.name = std::string(name),
                  .keptCount = std::ssize(archive.files()),
                  .leftOutCount = archive.leftOutCount(),
                  .missingSprites = RequiredSprites::missing(skin),
                  .warnings = skin.warnings,
                  .fallbacks = skin.fallbacks,
                  .visColors = skin.visColors,
                  .playlistStyle = skin.playlistStyle,
                  .unreadableCursors = skin.cursors.unreadable};
    for (const auto& [sheet, image] : skin.sheets)
        info.sheets[sheet] = {image.size(), !image.isOpaque(),
                              skin.generatedSheets.contains(sheet)};
    for (const auto& [section, polygons] : skin.region.sections)
        info.regions[section] = regionOf(polygons);
    for (const auto& [cursor, value] : skin.cursors.byName)
        info.cursors[cursor] = factsOf(value);
    return info;
}

std::string_view SkinInfo::status() const
{
    return warnings.empty() ? "ok" : "partial";
}

std::string SkinInfo::summary() const
{
    const auto generated =
        std::ranges::count_if(sheets, [](const auto& sheet) { return sheet.second.isGenerated; });
    return counted(std::ssize(sheets) - generated, "sheet") + " found, " +
           std::to_string(generated) + " generated; " + std::to_string(keptCount) + " of " +
           std::to_string(keptCount + leftOutCount) + " entries kept; main window " +
           (missingSprites.empty()
                ? "complete"
                : "incomplete (" + std::to_string(missingSprites.size()) + " of " +
                      std::to_string(RequiredSprites::all().size()) + " required sprites missing)");
}

std::vector<std::string> SkinInfo::lines() const
{
    Table table;
    table.line(name + ": " + std::string(status()));
    table.line(summary());

    table.heading("Sheets");
    for (const auto& [sheet, facts] : sheets)
        table.row(sheet, sizeText(facts.size) + (facts.hasAlpha ? ", with alpha" : "") +
                             (facts.isGenerated ? ", generated" : ""));
    if (!missingSprites.empty()) {
        table.heading("Required sprites missing");
        for (const auto sprite : missingSprites)
            table.line(std::string("  ").append(sprite));
    }
    if (!warnings.empty() || !fallbacks.empty())
        table.heading("Notes");
    for (const auto& note : warnings)
        table.row("warning", note);
    for (const auto& note : fallbacks)
        table.row("fallback", note);

    table.heading("Visualizer colours");
    constexpr std::size_t colorsInRow = 8;
    for (std::size_t first = 0; first < visColors.size(); first += colorsInRow) {
        std::string colors;
        for (std::size_t i = first; i < first + colorsInRow; ++i)
            colors.append(i == first ? "" : " ").append(hex(visColors[i]));
        table.row(std::to_string(first), colors);
    }
    if (!regions.empty())
        table.heading("Region");
    for (const auto& [section, region] : regions)
        table.row(section, textOf(region));

    const PlaylistStyle& style = playlistStyle;
    table.heading("Playlist style");
    table.row("text", hex(style.normal) + " on " + hex(style.normalBackground));
    table.row("current", hex(style.current));
    table.row("selected", "on " + hex(style.selectedBackground));
    table.row("font", style.font);

    if (!cursors.empty() || !unreadableCursors.empty())
        table.heading("Cursors");
    for (const auto& [cursor, facts] : cursors)
        table.row(cursor, textOf(facts));
    for (const auto& file : unreadableCursors)
        table.row("unreadable", file);
    return table.take();
}

JSON SkinInfo::json() const
{
    JSON::Object regionFields;
    for (const auto& [section, region] : regions)
        regionFields[section] = jsonOf(region);
    JSON::Object cursorFields;
    for (const auto& [cursor, facts] : cursors)
        cursorFields[cursor] = jsonOf(facts);
    JSON::Array colors;
    for (const auto& color : visColors)
        colors.emplace_back(hex(color));

    return JSON::Object{
        {"name",               name                                                        },
        {"status",             status()                                                    },
        {"entries",            JSON::Object{{"kept", keptCount}, {"leftOut", leftOutCount}}},
        {"mainWindowComplete", missingSprites.empty()                                      },
        {"missingSprites",     textArray(missingSprites)                                   },
        {"sheets",             sheetsJSON(sheets)                                          },
        {"warnings",           textArray(warnings)                                         },
        {"fallbacks",          textArray(fallbacks)                                        },
        {"visColors",          colors                                                      },
        {"region",             regionFields                                                },
        {"playlistStyle",      playlistStyleJSON(playlistStyle)                            },
        {"cursors",            cursorFields                                                },
        {"unreadableCursors",  textArray(unreadableCursors)                                },
    };
}

}
