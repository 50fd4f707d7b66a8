#include "SkinKit/Base/JSON.h"
#include "SkinKit/Tooling/Report/CorpusReport.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

using namespace SkinKit;

std::ptrdiff_t depthOf(const JSON& json)
{
    std::ptrdiff_t deepest = 0;
    if (const auto* const array = json.as<JSON::Array>())
        for (const JSON& element : *array)
            deepest = std::max(deepest, 1 + depthOf(element));
    if (const auto* const object = json.as<JSON::Object>())
        for (const auto& [key, value] : *object)
            deepest = std::max(deepest, 1 + depthOf(value));
    return deepest;
}

std::ptrdiff_t linesOf(std::optional<JSON> environment)
{
    const auto summary = CorpusReport::summarize(CorpusSkins(), std::move(environment), 3, 1, {});
    return std::ranges::count(CorpusReport::markdown(summary), '\n');
}

// As many rows as a report has for it.
std::ptrdiff_t rowsOf(const JSON& environment)
{
    if (const auto* const array = environment.as<JSON::Array>())
        return std::ssize(*array);
    const auto* const object = environment.as<JSON::Object>();
    return object ? std::ssize(*object) : 1;
}

}

// A JSON text, such as the one on the environment that stands on top of a report.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto json = JSON::parse(asText({data, size}));
    if (!json) {
        fuzzing::require(!json.error().empty());
        return 0;
    }
    fuzzing::require(depthOf(*json) <= JSON::maxDepth);
    fuzzing::require(JSON::parse(json->text()) == json && JSON::parse(json->text(2)) == json);
    static const std::ptrdiff_t linesWithout = linesOf({});
    fuzzing::require(linesOf(*json) == linesWithout + rowsOf(*json));
    return 0;
}
