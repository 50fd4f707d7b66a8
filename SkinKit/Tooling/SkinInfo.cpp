#include "SkinKit/Tooling/SkinInfo.h"

#include "SkinKit/Tooling/RequiredSprites.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace SkinKit {
namespace {

std::string hex(const RGBColor& color)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const unsigned channel : {color.red, color.green, color.blue}) {
        text += digits[channel >> 4];
        text += digits[channel & 0xF];
    }
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

// The smallest box around all points of a section. Its corners, since the skin's numbers may lie
// too far apart for a width.
struct RegionBounds {
    std::int64_t polygons = 0;
    std::int64_t points = 0;
    std::int64_t left = std::numeric_limits<std::int64_t>::max();
    std::int64_t top = std::numeric_limits<std::int64_t>::max();
    std::int64_t right = std::numeric_limits<std::int64_t>::min();
    std::int64_t bottom = std::numeric_limits<std::int64_t>::min();

    explicit RegionBounds(const SkinRegion::Polygons& section) : polygons(std::ssize(section))
    {
        for (const auto& polygon : section) {
            points += std::ssize(polygon);
            for (const auto& point : polygon) {
                left = std::min(left, point.x);
                top = std::min(top, point.y);
                right = std::max(right, point.x);
                bottom = std::max(bottom, point.y);
            }
        }
    }

    std::string text() const
    {
        std::string counts = counted(polygons, "polygon") + ", " + counted(points, "point");
        if (points == 0)
            return counts;
        return counts + ", from " + std::to_string(left) + ", " + std::to_string(top) + " to " +
               std::to_string(right) + ", " + std::to_string(bottom);
    }

    JSON json() const
    {
        JSON::Object object{
            {"polygons", polygons},
            {"points",   points  }
        };
        if (points > 0)
            object["bounds"] = JSON::Object{
                {"left",   left  },
                {"top",    top   },
                {"right",  right },
                {"bottom", bottom}
            };
        return object;
    }
};

// A cursor told by its best picture; of an animation, that of its first frame.
struct CursorFacts {
    const CursorImage& picture;
    std::string_view kind;
    std::int64_t images; // of a static cursor
    std::int64_t frames; // of an animation; 0 for a static one
    std::int64_t steps;

    static CursorFacts of(const Cursor& cursor)
    {
        if (const auto* still = std::get_if<StaticCursor>(&cursor))
            return {still->best(), "static", std::ssize(still->images), 0, 0};
        const auto& animated = std::get<AnimatedCursor>(cursor);
        return {animated.frames.front().best(), "animated", 0, std::ssize(animated.frames),
                std::ssize(animated.steps)};
    }

    std::string text() const
    {
        return std::string(kind) + ", " + sizeText(picture.image.size()) + ", hot spot " +
               std::to_string(picture.hotSpot.x) + ", " + std::to_string(picture.hotSpot.y) + ", " +
               (frames > 0 ? counted(frames, "frame") + " in " + counted(steps, "step")
                           : counted(images, "image"));
    }

    JSON json() const
    {
        JSON::Object object = sizeFields(picture.image.size());
        object["kind"] = kind;
        object["hotSpot"] = JSON::Object{
            {"x", picture.hotSpot.x},
            {"y", picture.hotSpot.y}
        };
        object["bitCount"] = picture.bitCount;
        if (frames > 0) {
            object["frames"] = frames;
            object["steps"] = steps;
        } else {
            object["images"] = images;
        }
        return object;
    }
};

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

