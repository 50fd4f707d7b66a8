#include "tests/hostile/HostileFiles.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Formats/SkinCursors.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "tests/hostile/Streams.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/CursorWriter.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/ZipWriter.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace hostile {
namespace {

using namespace support;
using std::filesystem::path;

constexpr int width = 4096;
constexpr int height = 2048;
constexpr std::size_t mebibyte = 1 << 20;
constexpr std::size_t largestEntry = 8 * mebibyte;

void write(const path& file, ByteView content)
{
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(content.data()),
                 static_cast<std::streamsize>(content.size()));
    if (!stream.flush())
        throw std::runtime_error("can't write " + file.string());
}

void makeSparse(const path& file, std::uintmax_t byteCount)
{
    write(file, {});
    std::filesystem::resize_file(file, byteCount);
}

std::vector<std::string> sheetNames(std::string_view extension)
{
    std::vector<std::string> names;
    for (const auto& sheet : SkinKit::SkinSprites::sheets())
        names.push_back(SkinKit::Unicode::lowercased(sheet.name) + "." + std::string(extension));
    return names;
}

std::vector<std::string> cursorNames()
{
    std::vector<std::string> names;
    for (const auto name : SkinKit::SkinCursors::names())
        names.push_back(SkinKit::Unicode::lowercased(name) + ".ani");
    return names;
}

enum Method : std::uint16_t { asIs = 0, compressed = 8 };

// Entries of these names that share one content.
void addAll(ZipWriter& zip, const std::vector<std::string>& names, ByteView content,
            Method method = compressed)
{
    ZipEntry entry{
        .data = {content.begin(), content.end()},
          .method = method
    };
    entry.uncompressedSize = static_cast<std::uint32_t>(content.size());
    for (const auto& name : names) {
        entry.name = name;
        zip.add(entry);
        entry.data.clear();
        entry.sharesBytes = true;
    }
}

void writeSheets(const path& file, std::string_view extension, ByteView content)
{
    ZipWriter zip;
    addAll(zip, sheetNames(extension), content);
    write(file, zip.bytes());
}

// A small sheet, so that the skin is one, and one other file.
void writeWithSheet(const path& file, std::string name, ByteView content)
{
    ZipWriter zip;
    zip.add("main.bmp", encodeBMP(solidImage({275, 116}, {1, 2, 3}), 24));
    addAll(zip, {std::move(name)}, content, asIs);
    write(file, zip.bytes());
}

// As many entries as can be, of one stream; each says that it holds `declared` bytes.
void writeSharing(const path& file, ByteBuffer stream, std::uint32_t declared)
{
    ZipWriter zip;
    ZipEntry entry{.stored = std::move(stream), .uncompressedSize = declared};
    for (int i = 0; i < 65'535; ++i) {
        entry.name = std::to_string(i) + ".bmp";
        zip.add(entry);
        entry.stored = ByteBuffer{};
        entry.sharesBytes = true;
    }
    write(file, zip.bytes());
}

void writeDirectory(const path& file, int entries, std::size_t nameBytes, char letter)
{
    ZipWriter zip;
    ZipEntry entry{.method = 0};
    for (int i = 0; i < entries; ++i) {
        entry.name = std::to_string(i) + ".bmp";
        if (entry.name.size() < nameBytes)
            entry.name.insert(0, nameBytes - entry.name.size(), letter);
        zip.add(entry);
        entry.sharesBytes = true;
    }
    write(file, zip.bytesWithLargeEnd());
}

BMPFile bitmap(int bitCount, std::uint32_t compression, int rows = height)
{
    return {.width = width, .height = rows, .bitCount = bitCount, .compression = compression};
}

// Text of this piece over and over, up to the largest that is read. `{}` in it stands for a number
// that counts the pieces.
std::string repeated(std::string_view piece, std::string_view start = {},
                     std::size_t most = largestEntry)
{
    std::string text(start);
    const auto place = piece.find("{}");
    for (int i = 0;; ++i) {
        std::string next(piece);
        if (place != piece.npos)
            next.replace(place, 2, std::to_string(i));
        if (text.size() + next.size() > most)
            return text;
        text += next;
    }
}

void writeText(const path& file, std::string name, std::string_view text)
{
    writeWithSheet(file, std::move(name), bytes(text));
}

void writeRegion(const path& file, std::string_view counts, std::string_view points)
{
    const std::string start = "[Normal]\nNumPoints=" + std::string(counts) + "\nPointList=";
    writeText(file, "region.txt", repeated(points, start));
}

