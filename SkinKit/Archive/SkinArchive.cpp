#include "SkinKit/Archive/SkinArchive.h"

#include "SkinKit/Archive/Inflate.h"
#include "SkinKit/Archive/ZipFile.h"
#include "SkinKit/Base/Check.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/System/Folder.h"
#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/Process.h"

#include <algorithm>
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
    check(limits.maxEntryBytes >= 0 && limits.maxTotalBytes >= 0 &&
              limits.maxProcessorTime.count() >= 0,
          "archive limits must not be negative");
}

std::unexpected<SkinError> unreadableFor(std::error_code error)
{
    return std::unexpected(SkinError::unreadableArchive(error.message()));
}

}

// An archive while it is being filled: the rules that ZIP files and folders share.
class SkinArchive::Intake {
public:
    explicit Intake(const SkinArchive::Limits& limits)
        : limits_(limits), meter_(Process::threadTime, limits.maxProcessorTime)
    {
    }

    // Whether a file of so many bytes is to be looked at: false when the budget is spent.
    bool goesOnAfter(std::int64_t bytes)
    {
        return meter_.hasTimeAfter(bytes) && total_ < limits_.maxTotalBytes;
    }

    // The name under which a file would be kept, or nothing when it is not wanted: no name, a name
    // already taken, an extension that is not read, or too large by its own account.
    std::optional<std::string> wantedName(std::string_view path, std::int64_t declaredBytes) const
    {
        std::string name = Unicode::lowercased(lastPathComponent(path));
        if (name.empty() || archive_.files_.contains(name))
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

    // The entry's bytes, or nothing when they can't be decompressed or find no room.
    std::optional<ByteBuffer> extract(const ZipFile& zip, const ZipFile::Entry& entry)
    {
        ByteBuffer buffer;
        switch (entry.isEncrypted ? ZipFile::Method::other : entry.method) {
        case ZipFile::Method::stored: {
            if (entry.compressedBytes > room())
                return std::nullopt;
            const auto bytes = zip.rawBytes(entry, buffer);
            return bytes ? std::optional(ByteBuffer(bytes->begin(), bytes->end())) : std::nullopt;
        }
        case ZipFile::Method::deflated: {
            // What deflate can't make smaller it stores, with a few bytes beside each block.
            constexpr std::int64_t overhead = 4096;
            if (entry.compressedBytes - overhead - room() / 8 > room())
                return std::nullopt;
            const auto bytes = zip.rawBytes(entry, buffer);
            return bytes ? inflate(*bytes, entry.uncompressedBytes, room(), meter_) : std::nullopt;
        }
        case ZipFile::Method::other: break;
        }
        ++(entry.isEncrypted ? archive_.unreadable_.encrypted : archive_.unreadable_.otherMethod);
        return std::nullopt;
    }

    // Nothing to keep (it could not be read, or found no room) leaves the budget as it was.
    void keep(std::string name, std::optional<ByteBuffer> bytes)
    {
        constexpr std::int64_t nodeBytes = sizeof(SkinArchive::Table::value_type) + 80;
        if (!bytes || !meter_.take(nodeBytes + std::ssize(name)))
            return;
        total_ += std::ssize(*bytes);
        archive_.files_.emplace(std::move(name), std::move(*bytes));
    }

    std::expected<SkinArchive, SkinError> take(std::int64_t entryCount, std::int64_t folderCount)
    {
        if (meter_.isOutOfTime())
            return std::unexpected(SkinError::takesTooLong());
        archive_.entryCount_ = entryCount;
        archive_.leftOutCount_ = entryCount - folderCount - std::ssize(archive_.files_);
        archive_.timeLeft_ = meter_.timeLeft();
        return std::move(archive_);
    }

private:
    const SkinArchive::Limits& limits_;
    LoadMeter meter_;
    SkinArchive archive_;
    std::int64_t total_ = 0;
};

bool SkinArchive::readsFromFolder(std::string_view fileName)
{
    const std::string name = Unicode::lowercased(Unicode::toValidUTF8(asBytes(fileName)));
    const auto extension = pathExtension(name);
    return extension && Limits().allowedExtensions.contains(*extension);
}

bool SkinArchive::hasSkinName(const std::filesystem::path& file)
{
    const auto extension =
        Unicode::lowercased(Unicode::toValidUTF8(asBytes(file.extension().string())));
    return extension == ".wsz" || extension == ".zip";
}

SkinArchive::SkinArchive(const Table& files) : entryCount_(std::ssize(files))
{
    for (const auto& [name, bytes] : files)
        files_.emplace(Unicode::lowercased(name), bytes);
    leftOutCount_ = entryCount_ - std::ssize(files_);
}

std::expected<SkinArchive, SkinError> SkinArchive::open(const std::filesystem::path& path,
                                                        const Limits& limits)
{
    checkLimits(limits);
    const auto kind = Files::kind(path);
    if (!kind)
        return unreadableFor(kind.error());
    return *kind == Files::Kind::folder ? openFolder(path, limits)
                                        : of(ZipFile::open(path), limits);
}

// What the folder's files are is their affair; but one that can't be read is no file that is
// missing.
std::expected<SkinArchive, SkinError> SkinArchive::openFolder(const std::filesystem::path& path,
                                                              const Limits& limits)
{
    const auto entries = Files::list(path, ZipFile::maxEntries);
    if (!entries && entries.error() == std::errc::file_too_large)
        return std::unexpected(SkinError::unreadableArchive("Folder of more than 65535 files"));
    if (!entries)
        return unreadableFor(entries.error());
    Intake intake(limits);
    for (const auto& entry : *entries) {
        if (!entry.isRegularFile)
            continue;
        if (!intake.goesOnAfter(std::ssize(entry.name)))
            break;
        const std::string readable = Unicode::toValidUTF8(asBytes(entry.name));
        if (auto name = intake.wantedName(readable, entry.size)) {
            auto bytes = Files::read(path / entry.name, intake.room(), Files::Links::rejected);
            if (!bytes && !Files::isUnsuitableFile(bytes.error()))
                return unreadableFor(bytes.error());
            intake.keep(std::move(*name), bytes ? std::optional(std::move(*bytes)) : std::nullopt);
        }
    }
    return intake.take(std::ssize(*entries),
                       std::ranges::count(*entries, true, &Files::FolderEntry::isFolder));
}

std::expected<SkinArchive, SkinError> SkinArchive::open(Files::InputFile file, const Limits& limits)
{
    checkLimits(limits);
    return of(ZipFile::open(std::move(file)), limits);
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
    Intake intake(limits);
    for (const auto& entry : zip->entries()) {
        if (!entry.isRegularFile)
            continue;
        if (!intake.goesOnAfter(std::ssize(entry.name)))
            break;
        if (auto name = intake.wantedName(entry.path(), entry.uncompressedBytes))
            intake.keep(std::move(*name), intake.extract(*zip, entry));
    }
    // Damage leaves an entry out; but one that can't be read is no entry that is missing.
    if (zip->readError())
        return unreadableFor(zip->readError());
    return intake.take(std::ssize(zip->entries()),
                       std::ranges::count(zip->entries(), true, &ZipFile::Entry::isFolder));
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
