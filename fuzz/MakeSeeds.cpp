#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/CursorWriter.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/ZipWriter.h"

#include <algorithm>
#include <zlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

// Writes the fuzz targets' seeds: one folder a target, small files that are good in different ways.
namespace {

using namespace support;
using SkinKit::Image;

class SeedFolder {
public:
    explicit SeedFolder(std::filesystem::path path) : path_(std::move(path))
    {
        std::filesystem::create_directories(path_);
    }

    void write(std::string_view name, ByteView bytes) const
    {
        std::ofstream stream(path_ / name, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()),
                     static_cast<std::streamsize>(bytes.size()));
    }
    void write(std::string_view name, std::string_view text) const
    {
        write(name, SkinKit::asBytes(text));
    }

private:
    std::filesystem::path path_;
};

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

void writeBMPs(const SeedFolder& folder)
{
    const Image picture = smallPicture();
    for (const int bitCount : {4, 8, 16, 24, 32})
        folder.write(std::to_string(bitCount) + "-bit.bmp", encodeBMP(picture, bitCount));
    for (const int bitCount : {4, 8})
        folder.write("rle" + std::to_string(bitCount) + ".bmp", encodeRLE(picture, bitCount));
    folder.write("1-bit.bmp", encodeBMP(solidImage({9, 3}, {1, 2, 3}), 1));
    BMPFile masked{.width = 2, .height = -1, .bitCount = 16, .compression = 3};
    append32(masked.pixels, 0xF800);
    append32(masked.pixels, 0x07E0);
    append32(masked.pixels, 0x001F);
    append32(masked.pixels, 0x12345678);
    folder.write("masked.bmp", masked.bytes());
}

void writeArchives(const SeedFolder& folder)
{
    ZipWriter plain;
    plain.add("main.bmp", encodeBMP(smallPicture(), 24));
    plain.add(
        {.name = "Skin/Pledit.TXT", .data = bytes("[Text]\r\nNormal=#00FF00\r\n"), .method = 0});
    plain.add({.name = "folder/", .data = {}, .method = 0});
    folder.write("plain.zip", plain.bytes());
    ZipWriter lying;
    lying.add({.name = "a.txt", .data = ByteBuffer(5000, 7), .uncompressedSize = 3});
    lying.add({.name = "b.txt", .data = bytes("b"), .flags = 1});
    lying.add({.name = "c.txt", .data = bytes("c"), .method = 12});
    folder.write("lying.zip", lying.bytes());
    ZipWriter spent;
    std::string name = "a.txt";
    for (const std::size_t size : {4096UZ, 4096UZ, 1808UZ, 1UZ}) {
        spent.add(name, ByteBuffer(size, 7));
        ++name[0];
    }
    folder.write("spent.zip", spent.bytes());
    ZipWriter large;
    large.add({.name = "\x8E.txt", .data = bytes("64 bits"), .hasLargeNumbers = true});
    ByteBuffer embedded = bytes("something in front");
    append(embedded, large.bytesWithLargeEnd());
    append(embedded, bytes("and behind: PK\x05\x06"));
    folder.write("embedded.zip", embedded);
}

// A chunk of a PNG file.
void appendChunk(ByteBuffer& file, std::string_view name, ByteView content)
{
    const auto appendNumber = [&](unsigned long value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            file.push_back(static_cast<std::uint8_t>(value >> shift));
    };
    appendNumber(content.size());
    const std::size_t start = file.size();
    append(file, bytes(name));
    append(file, content);
    appendNumber(crc32(0, &file[start], static_cast<unsigned>(file.size() - start)));
}

// Stored rather than compressed, so that a changed byte is a changed sample.
ByteBuffer storedStream(ByteView content)
{
    uLongf size = compressBound(content.size());
    ByteBuffer stream(size);
    compress2(stream.data(), &size, content.data(), content.size(), Z_NO_COMPRESSION);
    stream.resize(size);
    return stream;
}

