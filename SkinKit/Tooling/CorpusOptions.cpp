#include "SkinKit/Tooling/CorpusOptions.h"

#include "SkinKit/Platform/Numbers.h"
#include "SkinKit/Platform/Unicode.h"
#include "SkinKit/Tooling/CommandLine.h"

#include <limits>

namespace SkinKit {
namespace {

using Form = CommandLine<CorpusOptions>;

bool takeTimeout(CorpusOptions& options, const std::string& text)
{
    const std::string word = Unicode::lowercased(text.starts_with('+') ? text.substr(1) : text);
    const bool isEndless = word == "inf" || word == "infinity";
    options.timeout = isEndless ? std::numeric_limits<double>::infinity()
                                : Numbers::parseDecimal(text).value_or(0);
    return options.timeout > 0;
}

// clang-format off
constexpr Form::Flag flags[] = {
    {"--resume", &CorpusOptions::resume},
};
constexpr Form::Value values[] = {
    {"--out",        takeText<&CorpusOptions::out>,           "--out needs a folder"},
    {"--manifest",   takeText<&CorpusOptions::manifest>,      "--manifest needs a file"},
    {"--timeout",    takeTimeout,                             "--timeout needs a positive number of seconds"},
    {"--max-memory", takeCount<&CorpusOptions::maxMemoryMiB>, "--max-memory needs a positive number of MiB"},
    {"--sample",     takeCount<&CorpusOptions::sample>,       "--sample needs a positive count"},
    {"--seed",       takeSeed<&CorpusOptions::seed>,          "--seed needs a non-negative integer"},
};
constexpr Form::Required required[] = {
    {"",      "missing <dir>"},
    {"--out", "missing --out <dir>"},
};
// clang-format on

}

const std::string_view CorpusOptions::usage =
    "usage: skintool corpus <dir> --out <dir> [--resume] [--timeout <s>=10] "
    "[--max-memory <MiB>=4096] [--sample <N>] [--seed <n>=1] [--manifest <file>]";

std::expected<CorpusOptions, CorpusOptions::UsageError>
CorpusOptions::parse(std::span<const std::string> arguments)
{
    return Form{flags, values, "only one <dir> is accepted", required}.parse(arguments);
}

}
