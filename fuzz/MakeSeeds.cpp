#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/CursorWriter.h"
#include "tests/support/PNGFile.h"
#include "tests/support/ZipWriter.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

// Writes the fuzz targets' seeds: one folder a target, small files that are good in different ways.
namespace {

using namespace support;
using SkinKit::Image;
using namespace std::string_view_literals;

using Files = std::map<std::string, ByteBuffer, std::less<>>; // by target and name

constexpr auto region =
    "[Normal]\nNumPoints=4,3\nPointList=0,0, 275,0, 200,116, 0,116, 5.5,5 +20,-5 9,12\n"
    "[Equalizer]\nNumPoints=3\nPointList=0,0 275,0 9,99\n"
    "[WindowShade]\nNumPoints=3\nPointList=0,0 1000000000000,0 9,14\n";

// clang-format off
constexpr std::pair<const char*, std::string_view> texts[] = {
    {"PlaylistStyle/pledit.txt",
     "; style\r\n[Text]\r\nNormal=#00FF00\r\nCurrent = \"FFFFFF\"\r\n=b='c'\n[ ]\r\nk\u00C4=\n"
     "[TEXT]\nNormalBG=nothing\r\nSelectedBG='#0000C6'\r\nFont=Arial\r\n"},
    {"VisColors/viscolor.txt", "0,0,0, // background\n24 33 41\n123\n12 34\n300,0,0\n"},
    {"Region/region.txt", region},
    {"FileURI/escaped.txt", "file://localhost/a%20b/%C3%BC.wsz"},

    {"Text/kinds.txt",
     "Aa\u00C4e\u0301\u0130 \u0660\u1100\u1161\U0001F469\u200D\U0001F680\U0001F1E9\U0001F1EA\u2003"
     "\r\n\xC3(\xED\xA0\x80\xF4\x90\x80\x80"},
    {"Text/markup.txt",
     "https://www.a.b/c_d?e=f&g=(h)|`<i>*[x](y)~$@\\ __init__ \"'\u202E\x1B[1m\u2028\n\t\xFF"},
    // The first byte says where a long one is cut.
    {"Text/windows.txt", "Gr\xFC\xDF\x65 \x80\x99"},
    {"Text/undefined.txt", "\xFC\x81\x8D\x8F\x90\x9D"},
    {"Text/inside-a-character.txt", "\2\U0001F3B5"},
    {"Text/at-a-replacement.txt", "\3\uFFFDb"},

    {"JSON/all.json",
     R"({"a":[1,-2,18446744073709551615,1.5e-7,"x\u00e9\n"],"b":{"":null},"c":true,"d":-0.0})"},
    {"JSON/listing.json",
     R"([{"md5":"00ff","path":"a/b.wsz","size":9},{"md5":"00ff","path":"c.zip"},)"
     R"({"path":"\ufffd.wsz","pathBytes":"ff2e77737a","size":0},{"path":"d"}])"},
    {"JSON/manifest.json",
     R"([{"md5":"00FF","museum_url":"https://a.b/c","nsfw":true},{"md5":"00ff","nsfw":1}])"},
    {"CorpusRecords/results.jsonl",
     R"({"event":"start","i":0,"md5":"00ff","name":"a","path":"b/a.wsz","t":1.5})" "\n"
     R"({"event":"result","fallbacks":["x"],"i":0,"ms":1e-07,"nsfw":true,"path":"b/a.wsz",)"
     R"("status":"partial","t":2,"warnings":["Missing gen.bmp","|"]})" "\n"
     R"({"error":"\u20ac","event":"result","ms":3,"of":null,"path":"\"","status":"failed","x":[]})"
     "\n" R"({"event":"result","path":"c","restart":1,"status":"crashed"})" "\n"
     R"({"event":"result","ms":18446744073709551615,"path":"d","status":"timeout"})" "\n"
     R"({"event":"end","t":-5})"},
    {"CrashLog/gdb.txt",
     "Thread 2 \"a\" received signal SIGSEGV\n#0  0x01 in S::read (this=0x0, s=\"(\") at a.cpp:7\n"
     "[Current thread is 1 (LWP 3)]\nThread 2 (LWP 4):\n#0  0x01 in S::read (this=0x0) at a.cpp:7\n"
     "#1  <signal handler called>\n#2  f<void ()>::operator() (x=y/a.wsz) at b\n"},
    {"CrashLog/asan.txt",
     "==1==ERROR: AddressSanitizer: SEGV\n    #0 0x1  (/bin/a+0x1) (BuildId: 2)\n"
     "    #1 0x2 in g(char const*) /a b/c.cpp:1:2\n"},
    {"CrashLog/abort.txt", "skin 00ff\nterminate called after throwing\n  what():  x\n"},
};
// clang-format on

// Few colours, flat stretches and lone pixels: something for every compression.
Image smallPicture()
{
    auto pixels = SkinKit::PixelBuffer::uninitialized({13, 7});
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 13; ++x)
            pixels.row(y)[static_cast<std::size_t>(x)] =
                x < 6 ? SkinKit::packPixel(200, 10, 10)
                      : SkinKit::packPixel(static_cast<unsigned>(x * y % 5) * 50, 0, 99);
    return {std::move(pixels), Image::Alpha::opaque};
}

