#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// The arguments of a command line, to be taken one by one; what the parsers of its forms share. The
// arguments must outlive it.
class Arguments {
public:
    explicit Arguments(std::span<const std::string> rest) : rest_(rest) {}

    bool isEmpty() const { return rest_.empty(); }

    // Takes the next one; there must be one.
    const std::string& next();

    // Takes the value of the option before. One that begins with `optionMark` is another option,
    // so that the value is missing.
    std::optional<std::string> value(std::string_view optionMark = "-");

    // The one skin among the arguments that belong to no option, or what is wrong with them.
    static std::expected<std::string, std::string>
    onlySkin(const std::vector<std::string>& positional);

    // A scale of 1 or more.
    static std::optional<std::int64_t> parseScale(std::string_view text);

private:
    std::span<const std::string> rest_;
};

}
