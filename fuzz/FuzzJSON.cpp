#include "SkinKit/Tooling/Corpus/CorpusListing.h"
#include "SkinKit/Tooling/Corpus/CorpusManifest.h"
#include "SkinKit/Tooling/Corpus/CorpusPlan.h"
#include "SkinKit/Tooling/Report/CorpusReport.h"
#include "fuzz/Fuzzing.h"

// A JSON text: any, a museum's list, or the listing that an earlier run left and the work that a
// run makes of it.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const std::string_view text = asText({data, size});
    const auto json = JSON::parse(text);
    const auto manifest = CorpusManifest::parse(text);
    fuzzing::require(json ? JSON::parse(json->text()) == json && JSON::parse(json->text(2)) == json
                          : !json.error().empty() && !manifest && !manifest.error().empty());
    if (json)
        CorpusReport::markdown(CorpusReport::summarize(CorpusSkins(), *json, 3, 1, {}));

    const auto files = CorpusListing::parse(text);
    if (!files)
        return 0;
    fuzzing::require(json && CorpusListing::parse(CorpusListing::json(*files)) == files);
    const auto plan = CorpusPlan::of(*files, {}, 1);
    fuzzing::require(plan.unique == std::ssize(plan.skins) &&
                     plan.skins.size() + plan.duplicates.size() == files->size());
    for (const auto& [file, of] : plan.duplicates)
        fuzzing::require(of < file && (*files)[of].md5 == (*files)[file].md5);
    return 0;
}
