// Keeps the tables of docs/format.md as the library has them.
//
//     FormatTables docs/format.md            writes them anew
//     FormatTables --check docs/format.md    says whether that would change anything
//
// A table stands between the lines "<!-- table: NAME -->" and "<!-- end -->". What the library does
// not say of itself in constants it is asked: skins with one flaw are parsed for the notes that it
// makes, bitmaps of every kind are decoded.

#include "SkinKit/Player.h"

#include "SkinKit/Base/Markdown.h"
#include "SkinKit/Formats/CursorPicture.h"
#include "SkinKit/Formats/PlaylistStyleParser.h"
#include "SkinKit/Formats/RegionParser.h"
#include "SkinKit/Graphics/BMPDecoder.h"
#include "SkinKit/Graphics/BMPHeader.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "docs/format/SpritePurposes.h"
#include "tests/support/SkinBuilder.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace SkinKit;
using support::SkinBuilder;

using Row = std::vector<std::string>;

std::string code(std::string_view text)
{
    return "`" + std::string(text) + "`";
}

std::string lowered(std::string_view sheet)
{
    std::string name(sheet);
    std::ranges::transform(name, name.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return name;
}

std::string sizeText(Size size)
{
    return std::to_string(size.width) + " × " + std::to_string(size.height);
}

std::string hex(RGBColor color)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const unsigned channel : {color.red, color.green, color.blue})
        text.append({digits[channel >> 4], digits[channel & 0xF]});
    return text;
}

std::string bytesText(std::int64_t bytes)
{
    return std::to_string(bytes >> 20) + " MiB";
}

std::string joined(const std::vector<std::string>& texts, std::string_view separator)
{
    std::string all;
    for (const auto& text : texts)
        all.append(all.empty() ? "" : separator).append(text);
    return all;
}

// The heads and the rows as Markdown.
std::string table(const Row& heads, const std::vector<Row>& rows)
{
    const auto line = [](const Row& cells) { return "| " + joined(cells, " | ") + " |\n"; };
    std::string text = line(heads) + line(Row(heads.size(), "---"));
    for (const Row& row : rows)
        text += line(row);
    return text;
}

// A skin that lacks nothing, so that whatever is noted of a variation comes from the variation.
SkinBuilder completeSkin()
{
    std::string colors;
    for (int i = 0; i < VisColorParser::colorCount; ++i)
        colors += "0,0,0\n";
    return SkinBuilder()
        .allSheets()
        .text("viscolor.txt", colors)
        .text("pledit.txt", "[Text]\nFont=Arial\n");
}

struct Note {
    std::string kind;
    std::string text;
};

std::vector<Note> notesOf(const SkinBuilder& builder)
{
    const auto skin = builder.parse();
    if (!skin)
        return {
            {"refused", skin.error().description()}
        };
    std::vector<Note> notes;
    for (const auto& text : skin->warnings)
        notes.push_back({"warning", text});
    for (const auto& text : skin->fallbacks)
        notes.push_back({"fallback", text});
    return notes;
}

// Every table of notes would tell the complete skin's own with each variation.
void checkCompleteSkin()
{
    const auto own = notesOf(completeSkin());
    if (!own.empty())
        throw std::runtime_error("completeSkin() lacks something: " + own.front().text);
}

std::string limits()
{
    const SkinArchive::Limits limits;
    std::vector<std::string> extensions;
    for (const auto& extension : limits.allowedExtensions)
        extensions.push_back(code("." + extension));
    const auto side = [](std::int64_t pixels) { return std::to_string(pixels) + " pixels"; };
    return table(
        {
            "what", "at most"
    },
        {
            {"one file, decompressed", bytesText(limits.maxEntryBytes)},
            {"all files together", bytesText(limits.maxTotalBytes)},
            {"a sheet's width and height", side(BMPDecoder::maxSide)},
            {"a sheet's area", side(BMPDecoder::maxPixels)},
            {"a cursor file", bytesText(SkinCursors::maxFileBytes)},
            {"a cursor's width and height", side(CursorPicture::maxSide)},
            {"extensions that are read", joined(extensions, " ")},
        });
}

