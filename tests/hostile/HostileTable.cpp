#include "tests/hostile/HostileFiles.h"
#include "tests/hostile/Trial.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>

// Prints what every hostile file costs, as a table in Markdown; or makes the files, to be looked
// at.
namespace {

using namespace hostile;

constexpr const char* usage = "usage: HostileTable SKINTOOL THUMBNAILER\n"
                              "       HostileTable --make FOLDER\n";

std::string firstLine(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}

std::string outcome(const Attempt& attempt)
{
    if (attempt.status > 128)
        return "ended by signal " + std::to_string(attempt.status - 128);
    std::string line = firstLine(attempt.said);
    if (attempt.status == 0)
        return line.empty() ? "drawn" : "drawn; " + line;
    return line;
}

// Of the first run the outcome, of all the largest cost.
void printCells(const std::vector<Attempt>& attempts)
{
    const auto most = [&](double Attempt::* cost) {
        return std::ranges::max(attempts, {}, cost).*cost;
    };
    std::printf(" %s | %.2f | %.0f |", outcome(attempts.front()).c_str(),
                most(&Attempt::processorSeconds), most(&Attempt::peakMiB));
}

void printTable(const std::filesystem::path& skintool, const std::filesystem::path& thumbnailer)
{
    std::puts("| file | what it is | skintool | s | MiB | velmar-thumbnailer | s | MiB |\n"
              "|---|---|---|---:|---:|---|---:|---:|");
    for (const HostileFile& file : files()) {
        const support::TemporaryFolder folder;
        const auto skin = folder / "skin";
        make(file, skin);
        std::printf("| %s | %s |", std::string(file.name).c_str(), std::string(file.what).c_str());
        printCells(trySkintool(skintool, skin));
        printCells(tryThumbnailer(thumbnailer, skin));
        std::puts("");
        std::fflush(stdout);
    }
}

void makeAll(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const HostileFile& file : files())
        make(file, folder / (std::string(file.name) + ".wsz"));
}

}

int main(int argc, char** argv)
try {
    if (argc != 3) {
        std::fputs(usage, stderr);
        return 2;
    }
    if (std::string(argv[1]) == "--make")
        makeAll(argv[2]);
    else
        printTable(argv[1], argv[2]);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "HostileTable: %s\n", error.what());
    return 2;
}
