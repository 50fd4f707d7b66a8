#pragma once

#include <filesystem>
#include <string>
#include <vector>

// What the programs make of a hostile file, and at what cost.
namespace hostile {

// What one file may cost a program.
struct Bounds {
    double processorSeconds;
    double peakMiB;
};
inline constexpr Bounds libraryBounds{5, 640};
inline constexpr Bounds thumbnailerBounds{3, 256};

// One run of a program.
struct Attempt {
    std::string what; // the arguments that tell it from the others
    int status = 0;   // 128 and more where a signal ended it
    std::string said; // on standard error, without the program and the file in front
    double processorSeconds = 0;
    double peakMiB = 0;
};

// Every form that opens a single skin: the picture in both states, the facts, the page, the
// windows.
std::vector<Attempt> trySkintool(const std::filesystem::path& skintool,
                                 const std::filesystem::path& skin);
// Small and as large as it goes.
std::vector<Attempt> tryThumbnailer(const std::filesystem::path& thumbnailer,
                                    const std::filesystem::path& skin);

}
