#include "SkinKit/Tooling/WindowsOptions.h"

#include "SkinKit/Tooling/Arguments.h"

#include <optional>
#include <utility>
#include <vector>

namespace SkinKit {

const std::string_view WindowsOptions::usage =
    "usage: skintool windows <skin.wsz | folder> --out <dir> [--scale N] [--state webamp|idle] "
    "[--no-region]";

std::expected<WindowsOptions, WindowsOptions::UsageError>
WindowsOptions::parse(std::span<const std::string> arguments)
{
    const auto wrong = [](std::string description) {
        return std::unexpected(UsageError{std::move(description)});
    };
    WindowsOptions options;
    std::optional<std::string> out;
    std::vector<std::string> positional;
    for (Arguments rest(arguments); !rest.isEmpty();) {
        const std::string& argument = rest.next();
        if (argument == "--no-region") {
            options.noRegion = true;
        } else if (argument == "--out") {
            out = rest.value();
            if (!out)
                return wrong("--out needs a folder");
        } else if (argument == "--scale") {
            const auto scale = Arguments::parseScale(rest.value().value_or(""));
            if (!scale)
                return wrong("--scale needs an integer of 1 or more");
            options.scale = *scale;
        } else if (argument == "--state") {
            const auto state = SkintoolOptions::parseState(rest.value().value_or(""));
            if (!state)
                return wrong("--state must be webamp or idle");
            options.state = *state;
        } else if (argument.starts_with('-')) {
            return wrong("unknown option: " + argument);
        } else {
            positional.push_back(argument);
        }
    }

    auto skin = Arguments::onlySkin(positional);
    if (!skin)
        return wrong(std::move(skin.error()));
    if (!out)
        return wrong("missing --out <dir>");
    options.input = std::move(*skin);
    options.out = std::move(*out);
    return options;
}

}