std::string refusals()
{
    return table(
        {
            "what is told", "when"
    },
        {
            {code(SkinError::unreadableArchive("…").description()),
             "the file is no ZIP archive, or cannot be opened; the reason follows"},
            {code(SkinError::modernSkin().description()),
             "there is a file `skin.xml`, whatever else there is"},
            {code(SkinError::noBitmaps().description()),
             "not one of the sheets is there and can be decoded"},
        });
}

std::string sheets()
{
    std::vector<Row> rows;
    for (const auto& sheet : SkinSprites::sheets()) {
        const std::string file = lowered(sheet.name) + ".bmp";
        std::vector<std::string> notes;
        for (const auto& note : notesOf(completeSkin().without(file)))
            notes.push_back(code(note.text));
        rows.push_back({code(file), sizeText(GeneratedBaseSkin::size(sheet.name)),
                        std::to_string(sheet.sprites.size()),
                        SkinSprites::isOptionalSheet(sheet.name) ? "yes" : "",
                        joined(notes, ", ")});
    }
    return table({"file", "pixels", "sprites", "optional", "what is noted without it"}, rows);
}

std::string sprites(std::string_view sheet)
{
    std::vector<Row> rows;
    for (const Sprite& sprite : SkinSprites::spritesOf(sheet)) {
        const auto purpose = SpritePurposes::of(sprite.name);
        if (!purpose)
            throw std::runtime_error("no purpose is given for " + std::string(sprite.name));
        rows.push_back({code(sprite.name), std::to_string(sprite.x), std::to_string(sprite.y),
                        std::to_string(sprite.width), std::to_string(sprite.height), *purpose});
    }
    return table({"sprite", "x", "y", "width", "height", "shows"}, rows);
}

// The text sheet as it looks, but turned: a line for each column of cells.
std::string characters()
{
    std::set<int> ys;
    std::map<int, std::map<int, std::string>> columns;
    for (const Sprite& sprite : SkinSprites::spritesOf(TextFont::sheet)) {
        ys.insert(sprite.y);
        std::string& cell = columns[sprite.x][sprite.y];
        const auto character = SpritePurposes::character(sprite.name);
        if (!character)
            throw std::runtime_error(std::string(sprite.name) + " is no character");
        cell += (cell.empty() ? "" : " ") + *character;
    }
    Row heads{"x"};
    for (const int y : ys)
        heads.push_back("y = " + std::to_string(y));
    std::vector<Row> rows;
    for (auto& [x, cells] : columns) {
        Row& row = rows.emplace_back(Row{std::to_string(x)});
        for (const int y : ys)
            row.push_back(cells[y]);
    }
    return table(heads, rows);
}

std::string substitutes()
{
    std::vector<Row> rows;
    for (const auto& [name, substitute] : SkinSprites::fallbacks())
        rows.push_back({code(name), code(substitute)});
    for (const auto& [plain, ext] : SkinSprites::numberPairs())
        rows.push_back({code(ext), code(plain)});
    return table({"sprite", "without its sheet"}, rows);
}

std::string required()
{
    std::string text;
    for (const auto sprite : RequiredSprites::all())
        text += "- " + code(sprite) + "\n";
    return text;
}

