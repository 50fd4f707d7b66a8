#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Base/Unicode.h"
#include "fuzz/Fuzzing.h"

// A ZIP file. Limits hold for each file and all of them, and names are lower case without folders.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const SkinArchive::Limits limits{.maxEntryBytes = 4096, .maxTotalBytes = 10'000};
    const auto archive = SkinArchive::open(ByteView(data, size), limits);
    if (!archive)
        return 0;
    std::int64_t total = 0;
    for (const auto& [name, bytes] : archive->files()) {
        const auto dot = name.rfind('.');
        fuzzing::require(!name.contains('/') && Unicode::lowercased(name) == name &&
                         Unicode::fromUTF8(asBytes(name)).has_value());
        fuzzing::require(limits.allowedExtensions.contains(name.substr(dot + 1)) &&
                         archive->file(name.substr(0, dot), {name.substr(dot + 1)}).has_value());
        fuzzing::require(std::ssize(bytes) <= limits.maxEntryBytes);
        total += std::ssize(bytes);
    }
    fuzzing::require(total <= limits.maxTotalBytes);
    const auto again = SkinArchive::open(ByteView(data, size), limits);
    fuzzing::require(again && again->files() == archive->files());
    return 0;
}
