#pragma once

#include "SkinKit/System/Files.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace SkinKit {

// The output of gdb or AddressSanitizer on one crash, or the message of the C library before it
// ended the process.
struct CrashLog {
    // The limits for the text of one log, and of all. A longer log loses its middle; past the
    // total, only file names and signatures are kept.
    static constexpr std::int64_t maxBytes = 1 << 20;
    static constexpr std::int64_t maxTotalBytes = 64 << 20;

    std::string file;      // its name in its folder, UTF-8
    std::string text;      // UTF-8
    std::string signature; // of `text`; empty without a named frame and an abort message

    bool operator==(const CrashLog&) const = default;

    static CrashLog of(std::string_view file, std::string_view text);

    // What distinguishes one crash from another: the three innermost frames that have a name, of
    // the thread that crashed, joined by arrows ("parse ← load ← main"). Frames of a signal
    // handler, and those by which a process aborts itself, are skipped. Without a named frame the
    // message of the C library.
    static std::string signatureOf(std::string_view text);

    // Whether a line shows a frame of a stack: "#1  0x0000555555555516 in Skin::parse (…".
    static bool isFrame(std::string_view line);

    struct Folder;

    // The text files directly in a folder, in ascending byte order of their names. Links and binary
    // files (such as core dumps) are skipped. Fails when the folder can't be read.
    static Files::Result<Folder> readFolder(const std::filesystem::path& folder);
};

struct CrashLog::Folder {
    struct UnreadFile {
        std::filesystem::path path;
        std::error_code error;
    };

    std::vector<CrashLog> logs;
    std::vector<UnreadFile> unreadFiles;
};

}