std::string notes()
{
    struct Case {
        std::string_view when;
        SkinBuilder skin;
    };
    const SkinBuilder complete = completeSkin();
    const auto variation = [&](const std::function<void(SkinBuilder&)>& change) {
        SkinBuilder skin = complete;
        change(skin);
        return skin;
    };
    const auto without = [&](std::initializer_list<std::string_view> files) {
        return variation([&](SkinBuilder& skin) {
            for (const auto file : files)
                skin.without(file);
        });
    };
    const auto with = [&](std::string_view file, std::string_view text) {
        return variation([&](SkinBuilder& skin) { skin.text(std::string(file), text); });
    };
    const Case cases[] = {
        {"a sheet is damaged, here `main.bmp`", with("main.bmp", "no picture")},
        {"a sheet is missing, here `main.bmp`", without({"main.bmp"})},
        {"`balance.bmp` is missing", without({"balance.bmp"})},
        {"both sheets of digits are missing", without({"numbers.bmp", "nums_ex.bmp"})},
        {"`nums_ex.bmp` alone is missing", without({"nums_ex.bmp"})},
        {"`numbers.bmp` alone is missing", without({"numbers.bmp"})},
        {"`eq_ex.bmp` is missing", without({"eq_ex.bmp"})},
        {"`gen.bmp` is missing", without({"gen.bmp"})},
        {"`viscolor.txt` is missing", without({"viscolor.txt"})},
        {"`viscolor.txt` has fewer than 24 colours, here one", with("viscolor.txt", "0,0,0\n")},
        {"`pledit.txt` is missing", without({"pledit.txt"})},
        {"a colour of `pledit.txt` is none", with("pledit.txt", "[Text]\nNormal=green\n")},
    };
    std::vector<Row> rows;
    for (const auto& [when, skin] : cases)
        for (const auto& note : notesOf(skin))
            rows.push_back({std::string(when), note.kind, code(note.text)});
    return table({"when", "kind", "note"}, rows);
}

bool isDecoded(int bitCount, std::uint32_t compression, std::int32_t height)
{
    // Zeros are colours, masks and pixels, or runs that end the only line.
    constexpr std::size_t enough = 64;
    const support::BMPFile file{.height = height,
                                .bitCount = bitCount,
                                .compression = compression,
                                .palette =
                                    std::vector<RGBColor>(bitCount <= 8 ? 1U << bitCount : 0),
                                .pixels = ByteBuffer(enough, 0)};
    return BMPDecoder::decode(file.bytes()).has_value();
}

std::string bitmaps()
{
    struct Kind {
        std::string_view name;
        std::uint32_t compression;
    };
    // clang-format off
    constexpr Kind kinds[] = {
        {"uncompressed",      BMPHeader::uncompressed},
        {"RLE8",              BMPHeader::rle8},
        {"RLE4",              BMPHeader::rle4},
        {"masks of its own",  BMPHeader::bitFields},
    };
    // clang-format on
    std::vector<Row> rows;
    for (int bitCount = 1; bitCount <= 64; ++bitCount) {
        Row row{std::to_string(bitCount)};
        for (const auto& kind : kinds) {
            const bool isUpright = isDecoded(bitCount, kind.compression, 1);
            const bool isTopDown = isDecoded(bitCount, kind.compression, -1);
            row.emplace_back(isUpright && isTopDown ? "yes, also top row first"
                             : isUpright            ? "yes"
                             : isTopDown            ? "top row first only"
                                                    : "");
        }
        if (std::ranges::any_of(row.begin() + 1, row.end(),
                                [](const auto& cell) { return !cell.empty(); }))
            rows.push_back(row);
    }
    Row heads{"bits a pixel"};
    for (const auto& kind : kinds)
        heads.emplace_back(kind.name);
    return table(heads, rows);
}

std::string bitmapHeaders()
{
    std::vector<std::string> sizes;
    constexpr std::uint8_t most = 255;
    ByteBuffer bytes(most, 0);
    for (bytes[0] = 1; bytes[0] < most; ++bytes[0])
        if (BMPHeader::read(bytes))
            sizes.push_back(std::to_string(bytes[0]));
    return "Sizes of the header that are known, in bytes: " + joined(sizes, ", ") + ".\n";
}

