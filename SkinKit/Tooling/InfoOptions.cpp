#include "SkinKit/Tooling/InfoOptions.h"

#include <vector>

namespace SkinKit {

const std::string_view InfoOptions::usage = "usage: skintool info [--json] <skin.wsz | folder>";

std::expected<InfoOptions, InfoOptions::UsageError>
InfoOptions::parse(std::span<const std::string> arguments)
{
    InfoOptions options;
    std::vector<std::string> positional;
    for (const std::string& argument : arguments) {
        if (argument == "--json")
            options.json = true;
        else if (argument.starts_with('-'))
            return std::unexpected(UsageError{"unknown option: " + argument});
        else
            positional.push_back(argument);
    }
    if (positional.empty())
        return std::unexpected(UsageError{"missing <skin.wsz | folder>"});
    if (positional.size() > 1)
        return std::unexpected(UsageError{"only one <skin.wsz | folder> is accepted"});
    options.input = positional.front();
    return options;
}

}
