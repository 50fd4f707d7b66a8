#include "SkinKit/Tooling/SkintoolOptions.h"
#include "fuzz/Fuzzing.h"

#include <string>
#include <vector>

// The input's lines are the arguments.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::string> arguments(1);
    for (const char c : SkinKit::asText({data, size})) {
        if (c == '\n')
            arguments.emplace_back();
        else
            arguments.back() += c;
    }
    const auto options = SkinKit::SkintoolOptions::parse(arguments);
    if (options)
        fuzzing::require(options->scale >= 1 && !options->input.starts_with('-') &&
                         (options->png || (!options->compare && !options->noRegion)));
    else
        fuzzing::require(!options.error().description.empty());
    return 0;
}