// A bitmap of every depth, and what of it a cursor can hold as well.
void addBitmaps(Files& files)
{
    CurFile cursor;
    const std::vector mask(7, "##---###---##"sv);
    for (const int bitCount : {4, 8, 16, 24, 32}) {
        const auto bitmap = encodeBMP(smallPicture(), bitCount);
        files["BMP/" + std::to_string(bitCount)] = bitmap;
        cursor.entries.push_back({.picture = cursorPicture(bitmap, mask)});
    }
    files["BMP/1"] = encodeBMP(solidImage({9, 3}, {1, 2, 3}), 1);
    files["BMP/rle4"] = encodeRLE(smallPicture(), 4);
    files["BMP/rle8"] = encodeRLE(smallPicture(), 8);
    BMPFile masked{.width = 2, .height = -1, .bitCount = 16, .compression = 3};
    for (const std::uint32_t value : {0xF800U, 0x07E0U, 0x001FU, 0x12345678U})
        append32(masked.pixels, value);
    files["BMP/masked"] = masked.bytes();

    files["Cursor/depths.cur"] = cursor.bytes();
    const ByteBuffer png = *SkinKit::PNGCodec::encode(smallPicture());
    files["Cursor/png.cur"] = curFile(png, {3, 4});
    AniFile animation{
        .frames = {cursor.bytes(), png, cursor.entries[0].picture}
    };
    animation.sequence = {0, 2, 1, 9};
    animation.rates = {6, 0};
    files["Cursor/moving.ani"] = animation.bytes();
    cursor.type = 1;
    files["Cursor/icons.ico"] = cursor.bytes();
}

// A picture of three rows, one a filter. Stored rather than compressed, so that a changed byte is a
// changed sample.
ByteBuffer smallPNG(std::uint8_t depth, std::uint8_t colorType)
{
    constexpr std::array samples{1, 0, 3, 1, 2, 0, 4}; // a pixel, by colour type
    ByteBuffer rows;
    for (int y = 0; y < 3; ++y) {
        rows.push_back(static_cast<std::uint8_t>(y + 2));
        for (int x = 0; x < (5 * samples[colorType] * depth + 7) / 8; ++x)
            rows.push_back(static_cast<std::uint8_t>(rows.size() * 37));
    }
    ByteBuffer chunks;
    if (colorType == 3)
        chunks = pngChunk("PLTE", ByteBuffer(3UZ << std::min<int>(depth, 4), 100));
    if (colorType < 4)
        append(chunks, pngChunk("tRNS", ByteBuffer(colorType == 2 ? 6 : 2, 1)));
    append(chunks, pngChunk("IDAT", zlibStream(rows, 0)));
    return pngFile({.width = 5, .height = 3, .depth = depth, .colorType = colorType}, chunks);
}

void addPNGs(Files& files)
{
    // clang-format off
    constexpr std::pair<std::uint8_t, std::uint8_t> kinds[] = { // depth, colour type
        {1, 0}, {2, 0}, {8, 0}, {16, 0}, {8, 2}, {1, 3}, {4, 3}, {8, 3}, {8, 4}, {8, 6}, {16, 6}};
    // clang-format on
    for (const auto& [depth, colorType] : kinds) {
        const auto name = std::to_string(colorType) + "-" + std::to_string(depth);
        const auto png = smallPNG(depth, colorType);
        files["PNG/" + name] = png;
        if (depth == 8)
            files["Cursor/" + name] = curFile(png, {1, 1});
    }
    files["PNG/interlaced"] =
        pngFile({.isInterlaced = true}, pngChunk("IDAT", zlibStream(ByteBuffer(5, 0), 0)));
}

void addArchives(Files& files)
{
    files["Archive/plain.zip"] = ZipWriter()
                                     .add("main.bmp", encodeBMP(smallPicture(), 24))
                                     .add({.name = "Skin/Pledit.TXT", .data = bytes("[Text]")})
                                     .add({.name = "folder/", .method = 0})
                                     .bytes();
    files["Archive/lying.zip"] =
        ZipWriter()
            .add({.name = "a.txt", .data = ByteBuffer(5000, 7), .uncompressedSize = 3})
            .add({.name = "b.txt", .data = bytes("b"), .flags = 1})
            .add({.name = "c.txt", .data = bytes("c"), .method = 12})
            .bytes();
    ByteBuffer embedded = bytes("something in front");
    append(embedded,
           ZipWriter()
               .add({.name = "\x8E.txt", .data = bytes("64 bits"), .hasLargeNumbers = true})
               .bytesWithLargeEnd());
    append(embedded, bytes("and behind: PK\x05\x06"));
    files["Archive/embedded.zip"] = embedded;

    const ByteBuffer sheet = encodeBMP(smallPicture(), 8);
    const std::pair<const char*, ByteBuffer> skin[] = {
        {"main.bmp", encodeRLE(smallPicture(), 8)},
        {"nums_ex.png", smallPNG(8, 6)},
        {"pledit.bmp", smallPNG(4, 3)},
        {"volume.bmp", sheet},
        {"text.bmp", encodeBMP(*SkinKit::GeneratedBaseSkin::sheet("TEXT"), 4)},
        {"region.txt", bytes(region)},
        {"viscolor.txt", bytes("1,2,3\n4 5 6\n")},
        {"pledit.txt", bytes("[Text]\nNormal=#12345\n")},
        {"normal.cur", curFile(cursorPicture(encodeBMP(smallPicture(), 4)))},
    };
    // Stored, not compressed, so that a changed byte is a changed byte of a file.
    ZipWriter sheets;
    for (const auto& [name, content] : skin)
        sheets.add({.name = name, .data = content, .method = 0});
    files["Skin/sheets.wsz"] = sheets.bytes();
    files["Skin/modern.wal"] = ZipWriter().add({.name = "skin.xml"}).add("main.bmp", sheet).bytes();
}

}

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: MakeSeeds <folder>\n", stderr);
        return 2;
    }
    Files files;
    for (const auto& [name, text] : texts)
        files[name] = bytes(text);
    addBitmaps(files);
    addPNGs(files);
    addArchives(files);
    for (const auto& [name, content] : files) {
        const auto path = std::filesystem::path(argv[1]) / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << SkinKit::asText(content);
    }
    return 0;
}
