#include "SkinKit/Base/Markdown.h"
#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Tooling/Report/CorpusReport.h"

#include <algorithm>
#include <concepts>
#include <initializer_list>

namespace SkinKit::CorpusReport {
namespace {

constexpr std::string_view twoColumns = "| | |\n|---|---|\n";

// The parts of a line as text: numbers in decimal, texts as they are.
std::string text(std::integral auto number)
{
    return std::to_string(number);
}

std::string share(double rate)
{
    return Numbers::oneDecimal(rate * 100) + "%";
}

std::string milliseconds(double ms)
{
    return Numbers::oneDecimal(ms) + " ms";
}

std::string seconds(double seconds)
{
    return Numbers::oneDecimal(seconds) + " s";
}

// "12 (34.5%)".
std::string countAndShare(std::int64_t count, double rate)
{
    return text(count) + " (" + share(rate) + ")";
}

std::string row(std::initializer_list<std::string_view> cells)
{
    std::string line = "|";
    for (const auto cell : cells)
        line.append(" ").append(cell).append(" |");
    return line + "\n";
}

std::string heading(std::string_view title)
{
    return "\n## " + std::string(title) + "\n\n";
}

std::string valueText(const JSON& value)
{
    const auto* const text = value.as<std::string>();
    return Markdown::cell(text ? *text : value.text());
}

// A row for each member of an object or an array; any other value has a row of its own.
std::string environment(const JSON& environment)
{
    std::string rows;
    if (const auto* const object = environment.as<JSON::Object>()) {
        for (const auto& [key, value] : *object)
            rows += row({Markdown::cell(key), valueText(value)});
    } else if (const auto* const array = environment.as<JSON::Array>()) {
        for (std::size_t i = 0; i < array->size(); ++i)
            rows += row({text(i), valueText((*array)[i])});
    } else {
        rows += row({"environment", valueText(environment)});
    }
    return rows;
}

std::string headline(const CorpusSummary& summary)
{
    const auto& counts = summary.counts;
    return heading("Headline").append(twoColumns) + row({"Files", text(summary.files)}) +
           row({"Unique skins", text(summary.unique)}) +
           row({"Duplicates", text(summary.duplicates)}) +
           row({"Modern (excluded from rates)", text(summary.modern)}) +
           row({"Unique classic skins", text(summary.classic)}) +
           row({"ok", countAndShare(counts.ok, summary.okRate)}) +
           row({"partial", countAndShare(counts.partial, summary.partialRate)}) +
           row({"failed", countAndShare(counts.failed, summary.failedRate)}) +
           row({"crashed / timeout / memory", text(counts.crashed) + " / " + text(counts.timeout) +
                                                  " / " + text(counts.memory)}) +
           row({"Main window complete",
                countAndShare(counts.mainWindowComplete, summary.completeRate)});
}

std::string timing(const CorpusSummary::Timing& timing)
{
    constexpr double inSeconds = 1000;
    return heading("Timing (parse plus render per skin, one at a time)").append(twoColumns) +
           row({"Skins timed", text(timing.count)}) +
           row({"Median", milliseconds(timing.medianMs)}) +
           row({"p95", milliseconds(timing.p95Ms)}) + row({"p99", milliseconds(timing.p99Ms)}) +
           row({"Max", milliseconds(timing.maxMs)}) +
           row({"Total parse plus render", seconds(timing.totalMs / inSeconds)}) +
           row({"Total wall time", seconds(timing.wallSeconds)}) +
           row({"Peak footprint", text(timing.peakFootprintMiB) + " MiB"});
}

std::string slowest(const std::vector<CorpusSummary::Slow>& slowest)
{
    std::string section = heading("Slowest " + text(slowest.size())) +
                          "| Name | md5 | Size | Entries | ms | Status |\n"
                          "|---|---|---|---|---|---|\n";
    for (const auto& slow : slowest)
        section += row({Markdown::cell(slow.name), Markdown::cell(slow.md5), text(slow.size),
                        text(slow.entries), milliseconds(slow.ms), Markdown::cell(slow.status)});
    return section;
}

std::string link(const CorpusSummary::Example& example)
{
    return Markdown::link(example.name.empty() ? example.md5 : example.name, example.url);
}

std::string failureClasses(const std::vector<CorpusSummary::FailureClass>& classes)
{
    std::string section = heading("Failure classes") +
                          "| Class | Skins | Share | Issue | Examples |\n"
                          "|---|---|---|---|---|\n";
    for (const auto& failureClass : classes) {
        std::string examples;
        for (const auto& example : failureClass.examples)
            examples.append(examples.empty() ? "" : ", ").append(link(example));
        section += row({Markdown::cell(failureClass.key), text(failureClass.count),
                        share(failureClass.share), failureClass.issue.value_or(""), examples});
    }
    return section;
}

std::string signatureOf(std::size_t skin, const std::vector<CorpusSummary::CrashLog>& logs)
{
    const auto log = std::ranges::find_if(logs, [&](const CorpusSummary::CrashLog& candidate) {
        return candidate.place == skin && !candidate.signature.empty();
    });
    return log == logs.end() ? "" : log->signature;
}

std::string crashSignatures(const CorpusSummary& summary)
{
    const std::string title = heading("Crash signatures");
    if (summary.crashed.empty())
        return title + "None. Crashed, timed out or over-memory skins: 0 (" +
               text(summary.crashLogs.size()) + " crash logs).\n";
    std::string section = title + "| Skin | md5 | Signature |\n|---|---|---|\n";
    for (std::size_t i = 0; i < summary.crashed.size(); ++i)
        section += row({link(summary.crashed[i]), Markdown::cell(summary.crashed[i].md5),
                        Markdown::cell(signatureOf(i, summary.crashLogs))});
    return section;
}

std::string sample(const CorpusSummary& summary)
{
    const auto& sample = summary.sample;
    const auto& counts = sample.counts;
    return heading("Sample of " + text(sample.requested) + " (seed " + text(sample.seed) + ")")
               .append(twoColumns) +
           row({"Skins in sample",
                text(sample.skins) + " (" + text(sample.classic) + " classic)"}) +
           row({"ok / partial / failed",
                text(counts.ok) + " / " + text(counts.partial) + " / " + text(counts.failed)}) +
           row({"Main window complete", share(sample.completeRate)}) + "\n" + summary.gate + "\n";
}

}

std::string markdown(const CorpusSummary& summary)
{
    return std::string("# Skin corpus report\n\n").append(twoColumns) +
           (summary.environment ? environment(*summary.environment) : "") + headline(summary) +
           timing(summary.timing) + slowest(summary.slowest) +
           failureClasses(summary.failureClasses) + crashSignatures(summary) + sample(summary);
}

}
