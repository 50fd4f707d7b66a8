#pragma once

#include "SkinKit/System/Files.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace SkinKit {

// One line of a results file: a skin about to be processed, what came of it, or the end of the run.
// What does not apply is absent.
struct CorpusRecord {
    std::string event;               // "start", "result" or "end"
    std::optional<std::int64_t> i;   // the file's place in the listing, from 0
    std::optional<std::string> path; // below the collection's folder
    std::optional<std::string> name; // the file's, without its extension
    std::optional<std::string> md5;  // 32 lower-case hexadecimal digits
    std::optional<std::int64_t> size;
    std::optional<std::int64_t> entries; // of the archive; 0 when it could not be opened
    // "ok", "partial", "failed", "modern", "crashed", "timeout" or "memory"
    std::optional<std::string> status;
    std::optional<bool> mainWindowComplete; // all required sprites are the skin's own
    std::optional<std::vector<std::string>> warnings;
    std::optional<std::vector<std::string>> fallbacks;
    std::optional<std::string> error;
    std::optional<double> parseMs; // milliseconds for opening and parsing
    std::optional<double> renderMs;
    std::optional<double> ms;                 // for the whole skin
    std::optional<std::string> of;            // of a duplicate: the path of the first such file
    std::optional<std::int64_t> restart;      // number of the crash or overrun
    std::optional<std::int64_t> footprintMiB; // the process's peak so far
    std::optional<double> t;                  // when written, in seconds since 1970-01-01 UTC
    std::optional<std::string> museumUrl;
    std::optional<bool> nsfw;

    bool operator==(const CorpusRecord&) const = default;

    // Whether the skin had no chance to answer: it crashed or overran a limit.
    bool isAbnormalEnd() const { return status && isAbnormalEnd(*status); }
    static bool isAbnormalEnd(std::string_view status);

    // The present time, for `t`.
    static double now();

    // One JSON object with sorted keys, without the line feed.
    std::string line() const;
    // What a line says; nothing when it is no such object or a field has another type. Other keys
    // are passed over.
    static std::optional<CorpusRecord> parse(std::string_view line);
};

// A results file, in the order of its lines. Lines that are no record are skipped, such as one that
// was cut off when the process that wrote it ended.
namespace CorpusRecords {

// Gives the records to `take` one by one, so that a long file costs no memory.
std::error_code read(const std::filesystem::path& file,
                     const std::function<void(CorpusRecord)>& take);
// All of them; none when the file is missing.
Files::Result<std::vector<CorpusRecord>> readAll(const std::filesystem::path& file);

}

}
