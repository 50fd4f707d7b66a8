#include "SkinKit/Tooling/PreviewOptions.h"

#include "SkinKit/Tooling/Arguments.h"

#include <utility>
#include <vector>

namespace SkinKit {

const std::string_view PreviewOptions::usage =
    "usage: skintool preview <skin.wsz | folder> [--out <file>] [--mhtml]";

std::expected<PreviewOptions, PreviewOptions::UsageError>
PreviewOptions::parse(std::span<const std::string> arguments)
{
    const auto wrong = [](std::string description) {
        return std::unexpected(UsageError{std::move(description)});
    };
    PreviewOptions options;
    std::vector<std::string> positional;
    for (Arguments rest(arguments); !rest.isEmpty();) {
        const std::string& argument = rest.next();
        if (argument == "--mhtml") {
            options.mhtml = true;
        } else if (argument == "--out") {
            options.out = rest.value();
            if (!options.out)
                return wrong("--out needs an output path");
        } else if (argument.starts_with('-')) {
            return wrong("unknown option: " + argument);
        } else {
            positional.push_back(argument);
        }
    }

    auto skin = Arguments::onlySkin(positional);
    if (!skin)
        return wrong(std::move(skin.error()));
    options.input = std::move(*skin);
    return options;
}

}
