#include "SkinKit/Tooling/InfoOptions.h"

#include "SkinKit/Tooling/Arguments.h"

#include <utility>
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
    auto skin = Arguments::onlySkin(positional);
    if (!skin)
        return std::unexpected(UsageError{std::move(skin.error())});
    options.input = std::move(*skin);
    return options;
}

}
