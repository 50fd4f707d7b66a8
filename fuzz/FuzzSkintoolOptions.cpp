#include "SkinKit/Tooling/InfoOptions.h"
#include "SkinKit/Tooling/PreviewOptions.h"
#include "SkinKit/Tooling/SkintoolOptions.h"
#include "SkinKit/Tooling/WindowsOptions.h"
#include "fuzz/Fuzzing.h"

#include <string>
#include <vector>

namespace {

using Arguments = std::vector<std::string>;

// What every form promises; `holds` is what its options promise beyond.
template <typename Options, typename Holds>
void parse(const Arguments& arguments, Holds holds)
{
    const auto options = Options::parse(arguments);
    if (options)
        fuzzing::require(!options->input.starts_with('-') && holds(*options));
    else
        fuzzing::require(!options.error().description.empty());
}

}

// The input's lines are the arguments, given to every form of the command line.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    Arguments arguments(1);
    for (const char c : asText({data, size})) {
        if (c == '\n')
            arguments.emplace_back();
        else
            arguments.back() += c;
    }
    parse<SkintoolOptions>(arguments, [](const SkintoolOptions& options) {
        return options.scale >= 1 && (options.png || (!options.compare && !options.noRegion));
    });
    parse<WindowsOptions>(arguments, [](const WindowsOptions& options) {
        return options.scale >= 1 && !options.out.starts_with('-');
    });
    parse<PreviewOptions>(arguments, [](const PreviewOptions& options) {
        return !options.out || !options.out->starts_with('-');
    });
    parse<InfoOptions>(arguments, [](const InfoOptions&) { return true; });
    return 0;
}
