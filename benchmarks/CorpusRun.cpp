#include "SkinKit/Base/Encodings.h"
#include "SkinKit/Tooling/Corpus/CorpusRunner.h"
#include "tests/support/Collection.h"
#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <vector>

// A run over a collection of different skins, made from the samples: what a skin costs beside
// loading and rendering it and bringing the same bytes to the disk in two pieces; what the listing
// costs beside the digest alone; and whether the memory stays as it is.
namespace {

using namespace SkinKit;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;
using Progress = CorpusRunner::Progress;

long residentKiB()
{
    long all = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

double median(std::vector<double> values)
{
    std::ranges::nth_element(values, values.begin() + std::ssize(values) / 2);
    return values[values.size() / 2];
}

double sum(const std::vector<double>& values)
{
    double total = 0;
    for (const double value : values)
        total += value;
    return total;
}

// Takes turns with the run: after each of its skins it does the bare work for another one.
class Peer {
public:
    Peer(std::vector<fs::path> skins, fs::path results, const fs::path& scratch)
        : skins_(std::move(skins)), results_(std::move(results)),
          scratch_(::open(scratch.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600))
    {
    }
    ~Peer() { ::close(scratch_); }

    void take(const Progress& progress)
    {
        const auto now = Clock::now();
        if (progress.phase == Progress::Phase::listing) {
            listingTime += Microseconds(now - turn_).count();
        } else if (progress.phase == Progress::Phase::running && progress.done == 0) {
            results_.open();
        } else if (progress.phase == Progress::Phase::running) {
            ours.push_back(Microseconds(now - turn_).count());
            doTheSame(skins_[(static_cast<std::size_t>(progress.done) + skins_.size() / 2) %
                             skins_.size()]);
            if (progress.done == 100)
                early = residentKiB();
            late = residentKiB();
        }
        turn_ = Clock::now();
    }

    std::vector<double> ours, bare; // microseconds for each skin
    double listingTime = 0;
    long early = 0, late = 0; // KiB resident after the 100th and after the last skin

private:
    // The results file, read behind the run's back.
    class Follower {
    public:
        explicit Follower(fs::path path) : path_(std::move(path)) {}

        void open() { file_.open(path_); }
        std::string nextLine()
        {
            file_.clear();
            std::string line;
            std::getline(file_, line);
            return line + "\n";
        }

    private:
        fs::path path_;
        std::ifstream file_;
    };

    void doTheSame(const fs::path& skin)
    {
        const std::string start = results_.nextLine();
        const std::string result = results_.nextLine();
        const auto begin = Clock::now();
        write(start);
        CorpusRunner::processSkin(skin);
        write(result);
        bare.push_back(Microseconds(Clock::now() - begin).count());
    }

    void write(const std::string& text) const
    {
        if (::write(scratch_, text.data(), text.size()) != std::ssize(text) ||
            ::fdatasync(scratch_) != 0)
            std::perror("writing");
    }

    std::vector<fs::path> skins_;
    Follower results_;
    int scratch_;
    Clock::time_point turn_ = Clock::now();
};

double digestTime(const std::vector<fs::path>& skins)
{
    double total = 0;
    for (const auto& path : skins) {
        const auto bytes = support::readFile(path);
        const auto begin = Clock::now();
        MD5 digest;
        digest.add(bytes);
        digest.hexDigest();
        total += Microseconds(Clock::now() - begin).count();
    }
    return total;
}

void print(const char* what, double ours, double peer, const char* unit)
{
    std::printf("%-34s %10.1f : %10.1f %s = %.3f\n", what, ours, peer, unit, ours / peer);
}

}

int main(int argc, char** argv)
{
    std::size_t count = 10'000;
    if (argc > 1)
        std::from_chars(argv[1], argv[1] + std::string_view(argv[1]).size(), count);
    const support::TemporaryFolder folder;
    support::writeCollection(folder / "skins", support::readFolder(SKINKIT_SAMPLES), count);
    std::vector<fs::path> skins;
    for (const auto& entry : fs::recursive_directory_iterator(folder / "skins"))
        if (entry.is_regular_file())
            skins.push_back(entry.path());
    std::ranges::sort(skins);

    Peer peer(skins, folder / "out/results.jsonl", folder / "scratch");
    const CorpusRunner runner(folder / "skins", folder / "out", {}, CorpusRunner::Hooks::live(),
                              [](const auto&) {},
                              {.advance = [&](const Progress& progress) { peer.take(progress); }});
    if (const auto totals = runner.run(); !totals) {
        std::fprintf(stderr, "%s\n", totals.error().description.c_str());
        return 2;
    }
    std::printf("%zu different skins\n", count);
    print("a skin, median", median(peer.ours), median(peer.bare), "us");
    print("a skin, mean", sum(peer.ours) / static_cast<double>(count),
          sum(peer.bare) / static_cast<double>(count), "us");
    print("listing with fingerprints, in all", peer.listingTime, digestTime(skins), "us");
    std::printf("resident after skin 100 and the last: %ld and %ld KiB\n", peer.early, peer.late);
}
