#pragma once

#include "SkinKit/Tooling/Corpus/CorpusSkins.h"
#include "SkinKit/Tooling/CrashLogs/CrashLog.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace SkinKit {

// Finds out which skin a crash log is about: the one whose fingerprint it holds, else whose path or
// file name, else whose name. A log's own file name is as good as its text. All must stand there as
// whole words. Of equally good ones the longest counts, and the first of several skins of that
// name.
class CrashedSkins {
public:
    explicit CrashedSkins(std::span<const CorpusSkins::File* const> skins);

    // The skin's place among those given.
    std::optional<std::size_t> find(const CrashLog& log) const;

private:
    enum class Kind { name, file, md5 };

    // Something that may stand in a log. It is looked for by one of its words: the last of a
    // file's name, as those before may be folders that all have in common.
    struct Mark {
        std::string text;
        std::size_t wordStart; // of that word, in `text`
        Kind kind;
        std::size_t skin;
    };

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    void add(std::string_view text, Kind kind, std::size_t skin);
    // Calls with every mark that stands in `text` as whole words.
    void forEachMark(std::string_view text, auto take) const;

    std::unordered_multimap<std::string, Mark, Hash, std::equal_to<>> marks_; // by that word
};

}
