#include "SkinKit/Archive/SkinArchive.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipWriter.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <random>

using namespace SkinKit;
using support::bytes;
using support::TemporaryFolder;
using support::ZipEntry;
using support::ZipWriter;

namespace {

using Names = std::vector<std::string>;

Names namesOf(const SkinArchive& archive)
{
    Names names;
    for (const auto& [name, content] : archive.files())
        names.push_back(name);
    return names;
}

SkinArchive opened(const ZipWriter& writer, const SkinArchive::Limits& limits = {})
{
    auto archive = SkinArchive::open(writer.bytes(), limits);
    EXPECT_TRUE(archive);
    return archive ? *archive : SkinArchive(SkinArchive::Table{});
}

std::optional<std::string> textOf(const SkinArchive& archive, std::string_view name)
{
    const auto found = archive.files().find(name);
    return found == archive.files().end() ? std::nullopt
                                          : std::optional(std::string(asText(found->second)));
}

ByteBuffer ofSize(std::size_t count)
{
    return ByteBuffer(count, 'x');
}

// One entry, and a file behind it that must come through whatever the entry is.
struct Lone {
    ZipEntry entry;
    bool isKept;
    bool isFolder = false;
};

// A small entry of a Unix system, of that mode.
ZipEntry ofMode(std::string name, std::uint32_t mode)
{
    return {.name = std::move(name),
            .data = bytes("x"),
            .madeBy = 3 << 8,
            .externalAttributes = mode << 16};
}

void expectKept(const Lone& lone, const SkinArchive::Limits& limits = {})
{
    ZipWriter writer;
    writer.add(lone.entry).add("after.txt", bytes("after"));
    const auto archive = opened(writer, limits);
    EXPECT_EQ(textOf(archive, "after.txt"), "after") << lone.entry.name;
    EXPECT_EQ(archive.files().size(), lone.isKept ? 2U : 1U) << lone.entry.name;
    EXPECT_EQ(archive.leftOutCount(), lone.isKept || lone.isFolder ? 0 : 1) << lone.entry.name;
}

}

TEST(SkinArchive, KeepsFilesUnderTheirLowerCasedNamesWithoutFolders)
{
    ZipWriter writer;
    writer.add("MySkin/Main.BMP", bytes("1"))
        .add("a/b/c/region.TXT", bytes("2"))
        .add("x\\y.txt", bytes("3")) // a backslash is no separator
        .add("ÄÖ.png", bytes("4"))
        .add("/abs.ini", bytes("5"))
        .add("many.dots.txt", bytes("6"))
        .add("empty.txt", {});
    EXPECT_EQ(namesOf(opened(writer)), (Names{"abs.ini", "empty.txt", "main.bmp", "many.dots.txt",
                                              "region.txt", "x\\y.txt", "äö.png"}));
}

TEST(SkinArchive, TakesTheFirstOfEachNameWhereverItLies)
{
    ZipWriter writer;
    writer.add("sub/MAIN.BMP", bytes("first")).add("main.bmp", bytes("second"));
    const auto archive = opened(writer);
    EXPECT_EQ(textOf(archive, "main.bmp"), "first");
    EXPECT_EQ(archive.entryCount(), 2);
    EXPECT_EQ(archive.leftOutCount(), 1);
    // Unless the first could not be read.
    ZipWriter damaged;
    damaged.add({.name = "main.bmp", .data = bytes("first"), .stored = bytes("no deflate stream")})
        .add("MAIN.bmp", bytes("second"));
    EXPECT_EQ(textOf(opened(damaged), "main.bmp"), "second");
}