std::string cursors()
{
    struct Place {
        std::string_view name;
        std::string_view text;
    };
    // clang-format off
    constexpr Place places[] = {
        {"CLOSE",    "main window: close"},
        {"EQCLOSE",  "equalizer: close"},
        {"EQNORMAL", "equalizer: everywhere else"},
        {"EQSLID",   "equalizer: sliders"},
        {"EQTITLE",  "equalizer: title bar"},
        {"MAINMENU", "main window: options"},
        {"MIN",      "main window: minimize"},
        {"MMENU",    "shaded main window: options"},
        {"NORMAL",   "main window: everywhere else"},
        {"PCLOSE",   "playlist: close"},
        {"PNORMAL",  "playlist: everywhere else"},
        {"POSBAR",   "main window: seek bar"},
        {"PSIZE",    "playlist: resize corner"},
        {"PTBAR",    "playlist: title bar"},
        {"PVSCROLL", "playlist: scroll bar"},
        {"PWINBUT",  "playlist: shade"},
        {"PWSNORM",  "shaded playlist: everywhere else"},
        {"PWSSIZE",  "shaded playlist: resize corner"},
        {"SONGNAME", "main window: the song's title"},
        {"TITLEBAR", "main window: title bar"},
        {"VOLBAL",   "main window: volume and balance"},
        {"WINBUT",   "main window: shade"},
        {"WSNORMAL", "shaded main window: everywhere else"},
        {"WSPOSBAR", "shaded main window: seek bar"},
    };
    // clang-format on
    std::vector<Row> rows;
    for (const auto name : SkinCursors::names()) {
        const auto place = std::ranges::find(places, name, &Place::name);
        if (place == std::end(places))
            throw std::runtime_error("no place is given for the cursor " + std::string(name));
        rows.push_back({code(lowered(name) + ".cur"), std::string(place->text)});
    }
    return table({"file", "meant for"}, rows);
}

std::string playlistStyle()
{
    struct Key {
        std::string_view key;
        RGBColor PlaylistStyle::* field;
        std::string_view use;
    };
    // clang-format off
    constexpr Key keys[] = {
        {"Normal",     &PlaylistStyle::normal,             "an entry's text"},
        {"Current",    &PlaylistStyle::current,            "the text of the entry that plays"},
        {"NormalBG",   &PlaylistStyle::normalBackground,   "behind the list"},
        {"SelectedBG", &PlaylistStyle::selectedBackground, "behind selected entries"},
    };
    // clang-format on
    const auto read = [](std::string_view key, std::string_view value) {
        return PlaylistStyleParser::parse("[Text]\n" + std::string(key) + "=" + std::string(value))
            .style;
    };
    const PlaylistStyle defaults;
    std::vector<Row> rows;
    for (const auto& [key, field, use] : keys) {
        if (read(key, "#123456").*field != rgb(0x123456))
            throw std::runtime_error("pledit.txt has no key " + std::string(key));
        rows.push_back({code(key), code(hex(defaults.*field)), std::string(use)});
    }
    if (read("Font", "Other").font != "Other")
        throw std::runtime_error("pledit.txt has no key Font");
    rows.push_back({code("Font"), code(defaults.font), "the list's font family"});
    return table({"key", "default", "for"}, rows);
}

std::string visColors()
{
    struct Use {
        int last;
        std::string_view text;
    };
    constexpr Use uses[] = {
        {0,  "background"                               },
        {1,  "grid dots"                                },
        {17, "bars, from the top row to the bottom row" },
        {22, "oscilloscope, from the centre to the edge"},
        {23, "peaks"                                    },
    };
    std::vector<Row> rows;
    for (int i = 0; i < VisColorParser::colorCount; ++i) {
        const auto use = std::ranges::lower_bound(uses, i, {}, &Use::last);
        const RGBColor color = VisColorParser::defaults[static_cast<std::size_t>(i)];
        rows.push_back({std::to_string(i),
                        code(std::to_string(color.red) + "," + std::to_string(color.green) + "," +
                             std::to_string(color.blue)),
                        code(hex(color)), std::string(use->text)});
    }
    return table({"line", "default", "", "for"}, rows);
}

