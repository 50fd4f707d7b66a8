#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/Process.h"
#include "benchmarks/Cases.h"
#include "benchmarks/RatioReporter.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace benchmarks;

bool addSkin(const std::filesystem::path& path, std::vector<SkinFile>& skins)
{
    auto bytes = SkinKit::Files::read(path, 64 << 20);
    if (!bytes) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), bytes.error().message().c_str());
        return false;
    }
    skins.push_back({path.stem().string(), path, std::move(*bytes)});
    return true;
}

// The skins named by the arguments that are no options, else our samples.
std::vector<std::filesystem::path> skinPaths(int argc, char** argv)
{
    std::vector<std::filesystem::path> paths(argv + 1, argv + argc);
    if (paths.empty())
        for (const auto& entry : std::filesystem::directory_iterator(SKINKIT_SAMPLES))
            paths.push_back(entry.path());
    std::ranges::sort(paths);
    return paths;
}

}

// Usage: SkinKitBenchmarks [--benchmark_…] [skin …]
int main(int argc, char** argv)
{
    SkinKit::Process::preallocateMemory(); // as skintool does
    // Many short repetitions in random order, of which the fastest counts: what else runs on the
    // machine slows some of them down, never all.
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::string repetitions = "--benchmark_repetitions=60";
    std::string shortest = "--benchmark_min_time=0.005";
    std::vector<char*> arguments{argv[0], interleave.data(), repetitions.data(), shortest.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());

    std::vector<SkinFile> skins;
    for (const auto& path : skinPaths(count, arguments.data()))
        if (!addSkin(path, skins))
            return 2;
    for (const SkinFile& skin : skins)
        for (const auto registerCases :
             {registerArchive, registerBMP, registerRender, registerEQ, registerPlaylist,
              registerPNG, registerCompare, registerPipeline})
            registerCases(skin);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