JSON::Object sheetsJSON(const Skin& skin)
{
    JSON::Object object;
    for (const auto& [name, image] : skin.sheets) {
        JSON::Object sheet = sizeFields(image.size());
        sheet["origin"] = skin.generatedSheets.contains(name) ? "generated" : "file";
        sheet["hasAlpha"] = !image.isOpaque();
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

SkinInfo SkinInfo::of(std::string_view name, const SkinArchive& archive, Skin skin)
{
    return {std::string(name), std::move(skin), archive.entryCount(), archive.leftOutCount()};
}

std::string_view SkinInfo::status() const
{
    return skin.warnings.empty() ? "ok" : "partial";
}

std::string SkinInfo::summary() const
{
    const std::int64_t generated = std::ssize(skin.generatedSheets);
    const std::size_t lacking = RequiredSprites::missing(skin).size();
    return counted(std::ssize(skin.sheets) - generated, "sheet") + " found, " +
           std::to_string(generated) + " generated; " + std::to_string(entryCount - leftOutCount) +
           " of " + std::to_string(entryCount) + " entries kept; main window " +
           (lacking == 0
                ? "complete"
                : "incomplete (" + std::to_string(lacking) + " of " +
                      std::to_string(RequiredSprites::all().size()) + " required sprites missing)");
}

std::vector<std::string> SkinInfo::lines() const
{
    Table table;
    table.line(name + ": " + std::string(status()));
    table.line(summary());

    table.heading("Sheets");
    for (const auto& [sheet, image] : skin.sheets)
        table.row(sheet, sizeText(image.size()) + (image.isOpaque() ? "" : ", with alpha") +
                             (skin.generatedSheets.contains(sheet) ? ", generated" : ""));
    if (const auto missing = RequiredSprites::missing(skin); !missing.empty()) {
        table.heading("Required sprites missing");
        for (const auto sprite : missing)
            table.line(std::string("  ").append(sprite));
    }
    if (!skin.warnings.empty() || !skin.fallbacks.empty())
        table.heading("Notes");
    for (const auto& note : skin.warnings)
        table.row("warning", note);
    for (const auto& note : skin.fallbacks)
        table.row("fallback", note);

    table.heading("Visualizer colours");
    constexpr std::size_t colorsInRow = 8;
    for (std::size_t first = 0; first < skin.visColors.size(); first += colorsInRow) {
        std::string colors;
        for (std::size_t i = first; i < first + colorsInRow; ++i)
            colors.append(i == first ? "" : " ").append(hex(skin.visColors[i]));
        table.row(std::to_string(first), colors);
    }
    if (!skin.region.sections.empty())
        table.heading("Region");
    for (const auto& [section, polygons] : skin.region.sections)
        table.row(section, RegionBounds(polygons).text());

    const PlaylistStyle& style = skin.playlistStyle;
    table.heading("Playlist style");
    table.row("text", hex(style.normal) + " on " + hex(style.normalBackground));
    table.row("current", hex(style.current));
    table.row("selected", "on " + hex(style.selectedBackground));
    table.row("font", style.font);

    if (!skin.cursors.byName.empty() || !skin.cursors.unreadable.empty())
        table.heading("Cursors");
    for (const auto& [cursor, value] : skin.cursors.byName)
        table.row(cursor, CursorFacts::of(value).text());
    for (const auto& file : skin.cursors.unreadable)
        table.row("unreadable", file);
    return table.take();
}

JSON SkinInfo::json() const
{
    JSON::Object regions;
    for (const auto& [section, polygons] : skin.region.sections)
        regions[section] = RegionBounds(polygons).json();
    JSON::Object cursors;
    for (const auto& [cursor, value] : skin.cursors.byName)
        cursors[cursor] = CursorFacts::of(value).json();
    JSON::Array colors;
    for (const auto& color : skin.visColors)
        colors.emplace_back(hex(color));
    const auto missing = RequiredSprites::missing(skin);

    return JSON::Object{
        {"name",               name                                                                        },
        {"status",             status()                                                                    },
        {"entries",            JSON::Object{{"kept", entryCount - leftOutCount}, {"leftOut", leftOutCount}}},
        {"mainWindowComplete", missing.empty()                                                             },
        {"missingSprites",     textArray(missing)                                                          },
        {"sheets",             sheetsJSON(skin)                                                            },
        {"warnings",           textArray(skin.warnings)                                                    },
        {"fallbacks",          textArray(skin.fallbacks)                                                   },
        {"visColors",          colors                                                                      },
        {"region",             regions                                                                     },
        {"playlistStyle",      playlistStyleJSON(skin.playlistStyle)                                       },
        {"cursors",            cursors                                                                     },
        {"unreadableCursors",  textArray(skin.cursors.unreadable)                                          },
    };
}

}
