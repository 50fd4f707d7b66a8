#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/ZipFile.h"
#include "SkinKit/Base/Unicode.h"
#include "fuzz/Fuzzing.h"

namespace {

using namespace SkinKit;

// The same file found by its name in capitals, and its name as it must be.
void requireFound(const SkinArchive& archive, const std::string& name, ByteView bytes)
{
    const auto dot = name.rfind('.');
    fuzzing::require(!name.contains('/') && Unicode::lowercased(name) == name &&
                     Unicode::fromUTF8(asBytes(name)).has_value());
    const auto found = archive.file(name.substr(0, dot), {name.substr(dot + 1)});
    fuzzing::require(found && found->data() == bytes.data() && found->size() == bytes.size());
}

}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SkinArchive::Limits limits{.maxEntryBytes = 4096, .maxTotalBytes = 10'000};
    const auto archive = SkinArchive::open(ByteView(data, size), limits);
    if (!archive) {
        fuzzing::require(archive.error().kind() == SkinError::Kind::unreadableArchive);
        return 0;
    }
    std::int64_t total = 0;
    for (const auto& [name, bytes] : archive->files()) {
        fuzzing::require(limits.allowedExtensions.contains(name.substr(name.rfind('.') + 1)));
        fuzzing::require(std::ssize(bytes) <= limits.maxEntryBytes);
        requireFound(*archive, name, bytes);
        total += std::ssize(bytes);
    }
    fuzzing::require(total <= limits.maxTotalBytes && archive->leftOutCount() >= 0);
    fuzzing::require(archive->entryCount() <= std::int64_t{ZipFile::maxEntries});

    const auto again = SkinArchive::open(ByteView(data, size), limits);
    fuzzing::require(again && again->files() == archive->files() &&
                     again->entryCount() == archive->entryCount());
    return 0;
}
