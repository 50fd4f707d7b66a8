#include "SkinKit/Archive/ZipFile.h"

#include "SkinKit/Base/ByteReader.h"
#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string_view>
#include <utility>

// Read here and not by a library: the packaged libzip exists only as a shared library that loads a
// crypto library with it (0.6 ms of every start) and rejects a whole archive for one damaged entry;
// minizip rejects entries whose own header contradicts the directory. Real skins have both.
//
// A container, whose last record states where to start:
//
//     entries      each a header of 30 bytes, its name, an extra field, its bytes
//     directory    for each entry 46 bytes, its name, an extra field, a comment
//     large end    56 bytes, only where a number of the end needs 64 bits ...
//     locator      ... and 20 bytes that give their offset
//     end          22 bytes: the directory's size and place; a comment
//
// Places count from the archive's first byte, which need not be the container's. All numbers are
// little-endian.
namespace SkinKit {
namespace {

using Entry = ZipFile::Entry;
using namespace std::string_view_literals;

// Up to here a container is read in one go, which is faster than a read for each entry; a larger
// one holds mostly what no skin needs, and is read where asked.
constexpr std::int64_t readWholeBytes = 4 << 20;
constexpr std::int64_t maxDirectoryBytes = 16 << 20;

constexpr auto entrySignature = "PK\x01\x02"sv;
constexpr auto endSignature = "PK\x05\x06"sv;
constexpr auto largeEndSignature = "PK\x06\x06"sv;
constexpr auto locatorSignature = "PK\x06\x07"sv;

constexpr std::int64_t headerBytes = 30;
constexpr std::int64_t directoryEntryBytes = 46;
constexpr std::int64_t largeEndBytes = 56;
constexpr std::int64_t locatorBytes = 20;
constexpr std::int64_t endBytes = 22;
constexpr std::int64_t maxCommentBytes = 65'535;

// A number of `width` bytes. One of 64 bits stops where sums of a few could overflow, far beyond
// any container.
std::int64_t field(ByteView record, std::size_t offset, std::size_t width)
{
    constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max() / 4;
    std::uint64_t value = 0;
    for (std::size_t i = width; i-- > 0;)
        value = value << 8 | record[offset + i];
    return static_cast<std::int64_t>(std::min(value, most));
}

// `count` bytes that begin with `signature`, or nothing.
std::optional<ByteView> readRecord(const ByteSource& source, std::int64_t offset,
                                   std::int64_t count, std::string_view signature,
                                   ByteBuffer& buffer)
{
    const auto record = source.read(offset, count, buffer);
    return record && asText(*record).starts_with(signature) ? record : std::nullopt;
}

// What the end says of the directory.
struct End {
    std::int64_t place = 0; // its own
    std::int64_t entries = 0;
    std::int64_t directoryBytes = 0;
    std::int64_t directoryOffset = 0;
};

struct Directory {
    std::int64_t start = 0;
    std::int64_t end = 0;    // at the latest
    std::int64_t before = 0; // bytes before the archive
};

// The large end that stands before the end at `place`, if there is one.
std::optional<End> readLargeEnd(const ByteSource& source, std::int64_t place)
{
    ByteBuffer buffer;
    const std::int64_t locatorPlace = place - locatorBytes;
    const auto locator = readRecord(source, locatorPlace, locatorBytes, locatorSignature, buffer);
    if (!locator)
        return std::nullopt;
    const std::int64_t stated = field(*locator, 8, 8);
    for (const std::int64_t offset : {stated, locatorPlace - largeEndBytes})
        if (const auto end = readRecord(source, offset, largeEndBytes, largeEndSignature, buffer))
            return End{offset, field(*end, 32, 8), field(*end, 40, 8), field(*end, 48, 8)};
    return std::nullopt;
}

// The directory stands where the end says; where it doesn't, something else stands before the
// archive, and the directory right before the end.
std::optional<Directory> findDirectory(const ByteSource& source, const End& end)
{
    ByteBuffer buffer;
    for (const std::int64_t start : {end.directoryOffset, end.place - end.directoryBytes})
        if (start < end.place &&
            readRecord(source, start, directoryEntryBytes, entrySignature, buffer))
            return Directory{start, end.place, start - end.directoryOffset};
    if (end.entries == 0 && end.directoryBytes == 0)
        return Directory{end.place, end.place, 0};
    return std::nullopt;
}

// `record` begins with an end's signature and stands at `place`.
std::expected<Directory, std::string> readEnd(const ByteSource& source, ByteView record,
                                              std::int64_t place)
{
    const auto largeEnd = readLargeEnd(source, place);
    if (!largeEnd && (field(record, 4, 2) != 0 || field(record, 6, 2) != 0)) // numbers of disks
        return std::unexpected("Part of a zip archive that was split");
    const End end{place, field(record, 10, 2), field(record, 12, 4), field(record, 16, 4)};
    const auto directory = findDirectory(source, largeEnd.value_or(end));
    if (!directory)
        return std::unexpected("Zip archive without its directory");
    return *directory;
}

// What a file without a directory seems to be instead.
std::string describeOther(const ByteSource& source)
{
    struct Kind {
        std::string_view start;
        const char* description;
    };
    // clang-format off
    static constexpr Kind kinds[] = {
        {"PK\x03\x04"sv,       "Truncated zip archive: no directory at its end"},
        {"PK\x07\x08"sv,       "Truncated zip archive: no directory at its end"},
        {"PK00"sv,             "Truncated zip archive: no directory at its end"},
        {"Rar!\x1A\x07"sv,     "A RAR archive, not a zip archive"},
        {"7z\xBC\xAF\x27\x1C"sv, "A 7z archive, not a zip archive"},
        {"\x1F\x8B"sv,         "A gzip file, not a zip archive"},
        {"\xFF\xD8\xFF"sv,     "A JPEG image, not a zip archive"},
        {"\x89PNG"sv,          "A PNG image, not a zip archive"},
        {"GIF8"sv,             "A GIF image, not a zip archive"},
        {"BM"sv,               "A BMP image, not a zip archive"},
        {"<"sv,                "An HTML or XML page, not a zip archive"},
    };
    // clang-format on
    if (source.size() == 0)
        return "Empty file";
    ByteBuffer buffer;
    for (const Kind& kind : kinds)
        if (readRecord(source, 0, std::ssize(kind.start), kind.start, buffer))
            return kind.description;
    return "Not a zip archive";
}

std::expected<Directory, std::string> findDirectory(const ByteSource& source)
{
    ByteBuffer buffer;
    const std::int64_t tailBytes = std::min(source.size(), endBytes + maxCommentBytes);
    const std::int64_t tailStart = source.size() - tailBytes;
    const auto tail = source.read(tailStart, tailBytes, buffer);
    std::expected<Directory, std::string> result = std::unexpected(describeOther(source));
    if (!tail || tailBytes < endBytes)
        return result;

    // From behind, since compressed bytes may happen to look like an end; on past those that lead
    // nowhere, since the comment may, too.
    const std::string_view text = asText(*tail);
    std::size_t last = text.size() - static_cast<std::size_t>(endBytes);
    while (true) {
        const auto found = text.rfind(endSignature, last);
        if (found == text.npos)
            return result;
        result =
            readEnd(source, tail->subspan(found), tailStart + static_cast<std::int64_t>(found));
        if (result || found == 0)
            return result;
        last = found - 1;
    }
}

// The attributes' upper half holds the Unix mode, where the entry was made on a system that has
// one.
void readType(Entry& entry, std::int64_t madeBy, std::int64_t attributes)
{
    constexpr std::int64_t dos = 0, unixes = 3, macOS = 19;
    constexpr std::int64_t dosFolder = 0x10;
    constexpr std::int64_t typeMask = 0170000, regular = 0100000, folder = 0040000;
    const std::int64_t system = madeBy >> 8;
    const bool hasMode = system == unixes || system == macOS;
    const std::int64_t type = hasMode ? attributes >> 16 & typeMask : 0;
    entry.isFolder = asText(entry.name).ends_with('/') || type == folder ||
                     (system == dos && (attributes & dosFolder) != 0);
    entry.isRegularFile = !entry.isFolder && (type == 0 || type == regular);
}

ZipFile::Method methodOf(std::int64_t number)
{
    switch (number) {
    case 0: return ZipFile::Method::stored;
    case 8: return ZipFile::Method::deflated;
    default: return ZipFile::Method::other;
    }
}

// Numbers that 32 bits can't hold stand in an extra field, only those and in this order.
void readLargeNumbers(ByteView extra, std::initializer_list<std::int64_t*> numbers)
{
    constexpr std::int64_t inExtra = 0xFFFFFFFF;
    constexpr std::uint16_t largeNumbers = 1;
    ByteReader fields(extra);
    while (true) {
        const auto kind = fields.u16();
        const auto size = fields.u16();
        const auto content = fields.bytes(size.value_or(0));
        if (!size || !content)
            return;
        if (kind != largeNumbers)
            continue;
        ByteReader values(*content);
        for (std::int64_t* const number : numbers)
            if (*number == inExtra)
                if (const auto value = values.bytes(8))
                    *number = field(*value, 0, 8);
        return;
    }
}

// The next entry of the directory, or nothing where it ends or is damaged.
std::optional<Entry> readEntry(ByteReader& directory, std::int64_t bytesBefore)
{
    const auto fixed = directory.bytes(directoryEntryBytes);
    if (!fixed || !asText(*fixed).starts_with(entrySignature))
        return std::nullopt;
    const auto name = directory.bytes(field(*fixed, 28, 2));
    const auto extra = directory.bytes(field(*fixed, 30, 2));
    if (!name || !extra)
        return std::nullopt;
    directory.bytes(std::min(directory.remaining(), field(*fixed, 32, 2))); // the comment

    constexpr std::int64_t encrypted = 1;
    Entry entry;
    entry.name = *name;
    readType(entry, field(*fixed, 4, 2), field(*fixed, 38, 4));
    entry.uncompressedBytes = field(*fixed, 24, 4);
    entry.compressedBytes = field(*fixed, 20, 4);
    entry.method = methodOf(field(*fixed, 10, 2));
    entry.isEncrypted = (field(*fixed, 8, 2) & encrypted) != 0;
    entry.offset = field(*fixed, 42, 4);
    readLargeNumbers(*extra, {&entry.uncompressedBytes, &entry.compressedBytes, &entry.offset});
    entry.offset += bytesBefore;
    return entry;
}

}

// DOS has a sign for each control character, so that no name holds one that a terminal would obey.
std::string ZipFile::Entry::path() const
{
    const bool hasControl = std::ranges::any_of(name, [](std::uint8_t byte) { return byte < ' '; });
    if (!hasControl)
        if (auto text = Unicode::fromUTF8(name))
            return std::move(*text);
    return Unicode::fromCodePage437(name);
}

std::expected<ZipFile, std::string> ZipFile::open(const std::filesystem::path& path)
{
    auto file = Files::InputFile::open(path, Files::Links::followed);
    if (!file)
        return std::unexpected(file.error() == std::errc::not_supported ? "Not a regular file"
                                                                        : file.error().message());
    return open(std::move(*file));
}

std::expected<ZipFile, std::string> ZipFile::open(Files::InputFile file)
{
    if (file.size() > readWholeBytes)
        return open(ByteSource(std::move(file)));
    auto bytes = file.read(readWholeBytes);
    if (!bytes)
        return std::unexpected(bytes.error().message());
    return open(ByteSource(std::move(*bytes)));
}

std::expected<ZipFile, std::string> ZipFile::open(ByteView bytes)
{
    return open(ByteSource(bytes));
}

std::expected<ZipFile, std::string> ZipFile::open(ByteSource source)
{
    ZipFile zip(std::move(source));
    const auto error = zip.readDirectory();
    if (zip.readError())
        return std::unexpected(zip.readError().message());
    if (error)
        return std::unexpected(*error);
    return zip;
}

std::optional<std::string> ZipFile::readDirectory()
{
    const auto place = findDirectory(source_);
    if (!place)
        return place.error();
    const std::int64_t size = place->end - place->start;
    if (size > maxDirectoryBytes)
        return "The zip archive's directory is too large";
    const auto directory = source_.read(place->start, size, directory_);
    if (!directory)
        return "Zip archive without its directory";

    ByteReader reader(*directory);
    while (const auto entry = readEntry(reader, place->before)) {
        if (std::ssize(entries_) == maxEntries)
            return "Zip archive of more than 65535 entries";
        entries_.push_back(*entry);
    }
    return std::nullopt;
}

std::optional<ByteView> ZipFile::rawBytes(const Entry& entry, ByteBuffer& buffer) const
{
    // Of the entry's own header only what tells where its bytes begin is believed: the directory
    // has the rest, and writers that could not go back left it unset here.
    const auto header = source_.read(entry.offset, headerBytes, buffer);
    if (!header)
        return std::nullopt;
    const std::int64_t before = headerBytes + field(*header, 26, 2) + field(*header, 28, 2);
    return source_.read(entry.offset + before, entry.compressedBytes, buffer);
}

}
