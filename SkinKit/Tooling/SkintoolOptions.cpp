#include "SkinKit/Tooling/SkintoolOptions.h"

#include "SkinKit/Tooling/Arguments.h"

#include <utility>
#include <vector>

namespace SkinKit {
namespace {

// The walk over the arguments; the first error ends it.
class Walk {
public:
    explicit Walk(std::span<const std::string> arguments) : rest_(arguments) {}

    std::expected<SkintoolOptions, SkintoolOptions::UsageError> run()
    {
        while (!rest_.isEmpty() && !error_)
            take(rest_.next());
        if (!error_)
            checkWhole();
        if (error_)
            return std::unexpected(SkintoolOptions::UsageError{*error_});
        return std::move(options_);
    }

private:
    void take(const std::string& argument)
    {
        if (argument == "-v" || argument == "--verbose") {
            options_.verbose = true;
        } else if (argument == "--no-region") {
            options_.noRegion = true;
        } else if (argument == "--png") {
            options_.png = rest_.value();
            require(options_.png.has_value(), "--png needs an output path");
        } else if (argument == "--compare") {
            options_.compare = rest_.value();
            require(options_.compare.has_value(), "--compare needs a folder");
        } else if (argument == "--state") {
            const auto state = SkintoolOptions::parseState(rest_.value().value_or(""));
            require(state.has_value(), "--state must be webamp or idle");
            options_.state = state.value_or(options_.state);
            hasState_ = true;
        } else if (argument == "--scale") {
            const auto scale = Arguments::parseScale(rest_.value().value_or(""));
            require(scale.has_value(), "--scale needs an integer of 1 or more");
            options_.scale = scale.value_or(options_.scale);
            hasScale_ = true;
        } else if (argument.starts_with('-')) {
            error_ = "unknown option: " + argument;
        } else {
            positional_.push_back(argument);
        }
    }

    void checkWhole()
    {
        auto skin = Arguments::onlySkin(positional_);
        if (!skin) {
            error_ = std::move(skin.error());
            return;
        }
        options_.input = std::move(*skin);
        require(!options_.png || !options_.compare || options_.scale == 1,
                "--compare needs --scale 1 (the references are 1x)");
        require(options_.png ||
                    (!hasState_ && !hasScale_ && !options_.compare && !options_.noRegion),
                "--state, --scale, --compare and --no-region need --png");
    }

    void require(bool holds, const char* message)
    {
        if (!holds && !error_)
            error_ = message;
    }

    Arguments rest_;
    SkintoolOptions options_;
    std::vector<std::string> positional_;
    bool hasState_ = false;
    bool hasScale_ = false;
    std::optional<std::string> error_;
};

}

const std::string_view SkintoolOptions::usage =
    "usage: skintool [-v|--verbose] [--png <out> [--state webamp|idle] [--scale N] "
    "[--compare <refdir>] [--no-region]] <skin.wsz | folder>";

std::string_view rawValue(SkintoolOptions::State state)
{
    return state == SkintoolOptions::State::webamp ? "webamp" : "idle";
}

std::optional<SkintoolOptions::State> SkintoolOptions::parseState(std::string_view word)
{
    for (const auto state : {State::webamp, State::idle})
        if (rawValue(state) == word)
            return state;
    return std::nullopt;
}

std::expected<SkintoolOptions, SkintoolOptions::UsageError>
SkintoolOptions::parse(std::span<const std::string> arguments)
{
    return Walk(arguments).run();
}

}
