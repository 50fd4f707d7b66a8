#include "SkinKit/Base/JSON.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Tooling/Corpus/CorpusManifest.h"
#include "fuzz/Fuzzing.h"

namespace {

using namespace SkinKit;

JSON toJSON(const std::string& md5, const CorpusManifest::Entry& entry)
{
    JSON::Object object{
        {"md5", md5}
    };
    if (entry.museumUrl)
        object.emplace("museum_url", *entry.museumUrl);
    if (entry.nsfw)
        object.emplace("nsfw", *entry.nsfw);
    return object;
}

}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto manifest = CorpusManifest::parse(asText({data, size}));
    if (!manifest) {
        fuzzing::require(!manifest.error().empty());
        return 0;
    }
    JSON::Array entries;
    for (const auto& [md5, entry] : manifest->byMD5) {
        fuzzing::require(Unicode::lowercased(md5) == md5);
        entries.push_back(toJSON(md5, entry));
    }
    fuzzing::require(CorpusManifest::parse(JSON(std::move(entries)).text()) == manifest);
    return 0;
}
