#include "tests/hostile/HostileFiles.h"
#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

// What the programs make of hostile files, and at what cost. With --print, a table of that in
// Markdown.
namespace {

using hostile::HostileFile;
using support::Outcome;

// A program, every form of it that opens a single skin, and what one file may cost it. Each file's
// largest cost of all forms is printed, and the result of the first.
struct Program {
    const char* path;
    std::vector<const char*> forms;
    double processorSeconds;
    double peakMiB;
};
const Program programs[] = {
    {SKINTOOL_PROGRAM,
     {"-v --state idle --png OUT SKIN", "--state webamp --scale 8 --png OUT SKIN",
      "info --json SKIN", "preview --out OUT SKIN", "windows --out OUT SKIN"},
     5,                                                                           640},
    {THUMBNAILER_PROGRAM, {"SKIN OUT", "-s 4096 SKIN OUT"},                    3, 256},
};

// The outcomes of the forms, up to the first that fails: the others load the skin alike.
std::vector<Outcome> tryForms(const Program& program, const std::filesystem::path& skin)
{
    const support::TemporaryFolder folder;
    std::vector<Outcome> outcomes;
    for (const char* const form : program.forms) {
        auto words = support::words(form);
        std::ranges::replace(words, "SKIN", skin.string());
        std::ranges::replace(words, "OUT", (folder / form).string());
        outcomes.push_back(support::run(program.path, words, {.maxProcessorSeconds = 20}));
        if (outcomes.back().status != 0)
            break;
    }
    return outcomes;
}

void printCells(const std::vector<Outcome>& outcomes, const std::string& skin)
{
    std::string line = outcomes[0].err.substr(0, outcomes[0].err.find('\n'));
    if (const auto place = line.find(skin + ": "); place != line.npos)
        line.erase(0, place + skin.size() + 2);
    if (outcomes[0].status == 0)
        line.insert(0, line.empty() ? "drawn" : "drawn; ");
    const auto most = [&](double Outcome::* cost) {
        return std::ranges::max(outcomes, {}, cost).*cost;
    };
    std::printf(" %s | %.2f | %.0f |", line.c_str(), most(&Outcome::processorSeconds),
                most(&Outcome::peakMiB));
}

void printTable()
{
    std::puts("| file | what it is | skintool | s | MiB | velmar-thumbnailer | s | MiB |\n"
              "|---|---|---|---:|---:|---|---:|---:|");
    for (const HostileFile& file : hostile::files()) {
        const support::TemporaryFolder folder;
        make(file, folder / "skin");
        std::printf("| %s | %s |", file.name.data(), file.what.data());
        for (const Program& program : programs)
            printCells(tryForms(program, folder / "skin"), folder / "skin");
        std::puts("");
        std::fflush(stdout);
    }
}

class Hostile : public testing::TestWithParam<HostileFile> {};

}

TEST_P(Hostile, CostsNoMoreThanTheBounds)
{
    const support::TemporaryFolder folder;
    make(GetParam(), folder / "skin");
    for (const Program& program : programs)
        for (const Outcome& outcome : tryForms(program, folder / "skin")) {
            // It ends in order, either way, and says in a line what is wrong.
            EXPECT_TRUE(outcome.status == 0 ||
                        (outcome.status == 2 && std::ranges::count(outcome.err, '\n') == 1))
                << outcome;
            EXPECT_LT(outcome.processorSeconds, program.processorSeconds) << program.path;
            EXPECT_LT(outcome.peakMiB, program.peakMiB) << program.path;
        }
}

INSTANTIATE_TEST_SUITE_P(Files, Hostile,
                         testing::ValuesIn(hostile::files().begin(), hostile::files().end()),
                         [](const auto& row) { return std::string(row.param.name); });

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (argc < 2 || std::string_view(argv[1]) != "--print")
        return RUN_ALL_TESTS();
    printTable();
    return 0;
}
