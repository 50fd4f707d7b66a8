#include "SkinKit/Platform/ZipFile.h"

#include "SkinKit/Platform/Files.h"

#include <zip.h>

#include <sys/stat.h>

#include <cstdio>
#include <limits>
#include <utility>

namespace SkinKit {
namespace {

// Up to here a container is read in one go, which is faster than the hundred small reads that
// walking it would take; a larger one holds mostly what no skin needs, and is read where asked.
constexpr std::int64_t readWholeBytes = 4 << 20;

std::string takeText(zip_error_t& error)
{
    std::string text = zip_error_strerror(&error);
    zip_error_fini(&error);
    return text;
}

std::expected<zip_t*, std::string> openSource(zip_source_t* source, zip_error_t& error)
{
    zip_t* const archive = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
    if (archive)
        return archive;
    if (source)
        zip_source_free(source);
    return std::unexpected(takeText(error));
}

// The attributes' upper half holds the Unix mode, where the entry was made on a system that has
// one.
bool isRegularFile(const std::string& path, std::uint8_t system, std::uint32_t attributes)
{
    constexpr std::uint32_t dosDirectory = 0x10;
    if (path.ends_with('/'))
        return false;
    if (system == ZIP_OPSYS_UNIX || system == ZIP_OPSYS_OS_X) {
        const auto type = attributes >> 16 & S_IFMT;
        return type == 0 || type == S_IFREG;
    }
    return system != ZIP_OPSYS_DOS || (attributes & dosDirectory) == 0;
}

std::int64_t signedSize(zip_uint64_t size)
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    return size > static_cast<zip_uint64_t>(most) ? most : static_cast<std::int64_t>(size);
}

}

void ZipFile::Close::operator()(zip* archive) const
{
    zip_discard(archive);
}

std::expected<ZipFile, std::string> ZipFile::open(const std::filesystem::path& path)
{
    auto file = Files::InputFile::open(path, Files::Links::followed);
    if (!file)
        return std::unexpected(file.error() == std::errc::not_supported ? "Not a regular file"
                                                                        : file.error().message());
    if (file->size() <= readWholeBytes) {
        auto bytes = file->read(readWholeBytes);
        if (!bytes)
            return std::unexpected(bytes.error().message());
        auto archive = open(*bytes);
        if (archive)
            archive->bytes_ = std::move(*bytes); // moving keeps the memory where it is
        return archive;
    }

    const std::int64_t size = file->size();
    std::FILE* const stream = ::fdopen(file->release(), "rb");
    zip_error_t error;
    zip_error_init(&error);
    const auto archive = openSource(zip_source_filep_create(stream, 0, -1, &error), error);
    if (!archive)
        return std::unexpected(archive.error());
    ZipFile result;
    result.archive_.reset(*archive);
    result.size_ = size;
    return result;
}

std::expected<ZipFile, std::string> ZipFile::open(ByteView bytes)
{
    zip_error_t error;
    if (bytes.empty()) { // which the library takes for an archive without entries
        zip_error_init_with_code(&error, ZIP_ER_NOZIP);
        return std::unexpected(takeText(error));
    }
    zip_error_init(&error);
    const auto archive =
        openSource(zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error), error);
    if (!archive)
        return std::unexpected(archive.error());
    ZipFile result;
    result.archive_.reset(*archive);
    result.size_ = std::ssize(bytes);
    return result;
}

std::int64_t ZipFile::entryCount() const
{
    return zip_get_num_entries(archive_.get(), 0);
}

std::optional<ZipFile::Entry> ZipFile::entry(std::int64_t index) const
{
    const auto number = static_cast<zip_uint64_t>(index);
    zip_stat_t status;
    if (zip_stat_index(archive_.get(), number, 0, &status) != 0 || !(status.valid & ZIP_STAT_NAME))
        return std::nullopt;
    zip_uint8_t system = ZIP_OPSYS_UNIX;
    zip_uint32_t attributes = 0;
    zip_file_get_external_attributes(archive_.get(), number, 0, &system, &attributes);

    Entry entry;
    entry.path = status.name;
    entry.isRegularFile = isRegularFile(entry.path, system, attributes);
    entry.uncompressedBytes = signedSize(status.size);
    entry.compressedBytes = signedSize(status.comp_size);
    entry.method = status.comp_method == ZIP_CM_STORE     ? Method::stored
                   : status.comp_method == ZIP_CM_DEFLATE ? Method::deflated
                                                          : Method::other;
    entry.isEncrypted = status.encryption_method != ZIP_EM_NONE;
    return entry;
}

std::optional<ByteBuffer> ZipFile::rawBytes(std::int64_t index, std::int64_t count) const
{
    if (count > size_) // a false size must not ask for memory
        return std::nullopt;
    zip_file_t* const file =
        zip_fopen_index(archive_.get(), static_cast<zip_uint64_t>(index), ZIP_FL_COMPRESSED);
    if (!file)
        return std::nullopt;
    ByteBuffer bytes(static_cast<std::size_t>(count));
    const auto read = zip_fread(file, bytes.data(), bytes.size());
    zip_fclose(file);
    if (read != count)
        return std::nullopt;
    return bytes;
}

}
