#include "SkinKit/Graphics/PixelBuffer.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Equalizer/EQGraph.h"
#include "benchmarks/Cases.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <vector>

// Drawing the equalizer's graph as a new image, beside a memset of as many bytes.
namespace benchmarks {

void registerEQ(const SkinFile& skin)
{
    using namespace SkinKit;
    benchmark::RegisterBenchmark(
        caseName("equalizer graph", skin.name, "ours").c_str(),
        [parsed = SkinParser::parse(skin.path)](benchmark::State& state) {
            constexpr std::array<double, 10> bands{100, 80, 65, 50, 30, 0, 20, 50, 90, 100};
            for (auto _ : state)
                benchmark::DoNotOptimize(EQGraph::render(*parsed, bands, 60));
        });
    benchmark::RegisterBenchmark(
        caseName("equalizer graph", skin.name, "memset").c_str(), [](benchmark::State& state) {
            std::vector<Pixel> pixels(static_cast<std::size_t>(EQGraph::size.width) *
                                      static_cast<std::size_t>(EQGraph::size.height));
            for (auto _ : state) {
                std::memset(pixels.data(), 1, pixels.size() * sizeof(Pixel));
                benchmark::ClobberMemory();
            }
        });
}

}