TEST(SkinArchive, LeavesOutWhatItDoesNotRead)
{
    ByteBuffer cut = support::deflated(ofSize(100));
    cut.pop_back();
    // clang-format off
    const Lone rows[] = {
        {{.name = "readme", .data = bytes("x")},                                        false},
        {{.name = "skin.jpg", .data = bytes("x")},                                      false},
        {{.name = "main.bmp.exe", .data = bytes("x")},                                  false},
        {{.name = "folder.bmp/readme", .data = bytes("x")},                             false},
        {{.name = "main.", .data = bytes("x")},                                         false},
        {{.name = ".bmp", .data = bytes("x")},                                          true},
        {{.name = "a.cur", .data = bytes("x")},                                         true},
        {{.name = "a.Ani", .data = bytes("x")},                                         true},
        {{.name = "skin.xml", .data = bytes("x")},                                      true},
        // folders, by name and by attribute
        {{.name = "main.bmp/", .data = {}, .method = 0},                                false, true},
        {{.name = "main.bmp//", .data = {}, .method = 0},                               false, true},
        {{.name = "main.bmp", .data = bytes("x"), .externalAttributes = 0x10},          false, true},
        {{.name = "dos.bmp", .data = bytes("x"), .externalAttributes = 0x20},           true},
        {ofMode("d.bmp", 0040755),                                                      false, true},
        // links, by the mode of a system that has them
        {ofMode("l.bmp", 0120777),                                                      false},
        {ofMode("f.bmp", 0100644),                                                      true},
        {ofMode("n.bmp", 0644),                                                         true},
        // a checksum is never looked at
        {{.name = "deflated crc.bmp", .data = bytes("x"), .crc = 1},                    true},
        {{.name = "stored crc.bmp", .data = bytes("x"), .method = 0, .crc = 1},         true},
        // what can't be had
        {{.name = "locked.bmp", .data = bytes("x"), .flags = 1},                        false},
        {{.name = "other.bmp", .data = bytes("x"), .method = 12, .stored = bytes("x")}, false},
        {{.name = "damaged.bmp", .data = bytes("x"), .stored = bytes("\x07\x07")},      false},
        {{.name = "none.bmp", .data = bytes("x"), .stored = ByteBuffer{}},              false},
        {{.name = "cut.bmp", .data = ofSize(100), .stored = cut},                       false},
    };
    // clang-format on
    for (const auto& row : rows)
        expectKept(row);
}

TEST(SkinArchive, GivesTheRealBytesOfAnEntryWhoseSizeLies)
{
    ZipWriter writer;
    writer.add({.name = "a.txt", .data = bytes("larger than said"), .uncompressedSize = 3})
        .add({.name = "b.txt", .data = bytes("smaller"), .uncompressedSize = 8 << 20});
    const auto archive = opened(writer);
    EXPECT_EQ(textOf(archive, "a.txt"), "larger than said");
    EXPECT_EQ(textOf(archive, "b.txt"), "smaller");
}

TEST(SkinArchive, LimitsAnEntryToTheByteByItsDeclaredAndItsRealSize)
{
    const SkinArchive::Limits limits{.maxEntryBytes = 1000, .maxTotalBytes = 1 << 20};
    for (const std::uint16_t method : {std::uint16_t{0}, std::uint16_t{8}}) {
        const auto entry = [method](std::size_t size, std::optional<std::uint32_t> said) {
            return ZipEntry{
                .name = "a.bmp", .data = ofSize(size), .method = method, .uncompressedSize = said};
        };
        expectKept({entry(1000, {}), true}, limits);
        expectKept({entry(1001, {}), false}, limits);
        expectKept({entry(10, 1001), false}, limits);
        expectKept({entry(1001, 10), false}, limits);
    }
}

TEST(SkinArchive, DropsWhatWouldBurstTheTotalAndStopsOnlyWhenItIsReached)
{
    EXPECT_EQ(SkinArchive::Limits{}.maxTotalBytes, 67'108'864);
    const std::tuple<std::int64_t, std::vector<std::size_t>, Names> rows[] = {
        {100, {60, 40, 0},     {"0.bmp", "1.bmp"}                  }, // reached: even nothing is too much
        {101, {60, 40, 0, 1},  {"0.bmp", "1.bmp", "2.bmp", "3.bmp"}},
        {100, {60, 41, 40, 1}, {"0.bmp", "2.bmp"}                  },
        {0,   {0},             {}                                  },
    };
    for (const auto& [total, sizes, expected] : rows) {
        // What is not accepted does not count.
        ZipWriter writer;
        writer.add("big.jpg", ofSize(90))
            .add({.name = "damaged.bmp", .data = ofSize(90), .stored = bytes("\x07")});
        const TemporaryFolder folder;
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            writer.add(std::to_string(i) + ".bmp", ofSize(sizes[i]));
            folder.write(std::to_string(i) + ".bmp", ofSize(sizes[i]));
        }
        const SkinArchive::Limits limits{.maxEntryBytes = 100, .maxTotalBytes = total};
        EXPECT_EQ(namesOf(opened(writer, limits)), expected) << total;
        EXPECT_EQ(namesOf(*SkinArchive::open(folder.path(), limits)), expected) << total;
    }
}

TEST(SkinArchive, AllowsTheExtensionsItIsGiven)
{
    ZipWriter writer;
    writer.add("a.bmp", {}).add("B.JPG", {});
    EXPECT_EQ(namesOf(opened(writer, {.allowedExtensions = {"jpg"}})), Names{"b.jpg"});
    EXPECT_EQ(namesOf(opened(writer, {.allowedExtensions = {}})), Names{});
}