// A picture of 5 × 3 pixels whose rows use one filter after the other.
ByteBuffer pngFile(std::uint8_t depth, std::uint8_t colorType, bool isInterlaced)
{
    constexpr std::uint8_t samples[] = {1, 0, 3, 1, 2, 0, 4}; // a pixel, by colour type
    // Interlaced: seven pictures of every so many columns and rows, from an offset on.
    struct Pass {
        int width, height;
    };
    constexpr Pass whole[] = {
        {5, 3}
    };
    constexpr Pass passes[] = {
        {1, 1},
        {1, 1},
        {0, 0},
        {1, 1},
        {3, 1},
        {2, 2},
        {5, 1}
    };
    ByteBuffer rows;
    for (const auto& [width, height] : isInterlaced ? std::span<const Pass>(passes) : whole) {
        const int rowBytes = (width * samples[colorType] * depth + 7) / 8;
        for (int y = 0; y < height; ++y) {
            rows.push_back(static_cast<std::uint8_t>(rows.size() % 5));
            for (int x = 0; x < rowBytes; ++x)
                rows.push_back(static_cast<std::uint8_t>(rows.size() * 37));
        }
    }

    ByteBuffer file = bytes("\x89PNG\r\n\x1A\n");
    const std::uint8_t header[] = {0, 0, 0, 5, 0, 0, 0, 3, depth, colorType, 0, 0, isInterlaced};
    appendChunk(file, "IHDR", header);
    if (colorType == 3)
        appendChunk(file, "PLTE", ByteBuffer(3U << std::min<int>(depth, 4), 100));
    if (colorType == 3 || colorType == 0 || colorType == 2)
        appendChunk(file, "tRNS", ByteBuffer(colorType == 2 ? 6 : 2, 1));
    appendChunk(file, "IDAT", storedStream(rows));
    appendChunk(file, "IEND", {});
    return file;
}

void writeCursors(const SeedFolder& folder)
{
    const std::vector<std::string_view> mask(7, "##---###---##");
    std::vector<CurEntry> entries;
    for (const int bitCount : {4, 8, 16, 24, 32})
        entries.push_back({.picture = cursorPicture(encodeBMP(smallPicture(), bitCount), mask)});
    folder.write("depths.cur", CurFile{entries}.bytes());
    folder.write("icons.ico", CurFile{entries, 1}.bytes());
    const ByteBuffer png = *SkinKit::PNGCodec::encode(smallPicture());
    folder.write("png.cur", curFile(png, {3, 4}));
    struct Kind {
        std::string_view name;
        std::uint8_t colorType;
    };
    for (const auto& [name, colorType] : {
             Kind{"gray",       0},
             Kind{"rgb",        2},
             Kind{"palette",    3},
             Kind{"gray-alpha", 4}
    })
        folder.write(std::string(name) + ".cur", curFile(pngFile(8, colorType, false), {1, 1}));
    BMPFile alpha{.width = 2, .height = -1, .bitCount = 32};
    append32(alpha.pixels, 0x80FF0000);
    append32(alpha.pixels, 0xFF00FF00);
    AniFile animation;
    animation.frames = {curFile(cursorPicture(alpha.bytes())), png, entries[0].picture};
    animation.sequence = {0, 2, 1, 9};
    animation.rates = {6, 0};
    folder.write("moving.ani", animation.bytes());
}

void writePNGs(const SeedFolder& folder)
{
    folder.write("opaque.png", *SkinKit::PNGCodec::encode(smallPicture()));
    folder.write("alpha.png", *SkinKit::PNGCodec::encode(*SkinKit::SkinRegion::maskImage(
                                  {
                                      {{0, 0}, {9, 2}, {3, 8}}
    },
                                  {10, 9}, 1)));
    struct Kind {
        std::uint8_t colorType;
        std::vector<std::uint8_t> depths;
    };
    for (const auto& [colorType, depths] : {
             Kind{0, {1, 2, 4, 8, 16}},
             Kind{2, {8, 16}         },
             Kind{3, {1, 2, 4, 8}    },
             Kind{4, {8, 16}         },
             Kind{6, {8, 16}         }
    })
        for (const std::uint8_t depth : depths)
            for (const bool isInterlaced : {false, true})
                folder.write(std::to_string(colorType) + "-" + std::to_string(depth) +
                                 (isInterlaced ? "-interlaced.png" : ".png"),
                             pngFile(depth, colorType, isInterlaced));
}

// The files stored, not compressed, so that a changed byte is a changed byte of a file.
ByteBuffer storedZip(const std::vector<std::pair<std::string_view, ByteBuffer>>& files)
{
    ZipWriter zip;
    for (const auto& [name, content] : files)
        zip.add({.name = std::string(name), .data = content, .method = 0});
    return zip.bytes();
}

