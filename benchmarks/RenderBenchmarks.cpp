#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "benchmarks/Cases.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

// Drawing the whole window into a canvas that is used again and again, beside a memset of as many
// bytes.
namespace benchmarks {

void registerRender(const SkinFile& skin)
{
    using namespace SkinKit;
    const auto parsed = SkinParser::parse(skin.path);
    for (const int scale : {1, 2, 4, 8}) {
        const std::string what = "render " + std::to_string(scale) + "x";
        benchmark::RegisterBenchmark(
            caseName(what, skin.name, "ours").c_str(), [parsed, scale](benchmark::State& state) {
                Canvas canvas(*MainWindowRenderer::size({}, scale));
                const auto window = MainWindowState::webampScreenshot();
                for (auto _ : state) {
                    MainWindowRenderer::draw(canvas, {0, 0}, *parsed, window, scale, Clip::none);
                    benchmark::ClobberMemory();
                }
            });
        benchmark::RegisterBenchmark(
            caseName(what, skin.name, "memset").c_str(), [scale](benchmark::State& state) {
                const Size size = *MainWindowRenderer::size({}, scale);
                std::vector<Pixel> pixels(static_cast<std::size_t>(size.width) *
                                          static_cast<std::size_t>(size.height));
                for (auto _ : state) {
                    std::memset(pixels.data(), 1, pixels.size() * sizeof(Pixel));
                    benchmark::ClobberMemory();
                }
            });
    }
}

}
