#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Base/Unicode.h"

#include <limits>

namespace SkinKit {
namespace {

constexpr std::string_view badSample = "--sample needs a positive count";
constexpr std::string_view badSeed = "--seed needs a non-negative integer";

template <typename Options>
bool takeSeed(Options& options, const std::string& text)
{
    const auto seed = Numbers::parseInteger<std::uint64_t>(text);
    options.seed = seed.value_or(0);
    return seed.has_value();
}

bool takeTimeout(CorpusOptions& options, const std::string& text)
{
    const std::string word = Unicode::lowercased(text.starts_with('+') ? text.substr(1) : text);
    const bool isEndless = word == "inf" || word == "infinity";
    options.timeout = isEndless ? std::numeric_limits<double>::infinity()
                                : Numbers::parseDecimal(text).value_or(0);
    return options.timeout > 0;
}

}

const std::string_view CorpusOptions::usage =
    "usage: skintool corpus <dir> --out <dir> [--resume] [--timeout <s>=10] "
    "[--max-memory <MiB>=4096] [--sample <N>] [--seed <n>=1] [--manifest <file>]";
const std::string_view CorpusReportOptions::usage =
    "usage: skintool corpus-report <results.jsonl> --markdown <report.md> --json <summary.json> "
    "[--env <env.json>] [--sample <N>=1000] [--seed <n>=1] [--crashes <dir>]";

// clang-format off
std::expected<CorpusOptions, UsageError>
CorpusOptions::parse(std::span<const std::string> arguments)
{
    return CommandLine<CorpusOptions>{
        .operands = {{takeText<&CorpusOptions::input>, "missing <dir>"}},
        .tooMany = "only one <dir> is accepted",
        .options = {
            {"--resume",     takeFlag<&CorpusOptions::resume>},
            {"--out",        takeText<&CorpusOptions::out>,           "--out needs a folder", "missing --out <dir>"},
            {"--manifest",   takeText<&CorpusOptions::manifest>,      "--manifest needs a file"},
            {"--timeout",    takeTimeout,                             "--timeout needs a positive number of seconds"},
            {"--max-memory", takeCount<&CorpusOptions::maxMemoryMiB>, "--max-memory needs a positive number of MiB"},
            {"--sample",     takeCount<&CorpusOptions::sample>,       badSample},
            {"--seed",       takeSeed,                                badSeed},
        },
        .optionMark = "--",
    }.parse(arguments);
}

std::expected<CorpusReportOptions, UsageError>
CorpusReportOptions::parse(std::span<const std::string> arguments)
{
    return CommandLine<CorpusReportOptions>{
        .operands = {{takeText<&CorpusReportOptions::input>, "missing <results.jsonl>"}},
        .tooMany = "only one <results.jsonl> is accepted",
        .options = {
            {"--markdown", takeText<&CorpusReportOptions::markdown>, "--markdown needs a file", "missing --markdown <report.md>"},
            {"--json",     takeText<&CorpusReportOptions::json>,     "--json needs a file",     "missing --json <summary.json>"},
            {"--env",      takeText<&CorpusReportOptions::env>,      "--env needs a file"},
            {"--crashes",  takeText<&CorpusReportOptions::crashes>,  "--crashes needs a folder"},
            {"--sample",   takeCount<&CorpusReportOptions::sample>,  badSample},
            {"--seed",     takeSeed,                                 badSeed},
        },
        .optionMark = "--",
    }.parse(arguments);
}
// clang-format on

}