void writeSkins(const SeedFolder& folder)
{
    const std::string_view region =
        "[Normal]\nNumPoints=4\nPointList=0,0, 275,0, 200,116, 0,116\n[Equalizer]\nNumPoints=3\n"
        "PointList=0,0 275,0 9,99\n[WindowShade]\nNumPoints=3\nPointList=0,0 275,0 9,14\n";
    std::string allColors;
    for (int i = 0; i < 24; ++i)
        allColors += "1,2,3\n";
    const ByteBuffer picture = encodeBMP(smallPicture(), 8);
    folder.write("small.wsz", SkinBuilder()
                                  .sheet("main.bmp", solidImage({275, 116}, {40, 60, 80}))
                                  .sheet("text.bmp", *SkinKit::GeneratedBaseSkin::sheet("TEXT"))
                                  .text("region.txt", region)
                                  .text("viscolor.txt", "1,2,3\n4 5 6\n")
                                  .text("pledit.txt", "[Text]\nNormal=#12345\n")
                                  .zip());
    folder.write("texts.wsz",
                 storedZip({
                     {"main.bmp", encodeRLE(smallPicture(), 8)},
                     {"region.txt", bytes(region)},
                     {"viscolor.txt", bytes(allColors)},
                     {"pledit.txt", bytes("[Text]\nNormal=#12345\nFont=Ab\n")},
                     {"normal.cur", curFile(cursorPicture(encodeBMP(smallPicture(), 4)))}
    }));
    folder.write("sheets.wsz", storedZip({
                                   {"cbuttons.bmp", picture},
                                   {"nums_ex.png", pngFile(8, 6, false)},
                                   {"text.bmp", picture},
                                   {"titlebar.bmp", picture},
                                   {"volume.bmp", picture},
                                   {"eqmain.bmp", picture},
                                   {"pledit.bmp", pngFile(4, 3, false)},
                                   {"playpaus.bmp", picture}
    }));
    folder.write("modern.wal", storedZip({
                                   {"skin.xml", bytes("<x/>")},
                                   {"main.bmp", picture      }
    }));
}

void writeCorpus(const std::filesystem::path& root)
{
    SeedFolder(root / "CorpusRecords")
        .write("results.jsonl",
               R"({"event":"start","i":0,"md5":"00ff","name":"a","path":"b/a.wsz","t":1.5})"
               "\n"
               R"({"entries":2,"event":"result","fallbacks":["x"],"footprintMiB":9,"i":0,)"
               R"("mainWindowComplete":false,"md5":"00ff","ms":1e-07,"name":"a","nsfw":true,)"
               R"("path":"b/a.wsz","status":"partial","t":2,"warnings":["Missing gen.bmp","|"]})"
               "\n"
               R"({"error":"Unreadable archive: \u20ac","event":"result","ms":3.25,"of":null,)"
               R"("path":"\"","status":"failed","other":[{}]})"
               "\n"
               R"({"event":"result","path":"c","restart":1,"status":"crashed"})"
               "\n"
               R"({"event":"end","t":-5})"
               "\n"
               R"({"event":"result","ms":18446744073709551615,"path":"d","status":"timeout"})"
               "\n"
               R"({"event":"result","path":"e","status":"modern","warnings":[1]})");
    const SeedFolder logs(root / "CrashLog");
    logs.write("gdb.txt",
               "Thread 2 \"a\" received signal SIGSEGV\n#0  0x01 in S::read (this=0x0, s=\"(\")"
               " at a.cpp:7\n[Current thread is 1 (LWP 3)]\nThread 2 (LWP 4):\n"
               "#0  0x01 in S::read (this=0x0) at a.cpp:7\n#1  <signal handler called>\n"
               "#2  f<void ()>::operator() (x=y/a.wsz) at b\n#3  0x2 in ?? () from /l/x.so\n");
    logs.write("asan.txt",
               "==1==ERROR: AddressSanitizer: SEGV\n    #0 0x1  (/bin/a+0x1) (BuildId: 2)\n"
               "    #1 0x2 in g(char const*) /a b/c.cpp:1:2\n");
    logs.write("abort.txt", "skin 00ff\nterminate called after throwing\n  what():  x\n");
    SeedFolder(root / "Listing")
        .write("listing.json",
               R"([{"md5":"00ff","path":"a/b.wsz","size":9},{"md5":"00ff","path":"c.zip"},)"
               R"({"path":"\ufffd.wsz","pathBytes":"ff2e77737a","size":0},{"path":"d"}])");
    SeedFolder(root / "Manifest")
        .write("manifest.json",
               R"([{"md5":"00FF","museum_url":"https://a.b/c","nsfw":true},{"nsfw":false},)"
               R"({"md5":"00ff","nsfw":1},{"md5":"12"}])");
    SeedFolder(root / "JSON")
        .write("all.json", R"({"a":[1,-2,18446744073709551615,1.5e-7,"x\u00e9\n"],"b":{"":null},)"
                           R"("c":true,"d":-0.0})");
}

