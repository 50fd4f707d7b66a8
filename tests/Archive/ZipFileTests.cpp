#include "SkinKit/Archive/ZipFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipWriter.h"

#include <gtest/gtest.h>

#include <string>

using namespace SkinKit;
using support::append;
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

TEST(ZipFile, GivesWhatADamagedContainerStillHas)
{
    const std::tuple<std::size_t, std::uint32_t, std::string> rows[] = {
        {secondHeader + 8, 0xEEEEEEEE, "a=1 b=2"}, // method and time in the entry's own header
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

TEST(ZipFile, LimitsTheEntriesAndTheDirectory)
{
    const auto withEntries = [](std::int64_t count, std::size_t nameBytes) {
        ZipWriter zip;
        for (; count > 0; --count)
            zip.add({.name = std::string(nameBytes, 'a'), .method = 0});
        return zip.bytes();
    };
    const ByteBuffer most = withEntries(ZipFile::maxEntries, 1);
    EXPECT_EQ(ZipFile::open(ByteView(most))->entries().size(), ZipFile::maxEntries);
    EXPECT_EQ(listing(withEntries(ZipFile::maxEntries + 1, 1)),
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
