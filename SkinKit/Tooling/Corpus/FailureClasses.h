#pragma once

#include <span>
#include <string>
#include <string_view>

// What skins fail at or lack, sorted into classes that each have a key.
namespace SkinKit::CorpusReport {

// Of an error: "unreadableArchive", "noBitmaps", or the text itself.
std::string errorClassKey(std::string_view error);
// Of a warning, in lower case: "missing gen", "viscolor", or the text itself.
std::string warningClassKey(std::string_view warning);

// A class, and what the tracker calls it.
struct KnownIssue {
    std::string_view classKey;
    std::string_view issue;
};

// The classes that are in the tracker.
std::span<const KnownIssue> knownIssues();

}