// An animated cursor whose frames are all this picture.
ByteBuffer animation(const ByteBuffer& picture, std::size_t most = largestEntry)
{
    AniFile file;
    const std::size_t count = (most - 100) / (picture.size() + 8);
    file.frames.assign(count, picture);
    return file.bytes();
}

void writeCursors(const path& file, ByteView content)
{
    ZipWriter zip;
    zip.add("main.bmp", encodeBMP(solidImage({275, 116}, {1, 2, 3}), 24));
    addAll(zip, cursorNames(), content, asIs);
    write(file, zip.bytes());
}

ByteBuffer onePixel()
{
    BMPFile pixel{
        .bitCount = 1, .palette = {{1, 2, 3}, {4, 5, 6}}
    };
    pixel.pixels.resize(4);
    return cursorPicture(pixel.bytes(), {"."});
}

// Entries that all point to one picture.
ByteBuffer sharingCursor(const ByteBuffer& picture)
{
    constexpr int count = 65'535;
    CurFile file;
    file.entries.assign(count, {.pictureBytes = static_cast<std::uint32_t>(picture.size()),
                                .offset = 6 + 16 * count});
    file.entries.back().picture = picture;
    return file.bytes();
}

// clang-format off
constexpr PNGHeader largestPNG{.width = width, .height = height};
constexpr PNGHeader deepestPNG{.width = width, .height = height, .depth = 16, .isInterlaced = true};
// clang-format on

ByteBuffer pngOfZeros(const PNGHeader& header)
{
    return png(header, pngChunk("IDAT", zlibStream(zeroPixels(header))));
}

// A picture of one pixel with as many copies of a chunk before its pixels as fit.
ByteBuffer pngFullOf(ByteView chunk, ByteView pixels)
{
    ByteBuffer chunks;
    while (chunks.size() + chunk.size() + 1000 < largestEntry)
        append(chunks, chunk);
    append(chunks, pixels);
    return png({}, chunks);
}

ByteBuffer onePNGPixel()
{
    return pngChunk("IDAT", zlibStream(zeroPixels({})));
}

// A keyword, the method, and a mebibyte of zeros many times over.
ByteBuffer compressedText(std::string_view chunk)
{
    ByteBuffer content = bytes("Comment");
    append(content, ByteBuffer{0, 0});
    append(content, zlibFramed(deflatedZeros(64)));
    return pngChunk(chunk, content);
}

using Folder = std::function<void(const path& folder)>;

void makeFolder(const path& folder, const Folder& fill)
{
    std::filesystem::create_directory(folder);
    write(folder / "titlebar.bmp", encodeBMP(solidImage({275, 116}, {1, 2, 3}), 24));
    fill(folder);
}

