#include "SkinKit/Tooling/Corpus/CorpusListing.h"
#include "SkinKit/Tooling/Corpus/CorpusPlan.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <functional>

// A listing that an earlier run left, and the work that a run makes of it.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const auto files = CorpusListing::parse(asText({data, size}));
    if (!files)
        return 0;
    fuzzing::require(CorpusListing::parse(CorpusListing::json(*files)) == files);
    for (const CorpusFile& file : *files) {
        fuzzing::require(file.location() == (file.pathBytes ? *file.pathBytes : file.path));
        fuzzing::require(file.path.contains(file.name()));
    }

    constexpr std::int64_t sample = 3;
    const auto whole = CorpusPlan::of(*files, {}, 1);
    const auto part = CorpusPlan::of(*files, sample, 1);
    fuzzing::require(whole.unique == std::ssize(whole.skins) &&
                     whole.skins.size() + whole.duplicates.size() == files->size());
    fuzzing::require(part.unique == whole.unique &&
                     std::ssize(part.skins) == std::min(sample, whole.unique));
    for (const auto& plan : {whole, part}) {
        fuzzing::require(std::ranges::is_sorted(plan.skins, std::ranges::less_equal()));
        for (const auto& [file, of] : plan.duplicates)
            fuzzing::require(of < file && (*files)[of].md5 == (*files)[file].md5 &&
                             std::ranges::binary_search(plan.skins, of));
    }
    fuzzing::require(std::ranges::includes(whole.skins, part.skins));
    return 0;
}
