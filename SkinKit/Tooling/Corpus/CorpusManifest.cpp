#include "SkinKit/Tooling/Corpus/CorpusManifest.h"

#include "SkinKit/Base/JSON.h"
#include "SkinKit/Base/Unicode.h"

namespace SkinKit {

std::expected<CorpusManifest, std::string> parseManifest(std::string_view json)
{
    const auto parsed = JSON::parse(json);
    if (!parsed)
        return std::unexpected(parsed.error());
    const auto* const array = parsed->as<JSON::Array>();
    if (!array)
        return std::unexpected("not an array of objects");

    CorpusManifest manifest;
    for (const JSON& element : *array) {
        if (!element.as<JSON::Object>())
            return std::unexpected("not an array of objects");
        if (const auto md5 = element.member<std::string>("md5"))
            manifest[Unicode::lowercased(*md5)] = {element.member<std::string>("museum_url"),
                                                   element.member<bool>("nsfw")};
    }
    return manifest;
}

}
