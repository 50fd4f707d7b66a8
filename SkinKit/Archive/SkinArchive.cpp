#include "SkinKit/Archive/SkinArchive.h"

#include "SkinKit/Archive/ZipFile.h"
#include "SkinKit/Platform/Check.h"
#include "SkinKit/Platform/Files.h"
#include "SkinKit/Platform/Inflate.h"
#include "SkinKit/Platform/Unicode.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace SkinKit {
namespace {

// The part after the last slash, trailing slashes not counted. A backslash is no separator.
std::string_view lastPathComponent(std::string_view path)
{
    while (path.ends_with('/'))
        path.remove_suffix(1);
    const auto slash = path.rfind('/');
    return slash == path.npos ? path : path.substr(slash + 1);
}

// The part after the last dot; nothing without one.
std::optional<std::string_view> pathExtension(std::string_view name)
{
    const auto dot = name.rfind('.');
    if (dot == name.npos)
        return std::nullopt;
    return name.substr(dot + 1);
}

void checkLimits(const SkinArchive::Limits& limits)
{
    check(limits.maxEntryBytes >= 0 && limits.maxTotalBytes >= 0,
          "archive limits must not be negative");
}

std::unexpected<SkinError> unreadable(std::error_code error)
{
    return std::unexpected(SkinError::unreadableArchive(error.message()));
}

// The table while it is being filled: the rules that archives and folders share.
class Intake {
public:
    explicit Intake(const SkinArchive::Limits& limits) : limits_(limits) {}

    // Nothing more is to be read: the budget is spent, or too much work has come to nothing. Any
    // number of entries may share one damaged stream; no honest archive has a hundred such.
    bool isFull() const
    {
        return total_ >= limits_.maxTotalBytes || lost_ >= mostLost_ || padding_ >= mostPadding;
    }

    // The name under which a file would be kept, or nothing when it is not wanted: no name, a name
    // already taken, an extension that is not read, or too large by its own account.
    std::optional<std::string> wantedName(std::string_view path, std::int64_t declaredBytes) const
    {
        std::string name = Unicode::lowercased(lastPathComponent(path));
        if (name.empty() || files_.contains(name))
            return std::nullopt;
        const auto extension = pathExtension(name);
        if (!extension || !limits_.allowedExtensions.contains(*extension))
            return std::nullopt;
        if (declaredBytes > limits_.maxEntryBytes)
            return std::nullopt;
        return name;
    }

    // How large the next file may really be.
    std::int64_t room() const
    {
        return std::min(limits_.maxEntryBytes, limits_.maxTotalBytes - total_);
    }

    // Nothing to keep (it could not be had, or had no room) leaves the budget as it was.
    void keep(std::string name, std::optional<ByteBuffer> bytes)
    {
        if (!bytes)
            return;
        total_ += std::ssize(*bytes);
        files_.emplace(std::move(name), std::move(*bytes));
    }

    // How many blocks the next so many compressed bytes may spare, or null: the first ones are read
    // the fastest way, which serves all ordinary skins; where more follow, they might be there for
    // their cost.
    std::int64_t* spareBlocksFor(std::int64_t compressedBytes)
    {
        constexpr std::int64_t mostTrusted = 2 << 20;
        compressed_ += std::min(compressedBytes, mostTrusted + 1);
        return compressed_ > mostTrusted ? &spareBlocks_ : nullptr;
    }

    // What a kept file took in the container beyond its own size.
    void notePadding(std::int64_t bytes) { padding_ += std::max<std::int64_t>(0, bytes); }

    // So many compressed bytes were inflated within the room, for nothing.
    void noteLoss(std::int64_t compressedBytes)
    {
        const std::int64_t most = mostInflatedPerByte * std::min(compressedBytes, room());
        lost_ += std::min({room(), most, mostLost_ - lost_});
    }

    SkinArchive::Table takeFiles() { return std::move(files_); }

private:
    static constexpr std::int64_t mostTries = 128; // of the largest files
    static constexpr std::int64_t mostPadding = 4 << 20;

