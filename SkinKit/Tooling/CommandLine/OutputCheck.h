#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The rule for every command that writes: no output is a file that the command reads, or one that
// it would read from a folder the next time.
namespace SkinKit::OutputCheck {

// What a command reads: a file, or a folder with certain files in it.
struct Input {
    std::filesystem::path path;
    std::string_view name; // "the skin"
    // For folders: what a file in it is ("a file of the skin"), and whether one of that name, given
    // below the folder, is read.
    std::string_view part;
    bool (*isRead)(const std::filesystem::path& below) = nullptr;
};

Input skin(std::filesystem::path path);       // an archive or a folder
Input collection(std::filesystem::path path); // a folder of skins, and the folders below it
Input crashLogs(std::filesystem::path path);

// The output that can't be written, and why.
struct Conflict {
    std::filesystem::path output;
    std::string text;

    bool operator==(const Conflict&) const = default;
};

// The first of the outputs that breaks the rule. Neither inputs nor outputs need exist. To be asked
// before anything is written.
std::optional<Conflict> find(const std::vector<Input>& inputs,
                             const std::vector<std::filesystem::path>& outputs);

// Whether both names lead to the same file or folder, or would if it were made.
bool isSame(const std::filesystem::path& a, const std::filesystem::path& b);

}
