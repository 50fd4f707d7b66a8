#include "SkinKit/Tooling/Corpus/CorpusManifest.h"

#include "SkinKit/Base/JSON.h"
#include "SkinKit/Base/Unicode.h"

namespace SkinKit {

std::expected<CorpusManifest, std::string> parseManifest(std::string_view json)
{
    const auto text = JSONText::read(json);
    if (!text)
        return std::unexpected(text.error());
    CorpusManifest manifest;
    for (const JSONNode& element : text->root()) {
        if (!element.isObject())
            return std::unexpected("not an array of objects");
        const auto* const md5 = element.member<std::string_view>("md5");
        const auto* const museumUrl = element.member<std::string_view>("museum_url");
        const auto* const nsfw = element.member<bool>("nsfw");
        if (md5)
            manifest[Unicode::lowercased(*md5)] = {
                museumUrl ? std::optional<std::string>(*museumUrl) : std::nullopt,
                nsfw ? std::optional(*nsfw) : std::nullopt};
    }
    if (!text->root().isArray())
        return std::unexpected("not an array of objects");
    return manifest;
}

}