    const SkinArchive::Limits& limits_;
    // A gigabyte at the default limits.
    std::int64_t mostLost_ =
        mostTries *
        std::min(limits_.maxEntryBytes, std::numeric_limits<std::int64_t>::max() / mostTries);
    SkinArchive::Table files_;
    std::int64_t total_ = 0;
    std::int64_t lost_ = 0; // bytes of room offered to what could not be kept
    std::int64_t padding_ = 0;
    std::int64_t compressed_ = 0; // bytes inflated so far, as far as they matter
    std::int64_t spareBlocks_ = 8192;
};

// The decompressed bytes of an entry, or nothing when it cannot be extracted within `room`.
std::optional<ByteBuffer> extract(const ZipFile& zip, const ZipFile::Entry& entry, Intake& intake)
{
    const std::int64_t room = intake.room();
    if (entry.isEncrypted || entry.method == ZipFile::Method::other)
        return std::nullopt;
    ByteBuffer buffer;
    if (entry.method == ZipFile::Method::stored) {
        if (entry.compressedBytes > room)
            return std::nullopt;
        const auto bytes = zip.rawBytes(entry, buffer);
        return bytes ? std::optional(ByteBuffer(bytes->begin(), bytes->end())) : std::nullopt;
    }

    // Only padding with empty blocks makes deflated data more than a little longer than what comes
    // out of it; twice as long and some is where such padding is no longer believed.
    constexpr std::int64_t allowance = 65'536;
    if (entry.compressedBytes > allowance && (entry.compressedBytes - allowance) / 2 > room)
        return std::nullopt;
    const auto deflated = zip.rawBytes(entry, buffer);
    if (!deflated)
        return std::nullopt;
    auto inflated = inflate(*deflated, entry.uncompressedBytes, room,
                            intake.spareBlocksFor(entry.compressedBytes));
    if (inflated)
        intake.notePadding(entry.compressedBytes - std::ssize(*inflated));
    else
        intake.noteLoss(entry.compressedBytes);
    return inflated;
}

SkinArchive::Table readEntries(const ZipFile& zip, const SkinArchive::Limits& limits)
{
    Intake intake(limits);
    for (const auto& entry : zip.entries()) {
        if (!entry.isRegularFile)
            continue;
        if (intake.isFull())
            break;
        if (auto name = intake.wantedName(entry.path, entry.uncompressedBytes))
            intake.keep(std::move(*name), extract(zip, entry, intake));
    }
    return intake.takeFiles();
}

// What the folder's files are is their affair; but one that can't be read is no file that is
// missing.
Files::Result<SkinArchive::Table> readFolder(const std::filesystem::path& folder,
                                             const std::vector<Files::FolderEntry>& entries,
                                             const SkinArchive::Limits& limits)
{
    Intake intake(limits);
    for (const auto& entry : entries) {
        if (!entry.isRegularFile)
            continue;
        if (intake.isFull())
            break;
        const std::string readable = Unicode::repaired(asBytes(entry.name));
        if (auto name = intake.wantedName(readable, entry.size)) {
            auto bytes = Files::read(folder / entry.name, intake.room(), Files::Links::refused);
            if (!bytes && !Files::isForWhatItIs(bytes.error()))
                return std::unexpected(bytes.error());
            intake.keep(std::move(*name), bytes ? std::optional(std::move(*bytes)) : std::nullopt);
        }
    }
    return intake.takeFiles();
}

}

bool SkinArchive::isFileOfFolder(const std::filesystem::path& file,
                                 const std::filesystem::path& skin)
{
    std::error_code error;
    const auto target = std::filesystem::canonical(file, error);
    if (error || !std::filesystem::equivalent(target.parent_path(), skin, error))
        return false;
    const std::string name = Unicode::lowercased(target.filename().string());
    const auto extension = pathExtension(name);
    return extension && Limits().allowedExtensions.contains(*extension);
}

SkinArchive::SkinArchive(const Table& files) : entryCount_(std::ssize(files))
{
    for (const auto& [name, bytes] : files)
        files_.emplace(Unicode::lowercased(name), bytes);
}

std::expected<SkinArchive, SkinError> SkinArchive::open(const std::filesystem::path& path,
                                                        const Limits& limits)
{
    checkLimits(limits);
    const auto kind = Files::kind(path);
    if (!kind)
        return unreadable(kind.error());
    if (*kind == Files::Kind::folder) {
        const auto entries = Files::list(path, ZipFile::maxEntries);
        if (!entries && entries.error() == std::errc::file_too_large)
            return std::unexpected(SkinError::unreadableArchive("Folder of more than 65535 files"));
        if (!entries)
            return unreadable(entries.error());
        auto files = readFolder(path, *entries, limits);
        if (!files)
            return unreadable(files.error());
        SkinArchive archive;
        archive.entryCount_ = std::ssize(*entries);
        archive.files_ = std::move(*files);
        return archive;
    }

    return of(ZipFile::open(path), limits);
}

std::expected<SkinArchive, SkinError> SkinArchive::open(Files::InputFile file)
{
    return of(ZipFile::open(std::move(file)), Limits{});
}

std::expected<SkinArchive, SkinError> SkinArchive::open(ByteView bytes, const Limits& limits)
{
    checkLimits(limits);
    return of(ZipFile::open(bytes), limits);
}

std::expected<SkinArchive, SkinError>
SkinArchive::of(const std::expected<ZipFile, std::string>& zip, const Limits& limits)
{
    if (!zip)
        return std::unexpected(SkinError::unreadableArchive(zip.error()));
    SkinArchive archive;
    archive.entryCount_ = std::ssize(zip->entries());
    archive.files_ = readEntries(*zip, limits);
    // Damage leaves an entry out; but one that can't be read is no entry that is missing.
    if (zip->readError())
        return unreadable(zip->readError());
    return archive;
}

std::optional<ByteView> SkinArchive::file(std::string_view base,
                                          std::initializer_list<std::string_view> extensions) const
{
    const std::string stem = Unicode::lowercased(base) + ".";
    for (const auto extension : extensions) {
        const auto found = files_.find(stem + Unicode::lowercased(extension));
        if (found != files_.end())
            return ByteView(found->second);
    }
    return std::nullopt;
}

}
