#include "SkinKit/Tooling/Corpus/CorpusManifest.h"

#include "SkinKit/Base/JSON.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/System/InputFile.h"

#include <utility>

namespace SkinKit {

std::expected<CorpusManifest, std::string> CorpusManifest::parse(std::string_view json)
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
            manifest.byMD5[Unicode::lowercased(*md5)] = {
                museumUrl ? std::optional<std::string>(*museumUrl) : std::nullopt,
                nsfw ? std::optional(*nsfw) : std::nullopt};
    }
    if (!text->root().isArray())
        return std::unexpected("not an array of objects");
    return manifest;
}

std::expected<CorpusManifest, std::string> CorpusManifest::read(const std::filesystem::path& file)
{
    constexpr std::int64_t maxBytes = std::int64_t{1} << 30;
    const auto bytes = Files::read(file, maxBytes);
    if (!bytes)
        return std::unexpected(bytes.error().message());
    return parse(asText(*bytes));
}

CorpusRecord CorpusManifest::decorated(CorpusRecord record) const
{
    const auto found = record.md5 ? byMD5.find(*record.md5) : byMD5.end();
    if (found != byMD5.end()) {
        record.museumUrl = found->second.museumUrl;
        record.nsfw = found->second.nsfw;
    }
    return record;
}

}