// clang-format off
constexpr HostileFile table[] = {
    // Archives that lie about what they hold, or hold too much of it.
    {"OneBomb", "one entry of 1 GiB in 1 MiB, its size told", [](const path& file) {
        ZipWriter zip;
        zip.add({.name = "main.bmp", .stored = deflatedZeros(1024), .uncompressedSize = 1U << 30});
        write(file, zip.bytes());
    }},
    {"LyingBombs", "65,535 entries that share one stream of 1 GiB and say 1,000 bytes",
     [](const path& file) { writeSharing(file, deflatedZeros(1024), 1000); }},
    {"LargestEntries", "65,535 entries that share one stream of 8 MiB",
     [](const path& file) { writeSharing(file, deflatedZeros(8), largestEntry); }},
    {"EmptyBlocks", "65,535 entries that share 8 MiB of deflated nothing and say 8 MiB",
     [](const path& file) { writeSharing(file, deflatedNothing(largestEntry - 100), largestEntry); }},
    {"LyingEmptyBlocks", "the same of 16 MiB, saying 1,000 bytes",
     [](const path& file) { writeSharing(file, deflatedNothing(2 * largestEntry), 1000); }},
    {"SmallEmptyBlocks", "the same of 64 KiB, saying 0 bytes",
     [](const path& file) { writeSharing(file, deflatedNothing(mebibyte / 16), 0); }},
    {"StoredEntries", "65,535 stored entries that share 8 MiB and a byte", [](const path& file) {
        ZipWriter zip;
        ZipEntry entry{.data = ByteBuffer(largestEntry + 1), .method = 0, .uncompressedSize = 1};
        for (int i = 0; i < 65'535; ++i) {
            entry.name = std::to_string(i) + ".bmp";
            zip.add(entry);
            entry.data.clear();
            entry.sharesBytes = true;
        }
        write(file, zip.bytes());
    }},
    {"NestedArchives", "an archive in an archive, sixteen deep", [](const path& file) {
        ByteBuffer inner = deflatedZeros(64);
        for (int i = 0; i < 16; ++i)
            inner = ZipWriter().add("main.zip", inner).bytes();
        write(file, ZipWriter().add("main.bmp", inner).bytes());
    }},
    {"WrongSizes", "entries of 2^64 bytes, beyond the end, and none", [](const path& file) {
        ZipWriter zip;
        zip.add({.name = "main.bmp", .data = {1}, .uncompressedSize = 0xFFFFFFFF});
        zip.add({.name = "text.bmp", .data = {1}, .uncompressedSize = 0xFFFFFFFF, .hasLargeNumbers = true});
        ByteBuffer archive = zip.bytes();
        const auto size = archive.size();
        for (std::size_t i = size - 90; i < size - 60; ++i)
            archive[i] = 0xFF;
        write(file, archive);
    }},

    // Directories.
    {"MaxEntries", "65,535 entries with names of 200 bytes, six times as long in UTF-8",
     [](const path& file) { writeDirectory(file, 65'535, 200, '\xB0'); }},
    {"OneEntryMore", "65,536 entries", [](const path& file) { writeDirectory(file, 65'536, 0, 0); }},
    {"MillionEntries", "1,000,000 entries", [](const path& file) { writeDirectory(file, 1'000'000, 0, 0); }},
    {"LongNames", "250 entries with names of 65,535 bytes",
     [](const path& file) { writeDirectory(file, 250, 65'535, '\xB0'); }},
    {"DeepPaths", "250 entries 32,000 folders deep", [](const path& file) {
        ZipWriter zip;
        for (int i = 0; i < 250; ++i)
            zip.add(repeated("a/", {}, 65'000) + std::to_string(i) + ".bmp", {});
        write(file, zip.bytes());
    }},
    {"FalseEnds", "a comment full of false ends, behind 8 MiB of nothing", [](const path& file) {
        ByteBuffer archive(largestEntry);
        append(archive, ZipWriter().add("a.txt", {}).bytes());
        archive.resize(archive.size() - 4);
        append(archive, bytes(repeated("PK\x05\x06", {}, 65'530)));
        write(file, archive);
    }},
    {"SparseFile", "2 GiB of nothing", [](const path& file) { makeSparse(file, std::uintmax_t{2} << 30); }},
    {"SparseFront", "2 GiB of nothing, then a skin", [](const path& file) {
        makeSparse(file, std::uintmax_t{2} << 30);
        std::ofstream stream(file, std::ios::binary | std::ios::app);
        const auto skin = SkinBuilder().allSheets().zip();
        stream.write(reinterpret_cast<const char*>(skin.data()), static_cast<std::streamsize>(skin.size()));
    }},

    // Folders.
    {"FolderWithSparseSheet", "a main.bmp of 2 GiB of nothing", [](const path& file) {
        makeFolder(file, [](const path& folder) { makeSparse(folder / "main.bmp", std::uintmax_t{2} << 30); });
    }},
    {"FolderOfLargestFiles", "1,000 files of 8 MiB of nothing", [](const path& file) {
        makeFolder(file, [](const path& folder) {
            for (int i = 0; i < 1000; ++i)
                makeSparse(folder / (std::to_string(i) + ".bmp"), largestEntry);
        });
    }},
    {"FolderOfManyFiles", "70,000 files", [](const path& file) {
        makeFolder(file, [](const path& folder) {
            for (int i = 0; i < 70'000; ++i)
                write(folder / (std::to_string(i) + ".bmp"), {});
        });
    }},
    {"FolderOfLoops", "links to itself, to each other, to a device and a pipe", [](const path& file) {
        makeFolder(file, [](const path& folder) {
            std::filesystem::create_symlink("main.bmp", folder / "main.bmp");
            std::filesystem::create_symlink("eqmain.bmp", folder / "text.bmp");
            std::filesystem::create_symlink("text.bmp", folder / "eqmain.bmp");
            std::filesystem::create_symlink("/dev/zero", folder / "gen.bmp");
            std::filesystem::create_directory_symlink(".", folder / "numbers.bmp");
            ::mkfifo((folder / "posbar.bmp").c_str(), 0600);
        });
    }},
    {"FolderOfFolders", "1,000 folders, one in another", [](const path& file) {
        makeFolder(file, [](const path& folder) {
            path deep = folder;
            for (int i = 0; i < 1000; ++i)
                std::filesystem::create_directory(deep /= "a");
        });
    }},
    {"LinkLoop", "a link that leads to itself",
     [](const path& file) { std::filesystem::create_symlink(file.filename(), file); }},

    // Sheets.
    {"SheetsRLE", "sixteen sheets of 4096 x 2048, RLE8, one run a line", [](const path& file) {
        writeSheets(file, "bmp", encodeRLE(solidImage({width, height}, {1, 2, 3}), 8));
    }},
    {"SheetsRLEPixels", "the same, every pixel a run, as far as 8 MiB go", [](const path& file) {
        BMPFile sheet = bitmap(8, 1);
        sheet.palette.assign(256, {1, 2, 3});
        for (int i = 0; i < 1000; ++i) {
            for (int x = 0; x < width; ++x)
                append(sheet.pixels, ByteBuffer{1, 7});
            append(sheet.pixels, ByteBuffer{0, 0});
        }
        append(sheet.pixels, ByteBuffer{0, 1});
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"SheetsRLESkips", "the same, 8 MiB of skips to the right", [](const path& file) {
        BMPFile sheet = bitmap(8, 1);
        sheet.palette.assign(256, {1, 2, 3});
        while (sheet.pixels.size() + 2000 < largestEntry)
            append(sheet.pixels, ByteBuffer{0, 2, 255, 0});
        append(sheet.pixels, ByteBuffer{0, 1});
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"Sheets1Bit", "sixteen sheets of 4096 x 2048, 1-bit", [](const path& file) {
        BMPFile sheet = bitmap(1, 0);
        sheet.palette = {{1, 2, 3}, {4, 5, 6}};
        sheet.pixels.resize(width / 8 * height);
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"Sheets4Bit", "the same, 4-bit", [](const path& file) {
        BMPFile sheet = bitmap(4, 0);
        sheet.palette.assign(16, {1, 2, 3});
        sheet.pixels.resize(width / 2 * height);
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"Sheets24Bit", "the same, 24-bit, of 24 MiB each", [](const path& file) {
        BMPFile sheet = bitmap(24, 0);
        sheet.pixels.resize(std::size_t{width} * height * 3);
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"Sheets24BitThatFit", "sixteen sheets of 4096 x 680, 24-bit, 8 MiB each", [](const path& file) {
        BMPFile sheet = bitmap(24, 0, 680);
        sheet.pixels.resize(std::size_t{width} * 680 * 3);
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"SheetsPNG", "sixteen sheets of 4096 x 2048, PNG with alpha",
     [](const path& file) { writeSheets(file, "png", pngOfZeros(largestPNG)); }},
    {"SheetsDeepPNG", "the same, 16-bit and interlaced",
     [](const path& file) { writeSheets(file, "png", pngOfZeros(deepestPNG)); }},

    // PNG files.
    {"PNGHugeSides", "a PNG of 2^31 - 1 pixels a side", [](const path& file) {
        write(file, ZipWriter().add("main.png", png({.width = 0x7FFFFFFF, .height = 0x7FFFFFFF}, onePNGPixel())).bytes());
    }},
    {"PNGTexts", "sixteen PNGs full of compressed texts of 64 MiB each", [](const path& file) {
        writeSheets(file, "png", pngFullOf(compressedText("zTXt"), onePNGPixel()));
    }},
    {"PNGProfiles", "the same, colour profiles", [](const path& file) {
        writeSheets(file, "png", pngFullOf(compressedText("iCCP"), onePNGPixel()));
    }},
    {"PNGManyChunks", "sixteen PNGs of 600,000 empty chunks", [](const path& file) {
        writeSheets(file, "png", pngFullOf(pngChunk("teSt", {}), onePNGPixel()));
    }},
    {"PNGManyDataChunks", "the same, empty chunks of pixels", [](const path& file) {
        writeSheets(file, "png", pngFullOf(pngChunk("IDAT", {}), onePNGPixel()));
    }},
    {"PNGBehindPixels", "sixteen PNGs of one pixel and 4 GiB behind it", [](const path& file) {
        writeSheets(file, "png", png({}, pngChunk("IDAT", zlibFramed(deflatedZeros(4096)))));
    }},
    {"PNGEmptyBlocks", "eight PNGs of 4096 x 2048 that are 8 MiB of deflated nothing", [](const path& file) {
        writeSheets(file, "png", png(deepestPNG, pngChunk("IDAT", zlibFramed(deflatedNothing(largestEntry - 1000)))));
    }},

    // Texts.
    {"TextKeys", "a playlist style of a million keys",
     [](const path& file) { writeText(file, "pledit.txt", repeated("{}=\n", "[Text]\n")); }},
    {"TextSections", "a region of 800,000 sections",
     [](const path& file) { writeText(file, "region.txt", repeated("[{}]\n")); }},
    {"TextLines", "visualizer colours of four million lines that are none",
     [](const path& file) { writeText(file, "viscolor.txt", repeated("x\n")); }},
    {"TextDigits", "a visualizer colour of eight million digits",
     [](const path& file) { writeText(file, "viscolor.txt", repeated("1")); }},
    {"TextNotUTF8", "a playlist style of 8 MiB that is no text",
     [](const path& file) { writeText(file, "pledit.txt", repeated("\xFF", "[Text]\nNormal=")); }},
    {"TextReadme", "a read-me of 8 MiB", [](const path& file) { writeText(file, "readme.txt", repeated("<&>\"\n")); }},
    {"ManyReadmes", "65,000 read-mes", [](const path& file) {
        ZipWriter zip;
        zip.add("main.bmp", encodeBMP(solidImage({275, 116}, {1, 2, 3}), 24));
        for (int i = 0; i < 65'000; ++i)
            zip.add("readme" + std::to_string(i) + ".txt", bytes("text"));
        write(file, zip.bytes());
    }},
    {"RegionPoints", "a polygon of a million points, from top to bottom and back", [](const path& file) {
        writeRegion(file, "9999999", "0 0 9 116 ");
    }},
    {"RegionTriangles", "700,000 triangles", [](const path& file) {
        writeRegion(file, repeated("3,", {}, 1'400'000), "0 0 275 0 9 116 ");
    }},
    {"RegionFarAway", "a million points at the ends of the numbers", [](const path& file) {
        writeRegion(file, "9999999", "-9223372036854775808 -9223372036854775808 9223372036854775807 9223372036854775807 ");
    }},
    {"RegionCounts", "a million polygons of nothing", [](const path& file) {
        writeText(file, "region.txt", repeated("0,", "[Normal]\nPointList=1 2 3 4 5 6\nNumPoints="));
    }},

    // Cursors.
    {"CursorFrames", "24 cursors of as many one-pixel frames as 8 MiB hold",
     [](const path& file) { writeCursors(file, animation(onePixel(), largestEntry)); }},
    {"CursorsOfCursors", "24 animations whose frames are 65,535 times the same pixel", [](const path& file) {
        writeCursors(file, animation(sharingCursor(onePixel()), 5 * mebibyte / 2));
    }},
    {"CursorsLargest", "24 cursors of 65,535 times the same 256 x 256 pixels", [](const path& file) {
        BMPFile sheet{.width = 256, .height = 256, .bitCount = 24};
        sheet.pixels.resize(256 * 256 * 3);
        writeCursors(file, sharingCursor(cursorPicture(sheet.bytes())));
    }},
    {"CursorSteps", "24 cursors of 600,000 steps each", [](const path& file) {
        AniFile cursor;
        cursor.frames = {onePixel()};
        cursor.sequence.assign(600'000, 0);
        writeCursors(file, cursor.bytes());
    }},
    {"CursorClaims", "a cursor that claims 4 GiB and 4 billion frames", [](const path& file) {
        AniFile cursor{.frames = {onePixel()}, .steps = 0xFFFFFFFF, .frameHeight = 0xFFFFFFFF, .listBytes = 0xFFFFFFFF};
        writeCursors(file, cursor.bytes());
    }},

    // Some of the worst together.
    {"Everything", "the largest sheets, a region, texts and cursors", [](const path& file) {
        ZipWriter zip;
        addAll(zip, sheetNames("bmp"), encodeRLE(solidImage({width, height}, {1, 2, 3}), 8));
        addAll(zip, cursorNames(), animation(onePixel(), mebibyte), asIs);
        addAll(zip, {"pledit.txt"}, bytes(repeated("{}=\n", "[Text]\n")), asIs);
        addAll(zip, {"viscolor.txt"}, bytes(repeated("x\n")), asIs);
        addAll(zip, {"region.txt"}, bytes(repeated("0 0 9 116 ", "[Normal]\nNumPoints=9999999\nPointList=")), asIs);
        write(file, zip.bytes());
    }},
};
// clang-format on

}

std::span<const HostileFile> files()
{
    return table;
}

void make(const HostileFile& file, const path& path)
{
    const pid_t child = ::fork();
    if (child == 0) {
        file.make(path);
        ::_exit(0);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("can't make " + std::string(file.name));
}

}
