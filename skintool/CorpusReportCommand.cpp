#include "skintool/Commands.h"

#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/OutputFile.h"
#include "SkinKit/Tooling/CommandLine/OutputCheck.h"
#include "SkinKit/Tooling/Report/CorpusReport.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace skintool::CorpusReportCommand {
namespace {

using namespace SkinKit;

// Which file is the trouble, and what is wrong with it.
struct Trouble {
    std::string file; // empty when `text` names it
    std::string text;
};

// A device or the like takes several.
bool wouldMakeOneFile(const std::filesystem::path& a, const std::filesystem::path& b)
{
    std::error_code ignored;
    return OutputCheck::isSame(a, b) &&
           (!std::filesystem::exists(a, ignored) || std::filesystem::is_regular_file(a, ignored));
}

// Why the files named can't be used together, before any is written.
std::optional<Trouble> conflict(const CorpusReportOptions& options)
{
    std::vector<OutputCheck::Input> inputs{
        {options.input, "the results file"}
    };
    if (options.env)
        inputs.push_back({*options.env, "the environment's description"});
    if (options.crashes)
        inputs.push_back(OutputCheck::crashLogs(*options.crashes));
    if (const auto found = OutputCheck::find(inputs, {options.markdown, options.json}))
        return Trouble{found->output.string(), found->text};
    if (wouldMakeOneFile(options.markdown, options.json))
        return Trouble{options.json, "is named for both the report and the summary"};
    return std::nullopt;
}

std::expected<std::optional<JSON>, Trouble> readEnvironment(const CorpusReportOptions& options)
{
    constexpr std::int64_t maxBytes = 16 << 20;
    if (!options.env)
        return std::nullopt;
    const auto bytes = Files::read(*options.env, maxBytes);
    if (!bytes)
        return std::unexpected(Trouble{*options.env, bytes.error().message()});
    auto json = JSON::parse(asText(*bytes));
    if (!json)
        return std::unexpected(Trouble{*options.env, json.error()});
    return std::move(*json);
}

std::expected<std::vector<CrashLog>, Trouble> readCrashLogs(const CorpusReportOptions& options)
{
    if (!options.crashes)
        return {};
    auto found = CrashLog::readFolder(*options.crashes);
    if (!found)
        return std::unexpected(Trouble{*options.crashes, found.error().message()});
    for (const auto& [file, error] : found->unreadFiles)
        Console::sayError(file.string(), "crash log skipped: " + error.message());
    return std::move(found->logs);
}

// Fails for a file without a skin: it holds no results, or those of a run over an empty collection.
std::expected<CorpusSkins, Trouble> readSkins(const CorpusReportOptions& options)
{
    CorpusSkins skins;
    bool hasSkins = false;
    const auto take = [&](CorpusRecord record) {
        hasSkins = hasSkins || record.event == "start" || record.event == "result";
        skins.add(std::move(record));
    };
    if (const auto error = CorpusRecords::read(options.input, take))
        return std::unexpected(Trouble{options.input, error.message()});
    if (!hasSkins)
        return std::unexpected(Trouble{"", "no results in " + options.input});
    return skins;
}

std::expected<CorpusSummary, Trouble> summarize(const CorpusReportOptions& options)
{
    if (auto trouble = conflict(options))
        return std::unexpected(std::move(*trouble));
    auto environment = readEnvironment(options);
    if (!environment)
        return std::unexpected(std::move(environment.error()));
    const auto crashLogs = readCrashLogs(options);
    if (!crashLogs)
        return std::unexpected(crashLogs.error());
    const auto skins = readSkins(options);
    if (!skins)
        return std::unexpected(skins.error());
    return CorpusReport::summarize(*skins, std::move(*environment), options.sample, options.seed,
                                   *crashLogs);
}

ExitStatus say(const Trouble& trouble)
{
    if (trouble.file.empty())
        Console::sayError(trouble.text);
    else
        Console::sayError(trouble.file, trouble.text);
    return ExitStatus::trouble;
}

}

const std::string_view help = R"(Examples:
  skintool corpus-report run1/results.jsonl --markdown report.md --json summary.json
  skintool corpus-report run1/results.jsonl --markdown report.md --json summary.json \
      --env machine.json --crashes logs

Sums up what a run of `skintool corpus` found: how many skins load, what the others
lack, how long they take, which crash. The gate passes when none of a sample of skins
crashed and at least 95% of their main windows are complete.

Options:
  --markdown <report.md>   the report to write, for people
  --json <summary.json>    the same numbers to write, for programs
  --env <env.json>         a JSON document on the machine and the build, shown in the
                           report and passed on in the summary
  --sample <N>             how many skins the gate looks at (default 1000)
  --seed <n>               which ones: the same for the same seed (default 1)
  --crashes <dir>          a folder with crash logs, output of gdb or AddressSanitizer;
                           a log belongs to the skin whose MD5 or name it holds
  -h, --help               this text
  --version                the version

Exit status: 0 the gate passes; 1 it fails; 2 trouble.)";

ExitStatus run(const CorpusReportOptions& options)
{
    const auto summary = summarize(options);
    if (!summary)
        return say(summary.error());

    constexpr int indent = 2;
    const std::string markdown = CorpusReport::markdown(*summary);
    const std::string json = summary->json().text(indent) + "\n";
    for (const auto& [path, text] :
         {std::pair(&options.markdown, &markdown), std::pair(&options.json, &json)})
        if (const auto error = Files::write(*path, asBytes(*text)))
            return say({*path, error.message()});
    Console::print(summary->gate);
    return summary->gatePass ? done : answerIsNo;
}

}
