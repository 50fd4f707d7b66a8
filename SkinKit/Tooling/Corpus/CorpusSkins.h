#pragma once

#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace SkinKit {

// The files of a collection as the results of one or more runs have them, each as its last result
// says, in the order of their first ones. Holds only what a report needs, a few hundred bytes a
// file, so that the records themselves can be dropped one by one.
class CorpusSkins {
public:
    // One file, as its last result says.
    struct File {
        std::string path;
        std::string name;
        std::string md5;
        std::string museumUrl;
        std::string status;
        std::int64_t size = 0;
        std::int64_t entries = 0;
        std::optional<double> ms;
        bool mainWindowComplete = false;
        bool isDuplicate = false; // of another file, and then no skin of its own
        // What the skin fails at or lacks: places in classKeys(), ascending, none twice.
        std::vector<std::uint32_t> classes;

        bool isModern() const { return status == "modern"; }
        bool isAbnormalEnd() const { return CorpusRecord::isAbnormalEnd(status); }
    };

    // Takes note of the next record, of any event. Results without a path are files of their own.
    // One with the status "duplicate", as other programs write, is passed over.
    void add(CorpusRecord record);

    std::span<const File> files() const { return files_; }
    std::span<const std::string> classKeys() const { return classKeys_; }
    // From the first record to the last, in seconds.
    double wallSeconds() const;
    std::int64_t peakFootprintMiB() const { return peakFootprintMiB_; }

private:
    File& place(const std::optional<std::string>& path);
    std::vector<std::uint32_t> classesOf(const CorpusRecord& record);
    std::uint32_t classOf(std::string key);

    std::vector<File> files_;
    std::unordered_map<std::string, std::size_t> places_; // in files_, by path
    std::vector<std::string> classKeys_;
    std::unordered_map<std::string, std::uint32_t> classes_; // places in classKeys_
    std::optional<double> firstTime_;
    std::optional<double> lastTime_;
    std::int64_t peakFootprintMiB_ = 0;
};

// What skins fail at or lack, sorted into classes that each have a key.
namespace CorpusReport {

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

}
