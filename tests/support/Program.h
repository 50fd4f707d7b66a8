#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace support {

// What a program did.
struct Outcome {
    int status = 0; // its exit status, or 128 and more when a signal ended it
    std::string out;
    std::string err;
    double processorSeconds = 0; // in itself and in the kernel
    double peakMiB = 0;          // of resident memory
};

// Runs a program to its end, with nothing on standard input. A `limitBytes` above 0 holds the size
// of every file it writes, a `limitSeconds` above 0 its time on the processor.
Outcome run(const std::filesystem::path& program, const std::vector<std::string>& arguments,
            long limitBytes = 0, long limitSeconds = 0);

// Kills the program (SIGKILL) when it still runs after that time.
Outcome runAndKill(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                   std::chrono::microseconds life);

}
