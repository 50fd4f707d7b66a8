#pragma once

#include "SkinKit/Tooling/Corpus/CorpusSkins.h"
#include "SkinKit/Tooling/CrashLogs/CrashLog.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace SkinKit {

// Finds the skin that a crash log is about: the one whose MD5 the log's text or file name contains,
// else whose path or file name, else whose name, each as whole words. A name needs four characters,
// and does not count in a frame of a stack. Of equally good ones the longest counts, then the first
// skin. The time does not depend on the number of skins.
class CrashedSkins {
public:
    explicit CrashedSkins(std::span<const CorpusSkins::File* const> skins);

    // The skin's position among those given.
    std::optional<std::size_t> find(const CrashLog& log) const;

private:
    enum class Kind { name, file, md5 };

    // Something to find in a log, by its last word: the words in front may be folders of all skins.
    struct Mark {
        std::string text;
        std::size_t wordStart; // in `text`
        Kind kind;
        std::size_t skin;
    };

    void add(const std::string& text, Kind kind, std::size_t skin);
    // Calls `take` with every mark in `text`.
    void forEachMark(std::string_view text, auto take) const;

    std::unordered_multimap<std::string, Mark> marks_; // by that word
};

}
