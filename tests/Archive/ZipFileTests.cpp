#include "SkinKit/Archive/ZipFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipWriter.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <string>

using namespace SkinKit;
using support::append;
using support::append16;
using support::append32;
using support::bytes;
using support::put16;
using support::put32;
using support::TemporaryFolder;
using support::ZipWriter;

namespace {

// The entries' paths and stored bytes in one text: "a=1 b=?" where those of b can't be had.
std::string listing(const std::expected<ZipFile, std::string>& zip)
{
    if (!zip)
        return zip.error();
    std::string text;
    for (const auto& entry : zip->entries()) {
        ByteBuffer buffer;
        const auto raw = zip->rawBytes(entry, buffer);
        text.append(text.empty() ? "" : " ").append(entry.path()).append("=");
        text += raw ? asText(*raw) : "?";
    }
    return text;
}

std::string listing(const ByteBuffer& container)
{
    return listing(ZipFile::open(ByteView(container)));
}

// Two stored entries: headers at 0 and 32, the directory at 64, its second entry at 111, the end at
// 158.
ByteBuffer twoEntries()
{
    const ByteBuffer container = ZipWriter{}
                                     .add({.name = "a", .data = bytes("1"), .method = 0})
                                     .add({.name = "b", .data = bytes("2"), .method = 0})
                                     .bytes();
    EXPECT_EQ(container.size(), 180U);
    return container;
}
constexpr std::size_t secondHeader = 32, directory = 64, secondEntry = 111, end = 158;

ByteBuffer joined(ByteView first, ByteView second)
{
    ByteBuffer whole(first.begin(), first.end());
    append(whole, second);
    return whole;
}

// The same with every number of the directory and its end in 64 bits.
ByteBuffer withLargeNumbers()
{
    return ZipWriter{}
        .add({.name = "a", .data = bytes("1"), .method = 0, .hasLargeNumbers = true})
        .add({.name = "b", .data = bytes("2"), .method = 0, .hasLargeNumbers = true})
        .bytesWithLargeEnd();
}

}