// The first byte says where a long one is cut.
void writeReadmes(const SeedFolder& folder)
{
    folder.write("short.txt", "<b>Gr\u00FC\u00DFe</b> & \"\U0001F3B5\"\r\n");
    folder.write("windows.txt", "Gr\xFC\xDF\x65 \x80\x99");
    folder.write("undefined.txt", "\xFC\x81\x8D\x8F\x90\x9D");
    folder.write("whole.txt", "\2bc");
    folder.write("inside-a-character.txt", "\2\U0001F3B5");
    folder.write("at-a-replacement.txt", "\3\uFFFDb");
    folder.write("long-windows.txt", "\1\x80\x80");
}

void writeTexts(const std::filesystem::path& root)
{
    SeedFolder(root / "PlaylistStyle")
        .write("pledit.txt", "; style\r\n[Text]\r\nNormal=#00FF00\r\nCurrent = \"FFFFFF\"\r\n"
                             "NormalBG=nothing\r\nSelectedBG='#0000C6'\r\nFont=Arial\r\n");
    SeedFolder(root / "VisColors")
        .write("viscolor.txt", "0,0,0, // background\n24 33 41\n123\n12 34\n300,0,0\n");
    SeedFolder(root / "Region")
        .write("region.txt", "[Normal]\nNumPoints=4,3\nPointList=0,0, 64,0, 64,16, 0,16,"
                             " 5.5,5 +20,-5 9,12\n[WindowShade]\nNumPoints=3\n"
                             "PointList=0,0 1000000000000,0 0,99\n");
    SeedFolder(root / "FileURI").write("escaped.txt", "file://localhost/a%20b/%C3%BC.wsz");
    SeedFolder(root / "Ini")
        .write("a.ini",
               "x=1\n; none\n[A]\nKey = \"value\"\n=b='c'\n[ ]\r\nk\u00C4=\n[a]\nkey=2=3\n[A]\n");
    SeedFolder(root / "Unicode")
        .write("kinds.txt", "Aa\u00C4e\u0301\u0130 \u0660\u1100\u1161\U0001F469\u200D\U0001F680"
                            "\U0001F1E9\U0001F1EA\u2003\r\n\xC3(\xED\xA0\x80\xF4\x90\x80\x80");
    SeedFolder(root / "ShownText")
        .write("markup.txt",
               "https://www.a.b/c_d?e=f&g=(h)|`<i>*[x](y)~$@\\ __init__ \"'\u202E\x1B[1m"
               "\u2028\n\t\xFF");
    const SeedFolder options(root / "Options");
    options.write("single.txt",
                  "-v\n--png\nout.png\n--state\nidle\n--scale\n2\n--no-region\na.wsz");
    options.write("windows.txt", "a.wsz\n--out\ndir\n--state\nwebamp\n--scale\n3\n--no-region");
    options.write("info.txt", "--json\na.wsz");
    options.write("preview.txt", "--mhtml\na.wsz\n--out\npage.mhtml");
    options.write("gallery.txt", "skins\n--out\ndir\n--scale\n2");
    options.write("corpus.txt", "skins\n--out\nrun\n--resume\n--timeout\n2.5\n--max-memory\n64\n"
                                "--sample\n9\n--seed\n7\n--manifest\nm.json");
    options.write("report.txt", "r.jsonl\n--markdown\na.md\n--json\na.json\n--env\ne.json\n"
                                "--crashes\nlogs\n--sample\n9\n--seed\n7");
    options.write("thumbnailer.txt", "-s\n256\nfile:///a%20b.wsz\nout.png");
}

}

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: MakeSeeds <folder>\n", stderr);
        return 2;
    }
    const std::filesystem::path root = argv[1];
    writeBMPs(SeedFolder(root / "BMP"));
    writeArchives(SeedFolder(root / "Archive"));
    writeCursors(SeedFolder(root / "Cursor"));
    writePNGs(SeedFolder(root / "PNG"));
    SeedFolder(root / "PNGRoundTrip").write("bytes", "\5abcdefghijklmnopqrstuvwxyz0123456789");
    writeSkins(SeedFolder(root / "Skin"));
    writeReadmes(SeedFolder(root / "Readme"));
    writeTexts(root);
    writeCorpus(root);
    return 0;
}
