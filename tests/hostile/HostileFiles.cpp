#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Formats/SkinCursors.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/CursorWriter.h"
#include "tests/support/PNGFile.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipWriter.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

// Skins made to cost whoever opens them as much as possible, memory, time, or both, one for each
// class of cost; what the programs make of them, and at what cost. With --print, a table of that
// in Markdown.
namespace {

using namespace support;
using std::filesystem::path;

constexpr int width = 4096;
constexpr int height = 2048;
constexpr std::size_t mebibyte = 1 << 20;
constexpr std::size_t largestEntry = 8 * mebibyte;

// So many mebibytes of zeros, a thousandth as long: a piece that ends flushed may be repeated.
ByteBuffer deflatedZeros(int mebibytes)
{
    const ByteBuffer zeros(mebibyte, 0);
    ByteBuffer piece(2 * mebibyte);
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = const_cast<Bytef*>(zeros.data());
    stream.avail_in = static_cast<uInt>(zeros.size());
    stream.next_out = piece.data();
    stream.avail_out = static_cast<uInt>(piece.size());
    deflate(&stream, Z_FULL_FLUSH);
    piece.resize(stream.total_out);
    deflateEnd(&stream);

    ByteBuffer whole;
    for (int i = 0; i < mebibytes; ++i)
        append(whole, piece);
    append(whole, ByteBuffer{1, 0, 0, 0xFF, 0xFF}); // an empty last block
    return whole;
}

// A deflate stream of about so many bytes that holds nothing: blocks that are empty, every other
// one with codes of its own, so that a reader builds tables all the time. Bits are written in the
// order they are read in.
ByteBuffer deflatedNothing(std::size_t byteCount)
{
    std::string codeLengths(3UZ * 18, '0'); // those of "18" (many zeros) and "1" are 1
    codeLengths[3UZ * 2] = codeLengths[3UZ * 17] = '1';
    // clang-format off
    const std::string ownCodes = "001"           // not the last block; with codes of its own
                                 "00000" "00000" // 257 literals and lengths, 1 distance
                                 "0111" + codeLengths +
                                 "11111111"      // 138 zeros
                                 "11101011"      // 118 zeros
                                 "00" "0";       // the block's end and the distance; the end
    // clang-format on
    const std::string fixedCodes = "0100000000";
    std::string bits;
    for (int i = 0; i < 8; ++i) // after eight times a byte is whole
        bits += ownCodes + fixedCodes;

    ByteBuffer piece(bits.size() / 8, 0);
    for (std::size_t i = 0; i < bits.size(); ++i)
        piece[i / 8] = static_cast<std::uint8_t>(piece[i / 8] | (bits[i] - '0') << i % 8);
    ByteBuffer whole;
    while (whole.size() < byteCount)
        append(whole, piece);
    append(whole, ByteBuffer{1, 0, 0, 0xFF, 0xFF});
    return whole;
}

// As PNG files hold deflate streams. The checksum at the end is wrong.
ByteBuffer zlibFramed(ByteView deflated)
{
    ByteBuffer stream(2 + deflated.size() + 4, 0);
    stream[0] = 0x78;
    stream[1] = 0x01;
    std::ranges::copy(deflated, stream.begin() + 2);
    return stream;
}

ByteBuffer smallSheet()
{
    return encodeBMP(solidImage({275, 116}, {1, 2, 3}), 24);
}

void write(const path& file, ByteView content, std::ios::openmode mode = std::ios::trunc)
{
    std::ofstream stream(file, std::ios::binary | mode);
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

// A folder of a small sheet and so many files of nothing.
void writeFolder(const path& folder, int count, std::uintmax_t byteCount)
{
    std::filesystem::create_directory(folder);
    write(folder / "titlebar.bmp", smallSheet());
    for (int i = 0; i < count; ++i)
        makeSparse(folder / (std::to_string(i) + ".bmp"), byteCount);
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

void writeSheets(const path& file, std::string_view extension, ByteView content,
                 Method method = compressed)
{
    ZipWriter zip;
    addAll(zip, sheetNames(extension), content, method);
    write(file, zip.bytes());
}

// Text of this piece over and over, up to the largest that is read. `{}` in it stands for a number
// that counts the pieces.
std::string repeated(std::string_view piece, std::string text = {}, std::size_t most = largestEntry)
{
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

// A small sheet, so that the skin is one, and others that share a content.
void writeWithSheet(const path& file, const std::vector<std::string>& names, ByteView content)
{
    ZipWriter zip;
    zip.add("main.bmp", smallSheet());
    addAll(zip, names, content, asIs);
    write(file, zip.bytes());
}

void writeText(const path& file, std::string name, std::string_view text)
{
    writeWithSheet(file, {std::move(name)}, bytes(text));
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

void writeDirectory(const path& file, int entries, std::size_t nameBytes)
{
    ZipWriter zip;
    ZipEntry entry{.method = 0};
    for (int i = 0; i < entries; ++i) {
        entry.name = std::to_string(i) + ".bmp";
        if (entry.name.size() < nameBytes)
            entry.name.insert(0, nameBytes - entry.name.size(), '\xB0');
        zip.add(entry);
        entry.sharesBytes = true;
    }
    write(file, zip.bytesWithLargeEnd());
}

constexpr const char* manyPoints = "[Normal]\nNumPoints=9999999\nPointList=";

// An animated cursor whose frames are all this picture.
ByteBuffer animation(const ByteBuffer& picture, std::size_t most)
{
    AniFile file;
    const std::size_t count = (most - 100) / (picture.size() + 8);
    file.frames.assign(count, picture);
    return file.bytes();
}

ByteBuffer onePixel()
{
    const BMPFile pixel{
        .bitCount = 1, .palette = {{1, 2, 3}, {4, 5, 6}},
             .pixels = ByteBuffer(4, 0)
    };
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

constexpr PNGHeader largestPNG{.width = width, .height = height};
constexpr PNGHeader deepestPNG{
    .width = width, .height = height, .depth = 16, .colorType = 6, .isInterlaced = true};

// A PNG of zeros, every row filtered in the way that takes longest.
ByteBuffer pngOfZeros(const PNGHeader& header)
{
    using Pass = std::pair<std::size_t, std::size_t>; // one in so many columns, and rows
    std::vector<Pass> passes{
        {1, 1}
    };
    if (header.isInterlaced)
        passes = {
            {8, 8},
            {8, 8},
            {4, 8},
            {4, 4},
            {2, 4},
            {2, 2},
            {1, 2}
        };
    ByteBuffer rows;
    for (const auto& [columns, lines] : passes)
        for (std::size_t y = 0; y < header.height / lines; ++y) {
            rows.push_back(4);
            rows.resize(rows.size() + header.width / columns * header.depth / 2, 0);
        }
    return pngFile(header, pngChunk("IDAT", zlibStream(rows)));
}

// A picture of one pixel with as many copies of a chunk before its pixels as fit.
ByteBuffer pngFullOf(ByteView chunk)
{
    ByteBuffer chunks;
    while (chunks.size() + chunk.size() + 1000 < largestEntry)
        append(chunks, chunk);
    append(chunks, pngChunk("IDAT", zlibStream(ByteBuffer(5, 0))));
    return pngFile({}, chunks);
}

// A keyword, the method, and a mebibyte of zeros many times over.
ByteBuffer compressedText()
{
    ByteBuffer content = bytes("Comment");
    append(content, ByteBuffer{0, 0});
    append(content, zlibFramed(deflatedZeros(64)));
    return pngChunk("zTXt", content);
}

struct HostileFile {
    std::string_view name; // letters and digits
    std::string_view what;
    // Makes the file or folder that is then opened.
    void (*make)(const path& path);

    friend std::ostream& operator<<(std::ostream& stream, const HostileFile& file)
    {
        return stream << file.what;
    }
};

// clang-format off
constexpr HostileFile files[] = {
    // Archives and folders.
    {"LyingBombs", "65,535 entries that share one stream of 1 GiB and say 1,000 bytes",
     [](const path& file) { writeSharing(file, deflatedZeros(1024), 1000); }},
    {"LargestEntries", "65,535 entries that share one stream of 8 MiB",
     [](const path& file) { writeSharing(file, deflatedZeros(8), largestEntry); }},
    {"EmptyBlocks", "65,535 entries that share 8 MiB of deflated nothing and say 8 MiB",
     [](const path& file) { writeSharing(file, deflatedNothing(largestEntry - 99), 8 << 20); }},
    {"SmallEmptyBlocks", "the same of 64 KiB, saying 0 bytes",
     [](const path& file) { writeSharing(file, deflatedNothing(mebibyte / 16), 0); }},
    {"MaxEntries", "65,535 entries with names of 200 bytes, six times as long in UTF-8",
     [](const path& file) { writeDirectory(file, 65'535, 200); }},
    {"MillionEntries", "1,000,000 entries",
     [](const path& file) { writeDirectory(file, 1'000'000, 0); }},
    {"FalseEnds", "a comment full of false ends, behind 8 MiB of nothing", [](const path& file) {
        ByteBuffer archive(largestEntry, 0);
        append(archive, ZipWriter().add("a.txt", {}).bytes());
        archive.resize(archive.size() - 4);
        append(archive, bytes(repeated("PK\x05\x06", {}, 65'530)));
        write(file, archive);
    }},
    {"SparseFront", "2 GiB of nothing, then a skin", [](const path& file) {
        makeSparse(file, std::uintmax_t{2} << 30);
        write(file, SkinBuilder().allSheets().zip(), std::ios::app);
    }},
    {"FolderOfLargestFiles", "1,000 files of 8 MiB of nothing", [](const path& file) {
        writeFolder(file, 1000, largestEntry);
    }},
    {"FolderOfManyFiles", "70,000 files", [](const path& file) { writeFolder(file, 70'000, 0); }},

    // Pictures.
    {"SheetsRLEPixels", "sixteen sheets of 4096 x 2048, RLE8, every pixel a run, up to 8 MiB",
     [](const path& file) {
        BMPFile sheet{.width = width, .height = height, .bitCount = 8, .compression = 1};
        sheet.palette.assign(256, {1, 2, 3});
        for (int i = 0; i < 1000; ++i) {
            for (int x = 0; x < width; ++x)
                append(sheet.pixels, ByteBuffer{1, 7});
            append(sheet.pixels, ByteBuffer{0, 0});
        }
        append(sheet.pixels, ByteBuffer{0, 1});
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"Sheets4Bit", "sixteen sheets of 4096 x 2048, 4-bit", [](const path& file) {
        BMPFile sheet{.width = width, .height = height, .bitCount = 4};
        sheet.palette.assign(16, {1, 2, 3});
        sheet.pixels.resize(std::size_t{width} / 2 * height, 0);
        writeSheets(file, "bmp", sheet.bytes());
    }},
    {"SheetsPNG", "the same, PNG with alpha",
     [](const path& file) { writeSheets(file, "png", pngOfZeros(largestPNG)); }},
    {"SheetsDeepPNG", "the same, 16-bit and interlaced",
     [](const path& file) { writeSheets(file, "png", pngOfZeros(deepestPNG)); }},
    {"PNGTexts", "sixteen PNGs full of compressed texts of 64 MiB each",
     [](const path& file) { writeSheets(file, "png", pngFullOf(compressedText())); }},
    {"PNGManyChunks", "sixteen PNGs of 600,000 empty chunks",
     [](const path& file) { writeSheets(file, "png", pngFullOf(pngChunk("teSt", {}))); }},
    {"PNGBehindPixels", "sixteen PNGs of one pixel and 4 GiB behind it", [](const path& file) {
        writeSheets(file, "png", pngFile({}, pngChunk("IDAT", zlibFramed(deflatedZeros(4096)))));
    }},
    {"PNGEmptyBlocks", "eight PNGs of 4096 x 2048 that are 8 MiB of deflated nothing",
     [](const path& file) {
        const auto pixels = zlibFramed(deflatedNothing(largestEntry - 1000));
        writeSheets(file, "png", pngFile(deepestPNG, pngChunk("IDAT", pixels)), asIs);
    }},

    // Texts and cursors.
    {"TextKeys", "a playlist style of a million keys",
     [](const path& file) { writeText(file, "pledit.txt", repeated("{}=\n", "[Text]\n")); }},
    {"TextNotUTF8", "a playlist style of 8 MiB that is no text",
     [](const path& file) { writeText(file, "pledit.txt", repeated("\xFF", "[Text]\nNormal=")); }},
    {"RegionFarAway", "a million points at the ends of the numbers", [](const path& file) {
        writeText(file, "region.txt", repeated("-9223372036854775808 -9223372036854775808 "
                                               "9223372036854775807 9223372036854775807 ",
                                               manyPoints));
    }},
    {"CursorsOfCursors", "24 animations whose frames are 65,535 times the same pixel",
     [](const path& file) {
        writeWithSheet(file, cursorNames(), animation(sharingCursor(onePixel()), 5 * mebibyte / 2));
    }},
    {"CursorsLargest", "24 cursors of 65,535 times the same 256 x 256 pixels",
     [](const path& file) {
        BMPFile sheet{.width = 256, .height = 256, .bitCount = 24};
        sheet.pixels.resize(256UZ * 256 * 3, 0);
        writeWithSheet(file, cursorNames(), sharingCursor(cursorPicture(sheet.bytes())));
    }},
    {"CursorSteps", "24 cursors of 600,000 steps each", [](const path& file) {
        AniFile cursor{.frames = {onePixel()}};
        cursor.sequence.assign(600'000, 0);
        writeWithSheet(file, cursorNames(), cursor.bytes());
    }},

    // Some of the worst together.
    {"Everything", "the largest sheets, a region, texts and cursors", [](const path& file) {
        ZipWriter zip;
        addAll(zip, sheetNames("bmp"), encodeRLE(solidImage({width, height}, {1, 2, 3}), 8));
        addAll(zip, cursorNames(), animation(onePixel(), mebibyte), asIs);
        addAll(zip, {"pledit.txt"}, bytes(repeated("{}=\n", "[Text]\n")), asIs);
        addAll(zip, {"viscolor.txt"}, bytes(repeated("x\n")), asIs);
        addAll(zip, {"region.txt"}, bytes(repeated("0 0 9 116 ", manyPoints)), asIs);
        write(file, zip.bytes());
    }},
};
// clang-format on

// In a process of its own, so that this one's memory stays as small as it was.
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

// A program, every form of it that opens a single skin, and what one file may cost it. Each file's
// largest cost of all forms is printed, and the result of the first.
struct Program {
    const char* path;
    std::vector<const char*> forms;
    double processorSeconds;
    double peakMiB;
};
const Program programs[] = {
    {SKINTOOL_PROGRAM,
     {"-v --state idle --png OUT SKIN", "--state webamp --scale 8 --png OUT SKIN",
      "info --json SKIN", "preview --out OUT SKIN", "windows --out OUT SKIN"},
     5,                                                                           640},
    {THUMBNAILER_PROGRAM, {"SKIN OUT", "-s 4096 SKIN OUT"},                    3, 256},
};

// The outcomes of the forms, up to the first that fails: the others load the skin alike.
std::vector<Outcome> tryForms(const Program& program, const std::filesystem::path& skin)
{
    const support::TemporaryFolder folder;
    std::vector<Outcome> outcomes;
    for (const char* const form : program.forms) {
        auto words = support::words(form);
        std::ranges::replace(words, "SKIN", skin.string());
        std::ranges::replace(words, "OUT", (folder / form).string());
        outcomes.push_back(support::run(program.path, words, {.maxProcessorSeconds = 20}));
        if (outcomes.back().status != 0)
            break;
    }
    return outcomes;
}

void printCells(const std::vector<Outcome>& outcomes, const std::string& skin)
{
    std::string line = outcomes[0].err.substr(0, outcomes[0].err.find('\n'));
    if (const auto place = line.find(skin + ": "); place != line.npos)
        line.erase(0, place + skin.size() + 2);
    if (outcomes[0].status == 0)
        line.insert(0, line.empty() ? "drawn" : "drawn; ");
    const auto most = [&](double Outcome::* cost) {
        return std::ranges::max(outcomes, {}, cost).*cost;
    };
    std::printf(" %s | %.2f | %.0f |", line.c_str(), most(&Outcome::processorSeconds),
                most(&Outcome::peakMiB));
}

void printTable()
{
    std::puts("| file | what it is | skintool | s | MiB | velmar-thumbnailer | s | MiB |\n"
              "|---|---|---|---:|---:|---|---:|---:|");
    for (const HostileFile& file : files) {
        const support::TemporaryFolder folder;
        make(file, folder / "skin");
        std::printf("| %s | %s |", file.name.data(), file.what.data());
        for (const Program& program : programs)
            printCells(tryForms(program, folder / "skin"), folder / "skin");
        std::puts("");
        std::fflush(stdout);
    }
}

class Hostile : public testing::TestWithParam<HostileFile> {};

}

TEST_P(Hostile, CostsNoMoreThanTheBounds)
{
    const support::TemporaryFolder folder;
    make(GetParam(), folder / "skin");
    for (const Program& program : programs)
        for (const Outcome& outcome : tryForms(program, folder / "skin")) {
            // It ends in order, either way, and says in a line what is wrong.
            EXPECT_TRUE(outcome.status == 0 ||
                        (outcome.status == 2 && std::ranges::count(outcome.err, '\n') == 1))
                << outcome;
            EXPECT_LT(outcome.processorSeconds, program.processorSeconds) << program.path;
            EXPECT_LT(outcome.peakMiB, program.peakMiB) << program.path;
        }
}

INSTANTIATE_TEST_SUITE_P(Files, Hostile, testing::ValuesIn(files),
                         [](const auto& row) { return std::string(row.param.name); });

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (argc < 2 || std::string_view(argv[1]) != "--print")
        return RUN_ALL_TESTS();
    printTable();
    return 0;
}