TEST(ZipFile, TellsOfEachEntryWhatTheDirectorySays)
{
    ZipWriter writer;
    writer
        .add({.name = "sub/a.bmp",
              .data = bytes("12345"),
              .flags = 1,
              .stored = bytes("abc"),
              .uncompressedSize = 4'000'000'000})
        .add({.name = "b", .data = bytes("2"), .method = 0})
        .add({.name = "c/", .method = 99});
    const ByteBuffer container = writer.bytes();
    const auto zip = ZipFile::open(ByteView(container));
    ASSERT_TRUE(zip);
    ASSERT_EQ(zip->entries().size(), 3U);
    const auto& a = zip->entries()[0];
    const auto& b = zip->entries()[1];
    const auto& c = zip->entries()[2];
    EXPECT_EQ(a.path(), "sub/a.bmp");
    EXPECT_EQ(a.uncompressedBytes, 4'000'000'000);
    EXPECT_EQ(a.compressedBytes, 3);
    EXPECT_TRUE(a.isEncrypted && a.isRegularFile && a.method == ZipFile::Method::deflated);
    EXPECT_TRUE(!b.isEncrypted && b.isRegularFile && b.method == ZipFile::Method::stored);
    EXPECT_TRUE(!c.isRegularFile && c.method == ZipFile::Method::other);
}

TEST(ZipFile, ReadsNamesAsUTF8OrElseAsCodePage437)
{
    const std::pair<std::string, std::string> rows[] = {
        {"Main.bmp", "Main.bmp"},
        {"\u00C4.bmp", "\u00C4.bmp"},
        {"\x8E\x81\xFF.bmp", "\u00C4\u00FC\u00A0.bmp"}, // no UTF-8
        {"a\x1B[2J\x07", "a\u2190[2J\u2022"}, // nothing that a terminal would obey
        {std::string("a\0b", 3), "a b"},
    };
    for (const auto& [name, expected] : rows)
        for (const std::uint16_t flags :
             {std::uint16_t{0}, std::uint16_t{0x800}}) { // the flag promises UTF-8
            const ByteBuffer container = ZipWriter{}.add({.name = name, .flags = flags}).bytes();
            const auto zip = ZipFile::open(ByteView(container));
            ASSERT_TRUE(zip);
            EXPECT_EQ(zip->entries().at(0).path(), expected);
        }
}

TEST(ZipFile, ReadsAContainerWithOtherBytesAroundIt)
{
    const ByteBuffer whole = twoEntries();
    const ByteBuffer junk(100, 'x');
    EXPECT_EQ(listing(whole), "a=1 b=2");
    EXPECT_EQ(listing(joined(junk, whole)), "a=1 b=2");
    EXPECT_EQ(listing(joined(whole, junk)), "a=1 b=2");
    EXPECT_EQ(listing(joined(whole, ByteBuffer(65'535, 'x'))), "a=1 b=2");
    EXPECT_EQ(listing(joined(whole, ByteBuffer(65'536, 'x'))),
              "Truncated zip archive: no directory at its end");
    EXPECT_EQ(listing(joined(whole, bytes("PK\x05\x06 no end, a comment that looks like one"))),
              "a=1 b=2");
    ByteBuffer gap = whole; // between directory and end
    gap.insert(gap.begin() + end, 10, 'x');
    EXPECT_EQ(listing(gap), "a=1 b=2");
    EXPECT_EQ(listing(joined(joined(junk, withLargeNumbers()), junk)), "a=1 b=2");
}

TEST(ZipFile, ReadsNumbersOf64Bits)
{
    EXPECT_EQ(listing(withLargeNumbers()), "a=1 b=2");
    // Sizes far too large for sums, too.
    for (const std::uint32_t upperHalf : {1U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        ByteBuffer container = withLargeNumbers();
        put32(container, directory + 46 + 1 + 4 + 8 + 4, upperHalf);
        EXPECT_EQ(listing(container), "a=? b=2");
    }
}

TEST(ZipFile, BelievesTheDirectoryRatherThanTheEntriesOwnHeaders)
{
    // Everything but the lengths of name and extra field.
    ByteBuffer container = twoEntries();
    for (std::size_t i = secondHeader; i < secondHeader + 26; ++i)
        container[i] = 0xEE;
    EXPECT_EQ(listing(container), "a=1 b=2");
}

TEST(ZipFile, GivesWhatADamagedContainerStillHas)
{
    const std::tuple<std::size_t, std::uint32_t, std::string> rows[] = {
        {0 + 28,           0xFFFF,     "a=? b=2"}, // extra field's length: beyond the end
        {directory + 20,   0xFFFFFFF0, "a=? b=2"}, // compressed size
        {directory + 42,   0xFFFFFFF0, "a=? b=2"}, // offset
        {secondEntry,      0,          "a=1"    }, // signature
        {secondEntry + 28, 0x00000064, "a=1"    }, // name's length
        {secondEntry + 28, 0x00640001, "a=1"    }, // extra field's
        {secondEntry + 32, 0x00000064, "a=1 b=2"}, // comment's
        {end + 8,          0x00070000, "a=1 b=2"}, // number of entries
        {end + 12,         7,          "a=1 b=2"}, // the directory's size: its place is right
        {end + 16,         0x7FFFFFFF, "a=? b=?"}, // its place: offsets are taken to be off, too
    };
    for (const auto& [place, value, expected] : rows) {
        ByteBuffer container = twoEntries();
        put32(container, place, value);
        EXPECT_EQ(listing(container), expected) << place;
    }
}

TEST(ZipFile, SaysWhyItRefuses)
{
    const ByteBuffer whole = twoEntries();
    EXPECT_EQ(listing(ZipWriter{}.bytes()), ""); // no entries are no reason
    EXPECT_EQ(listing(bytes("PK\x05\x06")), "Not a zip archive");
    EXPECT_EQ(listing(ByteBuffer(whole.begin(), whole.end() - 1)),
              "Truncated zip archive: no directory at its end");
    EXPECT_EQ(listing(ByteBuffer{}), "Empty file");
    EXPECT_EQ(listing(bytes("Rar!\x1A\x07\x01")), "A RAR archive, not a zip archive");
    ByteBuffer lost = whole;
    put32(lost, directory, 0);
    EXPECT_EQ(listing(lost), "Zip archive without its directory");
    for (const std::size_t disk : {4U, 6U}) {
        ByteBuffer split = whole;
        put16(split, end + disk, 1);
        EXPECT_EQ(listing(split), "Part of a zip archive that was split");
    }
}

TEST(ZipFile, RefusesMoreEntriesThanAnyArchiveHasUse)
{
    // The claim alone costs nothing and counts for nothing.
    ByteBuffer container = twoEntries();
    put32(container, end + 8, 0xFFFFFFFF);
    EXPECT_EQ(listing(container), "a=1 b=2");

    const auto withEntries = [](std::size_t count, std::size_t commentBytes) {
        ByteBuffer file;
        const ByteBuffer comment(commentBytes, '.');
        ByteBuffer entry = bytes("PK\x01\x02");
        entry.resize(46);
        std::fill(entry.begin() + 4, entry.end(), std::uint8_t{0});
        put16(entry, 32, static_cast<std::uint32_t>(commentBytes));
        append(entry, comment);
        for (std::size_t i = 0; i < count; ++i)
            append(file, entry);
        const auto size = static_cast<std::uint32_t>(file.size());
        append(file, bytes("PK\x05\x06"));
        append32(file, 0);
        append32(file, static_cast<std::uint32_t>(count << 16 | count));
        append32(file, size);
        append32(file, 0);
        append16(file, 0);
        return file;
    };
    const auto most = ZipFile::open(withEntries(ZipFile::maxEntries, 0));
    ASSERT_TRUE(most);
    EXPECT_EQ(most->entries().size(), ZipFile::maxEntries);
    EXPECT_EQ(listing(withEntries(ZipFile::maxEntries + 1, 0)),
              "Zip archive of more than 65535 entries");
    EXPECT_EQ(listing(withEntries(300, 60'000)), "The zip archive's directory is too large");
}

TEST(ZipFile, ReadsALargeFileWhereItIsAsked)
{
    const TemporaryFolder folder;
    const ByteBuffer padding(5 << 20, 'x'); // more than is read in whole
    for (const ByteBuffer& archive : {twoEntries(), withLargeNumbers()})
        EXPECT_EQ(listing(ZipFile::open(folder.write("a.wsz", joined(padding, archive)))),
                  "a=1 b=2");
    EXPECT_EQ(listing(ZipFile::open(folder.write("b.wsz", padding))), "Not a zip archive");

    const auto path = folder.write("c.wsz", joined(padding, twoEntries()));
    const auto zip = ZipFile::open(path);
    ASSERT_TRUE(zip);
    std::filesystem::resize_file(path, 10); // while it is open
    EXPECT_EQ(listing(zip), "a=? b=?");
}
