#pragma once

#include <chrono>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace support {

// What a program did.
struct Outcome {
    int status = 0; // its exit status, or 128 and more when a signal ended it
    std::string out;
    std::string err;

    bool operator==(const Outcome&) const = default;
    friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
    {
        return stream << outcome.status << '\n' << outcome.out << '\n' << outcome.err;
    }
};

// Runs a program to its end, with nothing on standard input. A `limitBytes` above 0 holds the size
// of every file it writes.
Outcome run(const std::filesystem::path& program, const std::vector<std::string>& arguments,
            long limitBytes = 0);

// Kills the program (SIGKILL) when it still runs after that time.
Outcome runAndKill(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                   std::chrono::microseconds life);

}
