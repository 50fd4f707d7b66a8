#include "SkinKit/Tooling/Corpus/FailureClasses.h"

#include "SkinKit/Base/Unicode.h"

namespace SkinKit::CorpusReport {
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
