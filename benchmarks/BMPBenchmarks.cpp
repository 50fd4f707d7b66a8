#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Parsers/BMPDecoder.h"
#include "benchmarks/Cases.h"

#include <SDL.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <vector>

// Decoding a skin's bitmaps by depth, beside SDL2 doing the same (load and conversion to RGBA32),
// and beside a memcpy of the pixels that come out, each into a picture of its own as the decoders
// give them.
namespace benchmarks {
namespace {

using Files = std::vector<SkinKit::ByteBuffer>;

std::map<int, Files> bitmapsByDepth(const SkinFile& skin)
{
    constexpr std::size_t bitCountField = 28;
    std::map<int, Files> bitmaps;
    const auto archive = SkinKit::SkinArchive::open(SkinKit::ByteView(skin.bytes));
    for (const auto& [name, bytes] : archive->files())
        if (SkinKit::BMPDecoder::decode(bytes))
            bitmaps[bytes[bitCountField]].push_back(bytes);
    return bitmaps;
}

void decodeOurs(benchmark::State& state, const Files& files)
{
    for (auto _ : state)
        for (const auto& file : files)
            benchmark::DoNotOptimize(SkinKit::BMPDecoder::decode(file));
}

void decodeSDL(benchmark::State& state, const Files& files)
{
    for (auto _ : state)
        for (const auto& file : files) {
            SDL_Surface* const loaded =
                SDL_LoadBMP_RW(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())), 1);
            SDL_Surface* const converted =
                loaded ? SDL_ConvertSurfaceFormat(loaded, SDL_PIXELFORMAT_RGBA32, 0) : nullptr;
            if (!converted)
                return state.SkipWithError("SDL2 can't read it");
            SDL_FreeSurface(converted);
            SDL_FreeSurface(loaded);
        }
}

void copyPixels(benchmark::State& state, const Files& files)
{
    std::vector<SkinKit::Image> pictures;
    for (const auto& file : files)
        pictures.push_back(*SkinKit::BMPDecoder::decode(file));
    for (auto _ : state)
        for (const auto& picture : pictures) {
            auto copy = SkinKit::PixelBuffer::uncleared({picture.width(), picture.height()});
            std::memcpy(copy.data(), picture.row(0).data(), copy.count() * sizeof(SkinKit::Pixel));
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        }
}

}

void registerBMP(const SkinFile& skin)
{
    for (const auto& [depth, files] : bitmapsByDepth(skin)) {
        const std::string what = "decode " + std::to_string(depth) + "-bit";
        const auto add = [&](std::string_view who, auto run) {
            benchmark::RegisterBenchmark(
                caseName(what, skin.name, who).c_str(),
                [run, files](benchmark::State& state) { run(state, files); });
        };
        add("ours", decodeOurs);
        add("SDL2", decodeSDL);
        add("memcpy", copyPixels);
    }
}

}