std::string regions()
{
    struct Section {
        std::string_view name;
        const SkinRegion::Polygons* (SkinRegion::*get)() const;
        std::string_view window;
        Size size;
    };
    // clang-format off
    constexpr Section sections[] = {
        {"Normal",      &SkinRegion::normal,         "main window",           MainWindowLayout::size},
        {"WindowShade", &SkinRegion::windowShade,    "main window, shaded",   MainShadeLayout::size},
        {"Equalizer",   &SkinRegion::equalizer,      "equalizer",             EQLayout::windowSize},
        {"EqualizerWS", &SkinRegion::equalizerShade, "equalizer, shaded",     EQLayout::shadeSize},
    };
    // clang-format on
    std::vector<Row> rows;
    for (const auto& section : sections) {
        const auto region = RegionParser::parse("[" + std::string(section.name) +
                                                "]\nNumPoints=3\nPointList=0,0 1,0 0,1\n");
        if (!(region.*section.get)())
            throw std::runtime_error("region.txt has no section " + std::string(section.name));
        rows.push_back({code("[" + std::string(section.name) + "]"), std::string(section.window),
                        sizeText(section.size)});
    }
    return table({"section", "window", "pixels"}, rows);
}

std::string named(std::string_view name)
{
    struct Table {
        std::string_view name;
        std::string (*make)();
    };
    // clang-format off
    constexpr Table tables[] = {
        {"bitmaps",        bitmaps},
        {"bitmap-headers", bitmapHeaders},
        {"characters",     characters},
        {"cursors",        cursors},
        {"limits",         limits},
        {"notes",          notes},
        {"playlist-style", playlistStyle},
        {"refusals",       refusals},
        {"regions",        regions},
        {"required",       required},
        {"sheets",         sheets},
        {"substitutes",    substitutes},
        {"vis-colors",     visColors},
    };
    // clang-format on
    constexpr std::string_view ofSheet = "sprites ";
    if (name.starts_with(ofSheet) && !SkinSprites::spritesOf(name.substr(ofSheet.size())).empty())
        return sprites(name.substr(ofSheet.size()));
    const auto found = std::ranges::find(tables, name, &Table::name);
    if (found == std::end(tables))
        throw std::runtime_error("there is no table " + std::string(name));
    return found->make();
}

// The document with every table as it should be.
std::string filled(const std::string& document)
{
    constexpr std::string_view begin = "<!-- table: ";
    constexpr std::string_view beginEnd = " -->";
    constexpr std::string_view end = "<!-- end -->";
    std::istringstream lines(document);
    std::string result;
    bool isInTable = false;
    for (std::string line; std::getline(lines, line);) {
        if (line == end)
            isInTable = false;
        if (!isInTable)
            result += line + "\n";
        if (line.starts_with(begin) && line.ends_with(beginEnd)) {
            isInTable = true;
            const auto length = line.size() - begin.size() - beginEnd.size();
            result += "\n" + named(line.substr(begin.size(), length)) + "\n";
        }
    }
    if (isInTable)
        throw std::runtime_error("a table has no end");
    return result;
}

int run(std::vector<std::string> arguments)
{
    const bool isCheck = !arguments.empty() && arguments.front() == "--check";
    if (isCheck)
        arguments.erase(arguments.begin());
    if (arguments.size() != 1)
        throw std::runtime_error("usage: FormatTables [--check] <format.md>");

    checkCompleteSkin();
    std::ifstream stream(arguments.front());
    const std::string document(std::istreambuf_iterator<char>(stream), {});
    if (!stream || document.empty())
        throw std::runtime_error(arguments.front() + " can't be read");
    const std::string wanted = filled(document);
    if (!isCheck) {
        if (!(std::ofstream(arguments.front()) << wanted).flush())
            throw std::runtime_error(arguments.front() + " can't be written");
        return 0;
    }
    if (wanted == document)
        return 0;

    std::istringstream are(document);
    std::istringstream should(wanted);
    std::string is;
    std::string shouldBe;
    while (std::getline(are, is) && std::getline(should, shouldBe) && is == shouldBe) {
    }
    std::cerr << "The tables are not as the code has them; FormatTables " << arguments.front()
              << " writes them anew.\nfirst difference, is: " << is << "\nshould be: " << shouldBe
              << '\n';
    return 1;
}

}

int main(int argc, char** argv)
try {
    return run({argv + 1, argv + argc});
} catch (const std::exception& error) {
    std::cerr << "FormatTables: " << error.what() << '\n';
    return 2;
}
