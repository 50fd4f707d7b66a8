#include "SkinKit/Tooling/Corpus/CorpusSkins.h"

#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <utility>

namespace SkinKit {
namespace CorpusReport {
namespace {

// clang-format off
constexpr KnownIssue issues[] = {
    {"missing balance",             "#0020"},
    {"missing nums_ex",             "#0020"},
    {"missing numbers",             "#0020"},
    {"missing eq_ex",               "#0020"},
    {"missing gen",                 "#0020"},
    {"viscolor",                    "#0020"},
    {"missing numbers and nums_ex", "#0020"},
};
// clang-format on

std::string without(std::string_view text, std::string_view part)
{
    std::string rest;
    for (auto found = text.find(part); found != text.npos; found = text.find(part)) {
        rest.append(text.substr(0, found));
        text.remove_prefix(found + part.size());
    }
    return rest.append(text);
}

}

std::string errorClassKey(std::string_view error)
{
    if (error.starts_with("Unreadable archive"))
        return "unreadableArchive";
    if (error.starts_with("No classic skin bitmaps"))
        return "noBitmaps";
    return std::string(error);
}

std::string warningClassKey(std::string_view warning)
{
    const std::string key = Unicode::lowercased(warning);
    if (key.starts_with("missing ") || key.starts_with("undecodable "))
        return without(key, ".bmp");
    return key.contains("viscolor") ? "viscolor" : key;
}

std::span<const KnownIssue> knownIssues()
{
    return issues;
}

}

void CorpusSkins::add(CorpusRecord record)
{
    if (record.t) {
        firstTime_ = std::min(firstTime_.value_or(*record.t), *record.t);
        lastTime_ = std::max(lastTime_.value_or(*record.t), *record.t);
    }
    peakFootprintMiB_ = std::max(peakFootprintMiB_, record.footprintMiB.value_or(0));
    if (record.event != "result" || record.status == "duplicate")
        return;

    File& file = place(record.path);
    file.isDuplicate = record.of.has_value();
    file.classes = classesOf(record);
    file.path = std::move(record.path).value_or("");
    file.name = std::move(record.name).value_or("");
    file.md5 = std::move(record.md5).value_or("");
    file.museumUrl = std::move(record.museumUrl).value_or("");
    file.status = std::move(record.status).value_or("");
    file.size = record.size.value_or(0);
    file.entries = record.entries.value_or(0);
    file.ms = record.ms;
    file.mainWindowComplete = record.mainWindowComplete.value_or(false);
}

double CorpusSkins::wallSeconds() const
{
    return firstTime_ ? *lastTime_ - *firstTime_ : 0;
}

CorpusSkins::File& CorpusSkins::place(const std::optional<std::string>& path)
{
    if (!path)
        return files_.emplace_back();
    const auto [found, isNew] = places_.try_emplace(*path, files_.size());
    return isNew ? files_.emplace_back() : files_[found->second];
}

std::vector<std::uint32_t> CorpusSkins::classesOf(const CorpusRecord& record)
{
    std::vector<std::uint32_t> classes;
    const std::string_view status = record.status ? *record.status : std::string_view();
    if (record.of || status == "modern" || CorpusRecord::isAbnormalEnd(status))
        return classes;
    if (status == "failed")
        classes.push_back(
            classOf(record.error ? CorpusReport::errorClassKey(*record.error) : "unknown"));
    if (record.warnings)
        for (const auto& warning : *record.warnings)
            classes.push_back(classOf(CorpusReport::warningClassKey(warning)));
    std::ranges::sort(classes);
    const auto repeated = std::ranges::unique(classes);
    classes.erase(repeated.begin(), repeated.end());
    return classes;
}

std::uint32_t CorpusSkins::classOf(std::string key)
{
    const auto [found, isNew] =
        classes_.try_emplace(std::move(key), static_cast<std::uint32_t>(classKeys_.size()));
    if (isNew)
        classKeys_.push_back(found->first);
    return found->second;
}

}