TEST(SkinArchive, FailsOnWhatIsNoArchive)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::pair<std::filesystem::path, std::string_view> rows[] = {
        {folder / "missing", "No such file or directory"},
        {folder.write("text", bytes("not an archive")), "Not a zip archive"},
        {folder / "pipe", "Not a regular file"},
        {"/dev/zero", "Not a regular file"},
    };
    for (const auto& [path, reason] : rows) {
        const auto archive = SkinArchive::open(path);
        ASSERT_FALSE(archive) << path;
        EXPECT_EQ(archive.error(), SkinError::unreadableArchive(std::string(reason))) << path;
    }
}

TEST(SkinArchive, ReadsAFolderInByteOrderOfItsNames)
{
    const TemporaryFolder folder;
    folder.write("MAIN.BMP", bytes("first"));
    folder.write("main.bmp", bytes("second"));
    folder.write("readme", bytes("x"));
    folder.write("caf\xE9.txt", bytes("latin")); // its name is not UTF-8
    std::filesystem::create_directory(folder / "sub.bmp");
    folder.write("sub.bmp/text.bmp", bytes("x"));
    std::filesystem::create_symlink("main.bmp", folder / "link.bmp");
    ASSERT_EQ(::mkfifo((folder / "pipe.bmp").c_str(), 0600), 0);

    const auto archive = SkinArchive::open(folder.path());
    ASSERT_TRUE(archive);
    EXPECT_EQ(namesOf(*archive), (Names{"caf\uFFFD.txt", "main.bmp"}));
    EXPECT_EQ(textOf(*archive, "main.bmp"), "first");
    EXPECT_EQ(textOf(*archive, "caf\uFFFD.txt"), "latin");
    EXPECT_EQ(archive->entryCount(), 7);
    EXPECT_EQ(archive->leftOutCount(), 4); // the folder is no file
}

TEST(SkinArchive, WrapsFilesThatSomebodyHas)
{
    const SkinArchive archive(SkinArchive::Table{
        {"MAIN.bmp",     bytes("first") },
        {"Sub/Text.JPG", bytes("x")     },
        {"main.BMP",     bytes("second")}
    });
    EXPECT_EQ(namesOf(archive), (Names{"main.bmp", "sub/text.jpg"}));
    EXPECT_EQ(textOf(archive, "main.bmp"), "first");
}

TEST(SkinArchive, FindsAFileByTheFirstExtensionThatIsThere)
{
    const SkinArchive archive(SkinArchive::Table{
        {"Main.png", bytes("png")},
        {"text.BMP", bytes("bmp")},
        {"text.png", bytes("png")}
    });
    const auto found = [&](std::string_view base,
                           std::initializer_list<std::string_view> extensions) {
        const auto file = archive.file(base, extensions);
        return file ? std::string(asText(*file)) : "";
    };
    EXPECT_EQ(found("MAIN", {"bmp", "png"}), "png");
    EXPECT_EQ(found("TEXT", {"BMP", "PNG"}), "bmp");
    EXPECT_EQ(found("text", {"png", "bmp"}), "png");
    EXPECT_EQ(found("text", {}), "");
    EXPECT_EQ(found("other", {"bmp"}), "");
    EXPECT_EQ(found("text.bmp", {"bmp"}), "");
}

TEST(SkinArchive, RejectsWhatTakesTooLong)
{
    // Each entry is one byte longer than it may be, which shows when all of it is decompressed.
    ZipWriter zip;
    const ByteBuffer stream = support::deflated(ByteBuffer((8 << 20) + 1, 0));
    for (int i = 0; i < 150; ++i)
        zip.add({.name = std::to_string(i) + ".bmp", .stored = stream, .uncompressedSize = 5});
    const auto archive =
        SkinArchive::open(zip.bytes(), {.maxProcessorTime = std::chrono::milliseconds(10)});
    ASSERT_FALSE(archive);
    EXPECT_EQ(archive.error().description(), "Unreadable archive: Takes too long to read");
}

TEST(SkinArchive, CountsTheFilesItCannotDecode)
{
    ZipWriter zip;
    zip.add({.name = "a.bmp", .data = bytes("x"), .flags = 1})
        .add({.name = "b.bmp", .data = {}, .method = 12, .stored = bytes("x")})
        .add({.name = "c.bmp", .data = {}, .method = 12, .stored = bytes("x")})
        .add({.name = "unwanted.jpg", .data = bytes("x"), .flags = 1});
    EXPECT_EQ(opened(zip).unreadable().encrypted, 1);
    EXPECT_EQ(opened(zip).unreadable().otherMethod, 2);
}
