#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/ZipFile.h"
#include "fuzz/Fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SkinKit::SkinArchive::Limits limits{.maxEntryBytes = 4096, .maxTotalBytes = 10'000};
    const auto archive = SkinKit::SkinArchive::open(SkinKit::ByteView(data, size), limits);
    if (!archive)
        return 0;
    std::int64_t total = 0;
    for (const auto& [name, bytes] : archive->files()) {
        fuzzing::require(limits.allowedExtensions.contains(name.substr(name.rfind('.') + 1)));
        fuzzing::require(std::ssize(bytes) <= limits.maxEntryBytes);
        total += std::ssize(bytes);
    }
    fuzzing::require(total <= limits.maxTotalBytes && archive->leftOutCount() >= 0);
    fuzzing::require(archive->entryCount() <= std::int64_t{SkinKit::ZipFile::maxEntries});
    return 0;
}
