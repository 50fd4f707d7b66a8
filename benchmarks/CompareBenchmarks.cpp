#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/ImageDiff.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "benchmarks/Cases.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

// Comparing two pictures of 1100 × 464 pixels of which one in a hundred differs, beside memcmp,
// which has nothing to count.
namespace benchmarks {
namespace {

using namespace SkinKit;

Image withDifferences(const Image& image)
{
    auto pixels = PixelBuffer::uninitialized(image.size());
    std::memcpy(pixels.data(), image.row(0).data(), pixels.count() * sizeof(Pixel));
    for (std::size_t i = 0; i < pixels.count(); i += 100)
        pixels.data()[i] ^= 0x010101;
    return {std::move(pixels), Image::Alpha::any};
}

}

void registerCompare(const SkinFile& skin)
{
    const auto parsed = SkinParser::parse(skin.path);
    const Image image =
        MainWindowRenderer::render(*parsed, MainWindowState::webampScreenshot(), 4, Clip::none);
    const auto pixelCount = static_cast<double>(image.width()) * image.height();
    benchmark::RegisterBenchmark(
        caseName("compare", skin.name, "ours").c_str(),
        [image, other = withDifferences(image), pixelCount](benchmark::State& state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(ImageDiff::compare(image, other));
            state.counters["Mpx/s"] =
                benchmark::Counter(pixelCount * static_cast<double>(state.iterations()) / 1e6,
                                   benchmark::Counter::kIsRate);
        });
    benchmark::RegisterBenchmark(
        caseName("compare", skin.name, "memcmp").c_str(),
        [image, pixelCount](benchmark::State& state) {
            const std::vector<Pixel> same(
                image.row(0).data(), image.row(0).data() + static_cast<std::size_t>(pixelCount));
            for (auto _ : state)
                benchmark::DoNotOptimize(
                    std::memcmp(image.row(0).data(), same.data(), same.size() * sizeof(Pixel)));
        });
}

}
