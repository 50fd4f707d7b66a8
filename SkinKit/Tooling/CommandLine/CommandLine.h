// Written by hand, since getopt and its like accept abbreviations and "--name=value", sort the
// arguments, and word the errors themselves; here each error has its own fixed text.
#pragma once

#include "SkinKit/Base/Numbers.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace SkinKit {

// What is wrong with a command line. Printed above the usage.
struct UsageError {
    std::string description;

    bool operator==(const UsageError&) const = default;
};

// The common kinds of `CommandLine::Take`.
template <auto field, typename Options>
bool takeFlag(Options& options, const std::string&)
{
    options.*field = true;
    return true;
}
template <auto field, typename Options>
bool takeText(Options& options, const std::string& text)
{
    options.*field = text;
    return true;
}
template <auto field, typename Options>
bool takeCount(Options& options, const std::string& text)
{
    const auto count = Numbers::parseInteger<std::int64_t>(text).value_or(0);
    options.*field = count;
    return count >= 1;
}

// The command line of one command as tables, which fill a value of type `Options`. An option's word
// is compared whole. Its last occurrence counts, and the first error ends the parsing.
template <typename Options>
struct CommandLine {
    // Puts a value into a field of the options. False if the value is bad.
    using Take = bool (*)(Options&, const std::string& value);
    // The words of the options that occurred.
    using Given = std::set<std::string_view>;

    struct Operand {
        Take take;
        std::string_view missing; // the error without it
    };
    struct Option {
        std::string_view word;
        Take take;
        std::string_view badValue; // the error for a bad or missing value; empty for flags
        std::string_view missing;  // the error without the option, if it is required
    };
    enum class Report { atOnce, atEnd };

    std::vector<Operand> operands; // all of them required, in this order
    std::string_view tooMany;      // the error for more operands
    Report reportTooMany = Report::atOnce;
    std::vector<Option> options;
    std::string_view optionMark = "-"; // an argument that begins with it is never a value
    // Checks the options together after all else. Returns the error, if any.
    std::optional<std::string> (*check)(Options&, const Given&) = nullptr;

    std::expected<Options, UsageError> parse(std::span<const std::string> arguments) const
    {
        const auto wrong = [](std::string_view description) {
            return std::unexpected(UsageError{std::string(description)});
        };
        Options result;
        Given given;
        std::size_t operandCount = 0;
        for (auto next = arguments.begin(); next != arguments.end();) {
            const std::string& argument = *next++;
            const auto option = std::ranges::find(options, argument, &Option::word);
            if (option != options.end()) {
                const bool isFlag = option->badValue.empty();
                if (!isFlag && (next == arguments.end() || next->starts_with(optionMark)))
                    return wrong(option->badValue);
                if (!option->take(result, isFlag ? argument : *next++))
                    return wrong(option->badValue);
                given.insert(option->word);
            } else if (argument.starts_with('-')) {
                return wrong("unknown option: " + argument);
            } else if (operandCount < operands.size()) {
                operands[operandCount++].take(result, argument);
            } else if (reportTooMany == Report::atOnce) {
                return wrong(tooMany);
            } else {
                ++operandCount;
            }
        }
        if (operandCount < operands.size())
            return wrong(operands[operandCount].missing);
        if (operandCount > operands.size())
            return wrong(tooMany);
        for (const Option& option : options)
            if (!option.missing.empty() && !given.contains(option.word))
                return wrong(option.missing);
        if (const auto error = check ? check(result, given) : std::nullopt)
            return wrong(*error);
        return result;
    }
};

}
