#pragma once

#include <filesystem>
#include <ostream>
#include <span>
#include <string_view>

// Skins made to cost whoever opens them as much as possible: memory, time, or both. One file for
// each class of cost.
namespace hostile {

struct HostileFile {
    std::string_view name; // letters and digits
    std::string_view what;
    // Makes the file or folder that is then opened.
    void (*make)(const std::filesystem::path& path);

    friend std::ostream& operator<<(std::ostream& stream, const HostileFile& file)
    {
        return stream << file.what;
    }
};

std::span<const HostileFile> files();

// Makes one in a process of its own, so that this one's memory stays as small as it was.
void make(const HostileFile& file, const std::filesystem::path& path);

}
