#pragma once

#include "SkinKit/System/Files.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace SkinKit {

// What was noted down when a process crashed: the output of gdb or AddressSanitizer, or what the C
// library said before it gave up. Usually one crash each; of several the first counts.
struct CrashLog {
    // What one log, and all together, may hold of their texts. A longer log loses its middle; past
    // the total, only signatures and file names are kept.
    static constexpr std::int64_t maxBytes = 1 << 20;
    static constexpr std::int64_t maxTotalBytes = 64 << 20;

    std::string file;      // its name in its folder, UTF-8
    std::string text;      // UTF-8, without colours
    std::string signature; // of `text`; empty without a stack and an abort line

    bool operator==(const CrashLog&) const = default;

    // Of a text as it was found, which may be coloured.
    static CrashLog of(std::string_view file, std::string_view text);

    // What tells one crash from another: the top three frames of the thread that crashed, innermost
    // first and joined by arrows ("parse ← load ← main"). Frames by which a process aborts itself,
    // the same in every such crash, are left out, and so are those of a signal handler. Without a
    // stack the C library's line on why it aborted.
    static std::string signatureOf(std::string_view text);

    // What was found in a folder, in the order of the files' names.
    struct Folder;

    // The text files that stand directly in a folder. Links and binary files (such as core dumps)
    // are passed over. Fails when the folder can't be read.
    static Files::Result<Folder> readFolder(const std::filesystem::path& folder);
};

struct CrashLog::Folder {
    // A file that can't be read, and why.
    struct UnreadFile {
        std::filesystem::path path;
        std::error_code error;
    };

    std::vector<CrashLog> logs;
    std::vector<UnreadFile> unreadFiles;
};

}
