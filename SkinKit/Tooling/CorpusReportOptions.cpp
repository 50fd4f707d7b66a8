#include "SkinKit/Tooling/CorpusReportOptions.h"

#include "SkinKit/Tooling/CommandLine.h"

namespace SkinKit {
namespace {

using Form = CommandLine<CorpusReportOptions>;

// clang-format off
constexpr Form::Value values[] = {
    {"--markdown", takeText<&CorpusReportOptions::markdown>, "--markdown needs a file"},
    {"--json",     takeText<&CorpusReportOptions::json>,     "--json needs a file"},
    {"--env",      takeText<&CorpusReportOptions::env>,      "--env needs a file"},
    {"--crashes",  takeText<&CorpusReportOptions::crashes>,  "--crashes needs a folder"},
    {"--sample",   takeCount<&CorpusReportOptions::sample>,  "--sample needs a positive count"},
    {"--seed",     takeSeed<&CorpusReportOptions::seed>,     "--seed needs a non-negative integer"},
};
constexpr Form::Required required[] = {
    {"",           "missing <results.jsonl>"},
    {"--markdown", "missing --markdown <report.md>"},
    {"--json",     "missing --json <summary.json>"},
};
// clang-format on

}

const std::string_view CorpusReportOptions::usage =
    "usage: skintool corpus-report <results.jsonl> --markdown <report.md> --json <summary.json> "
    "[--env <env.json>] [--sample <N>=1000] [--seed <n>=1] [--crashes <dir>]";

std::expected<CorpusReportOptions, CorpusReportOptions::UsageError>
CorpusReportOptions::parse(std::span<const std::string> arguments)
{
    return Form{{}, values, "only one <results.jsonl> is accepted", required}.parse(arguments);
}

}
