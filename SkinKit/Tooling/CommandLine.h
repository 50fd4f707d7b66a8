#pragma once

#include "SkinKit/Platform/Numbers.h"
#include "SkinKit/Tooling/Arguments.h"

#include <algorithm>
#include <cstdint>
#include <expected>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace SkinKit {

// What an option's value may be, put into a field of the options; false when it is none.
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
template <auto field, typename Options>
bool takeSeed(Options& options, const std::string& text)
{
    const auto seed = Numbers::parseInteger<std::uint64_t>(text);
    options.*field = seed.value_or(0);
    return seed.has_value();
}

// A form of the command line as tables: one input, options that each take a value, and flags. What
// is wrong with the arguments comes out as text.
template <typename Options>
struct CommandLine {
    struct Flag {
        std::string_view word;
        bool Options::* field;
    };
    struct Value {
        std::string_view word;
        bool (*take)(Options&, const std::string& value); // false when it is no such value
        std::string_view complaint;                       // about a bad value, or none
    };
    struct Required {
        std::string_view word; // of an option, or empty for the input
        std::string_view complaint;
    };

    std::span<const Flag> flags;
    std::span<const Value> values;
    std::string_view secondInput; // the complaint about one
    std::span<const Required> required;
    std::string_view optionMark = "--"; // no value begins with it

    std::expected<Options, typename Options::UsageError>
    parse(std::span<const std::string> arguments) const
    {
        const auto wrong = [](std::string description) {
            return std::unexpected(typename Options::UsageError{std::move(description)});
        };
        Options options;
        std::set<std::string_view> given;
        for (Arguments rest(arguments); !rest.isEmpty();) {
            const std::string& argument = rest.next();
            const auto flag = std::ranges::find(flags, argument, &Flag::word);
            const auto option = std::ranges::find(values, argument, &Value::word);
            if (flag != flags.end()) {
                options.*flag->field = true;
            } else if (option != values.end()) {
                const auto value = rest.value(optionMark);
                if (!value || !option->take(options, *value))
                    return wrong(std::string(option->complaint));
                given.insert(option->word);
            } else if (argument.starts_with('-')) {
                return wrong("unknown option: " + argument);
            } else if (!given.insert("").second) {
                return wrong(std::string(secondInput));
            } else {
                options.input = argument;
            }
        }
        for (const auto& [word, complaint] : required)
            if (!given.contains(word))
                return wrong(std::string(complaint));
        return options;
    }
};

}
