#pragma once

#include <chrono>
#include <filesystem>
#include <iterator>
#include <optional>
#include <ostream>
#include <sstream>
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

    // What it says, whatever that cost.
    bool operator==(const Outcome& other) const
    {
        return status == other.status && out == other.out && err == other.err;
    }
    friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
    {
        return stream << outcome.status << '\n' << outcome.out << '\n' << outcome.err;
    }
};

// For the thumbnailer where it is built with the address sanitizer: shut in, it can't look for
// leaks at its end.
inline constexpr auto variableForTheShutIn = "ASAN_OPTIONS=detect_leaks=0:quarantine_size_mb=16";

// What a program finds itself in. Limits of 0 are none.
struct Setting {
    long maxFileBytes = 0;              // of every file it writes
    long maxMemoryBytes = 0;            // of address space
    long maxProcessorSeconds = 0;       // in itself and in the kernel
    unsigned seconds = 0;               // until SIGALRM ends it
    std::vector<std::string> variables; // "NAME=value", besides those that we have
    std::vector<int> closedStreams;     // of 0, 1 and 2
    // After which SIGKILL ends it.
    std::optional<std::chrono::microseconds> life;
};

// Runs a program to its end, with nothing on standard input.
Outcome run(const std::filesystem::path& program, const std::vector<std::string>& arguments,
            const Setting& setting);

// The same with a limit on the size of every file it writes, unless it is 0.
inline Outcome run(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                   long limitBytes = 0)
{
    return run(program, arguments, Setting{.maxFileBytes = limitBytes});
}

// A command line as its arguments, none of which has a blank in it.
inline std::vector<std::string> words(const std::string& line)
{
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

}
