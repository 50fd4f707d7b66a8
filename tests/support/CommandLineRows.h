#pragma once

#include "SkinKit/Tooling/CommandLine/CommandLine.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <expected>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace support {

// A command line, and the options or the error that it gives.
template <typename Options>
struct CommandLineRow {
    CommandLineRow(std::string_view words, Options options)
        : line(words), expected(std::move(options))
    {
    }
    CommandLineRow(std::string_view words, std::string_view error)
        : line(words), expected(std::unexpected(SkinKit::UsageError{std::string(error)}))
    {
    }

    std::string_view line;
    std::expected<Options, SkinKit::UsageError> expected;
};

template <typename Options>
void expectParsed(std::initializer_list<CommandLineRow<Options>> rows)
{
    for (const auto& row : rows) {
        const auto parsed = Options::parse(words(std::string(row.line)));
        EXPECT_EQ(parsed, row.expected)
            << row.line << (parsed ? "" : ": " + parsed.error().description);
    }
}

}
