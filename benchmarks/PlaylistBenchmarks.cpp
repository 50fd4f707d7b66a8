#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "benchmarks/Cases.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

// Drawing a large playlist window, full of long titles, into a canvas that is used again and again,
// beside a memset of as many bytes.
namespace benchmarks {
namespace {

using namespace SkinKit;

PlaylistWindowState largeList()
{
    PlaylistWindowState state{
        .current = 7, .steps = {11, 16},
             .scrollPosition = 50
    };
    for (int i = 0; i < 500; ++i)
        state.entries.push_back({"The Artist of Number " + std::to_string(i) +
                                     " - A Title Long Enough to Fill Its Row (Extended Version)",
                                 200.0 + i, i % 5 == 0});
    return state;
}

}

void registerPlaylist(const SkinFile& skin)
{
    const auto parsed = SkinParser::parse(skin.path);
    for (const int scale : {1, 2}) {
        const std::string what = "playlist " + std::to_string(scale) + "x";
        const auto window = largeList();
        const Size size = *PlaylistWindowRenderer::size(window, scale);
        benchmark::RegisterBenchmark(caseName(what, skin.name, "ours").c_str(),
                                     [parsed, window, size, scale](benchmark::State& state) {
                                         Canvas canvas(size);
                                         for (auto _ : state) {
                                             PlaylistWindowRenderer::draw(canvas, {0, 0}, *parsed,
                                                                          window, scale,
                                                                          Clip::none);
                                             benchmark::ClobberMemory();
                                         }
                                     });
        benchmark::RegisterBenchmark(
            caseName(what, skin.name, "memset").c_str(), [size](benchmark::State& state) {
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
