#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Graphics/BMPDecoder.h"
#include "benchmarks/Cases.h"

#include <SDL.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <map>
#include <vector>

// Decoding a skin's bitmaps by depth, beside SDL2 doing the same (load and conversion to RGBA32),
// and beside a memcpy of the pixels that come out, each into a picture of its own as the decoders
// give them. Then bitmaps of the same sizes in formats that few skins have, beside the memcpy.
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

struct Format {
    std::string_view name;
    std::uint32_t bitCount;
    std::uint32_t red, green, blue; // masks, where there are any
};
// clang-format off
constexpr Format formats[] = {
    {"32-bit without masks",   32, 0,          0,          0         },
    {"32-bit, 8-bit masks",    32, 0x000000FF, 0x0000FF00, 0x00FF0000},
    {"32-bit, 10-bit masks",   32, 0x3FF00000, 0x000FFC00, 0x000003FF},
    {"32-bit, 32-bit masks",   32, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF},
    {"16-bit without masks",   16, 0,          0,          0         },
    {"16-bit, 5-6-5",          16, 0x0000F800, 0x000007E0, 0x0000001F},
};
// clang-format on

void append(SkinKit::ByteBuffer& bytes, std::initializer_list<std::uint32_t> words)
{
    for (const auto word : words)
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>(word >> shift));
}

// A bitmap file; what its pixels are makes no difference to the time.
SkinKit::ByteBuffer bitmapOf(const Format& format, SkinKit::Size size)
{
    const bool hasMasks = format.red != 0;
    const auto width = static_cast<std::uint32_t>(size.width);
    const auto height = static_cast<std::uint32_t>(size.height);
    SkinKit::ByteBuffer file{'B', 'M'};
    append(file, {0, 0, 0, 40, width, height, format.bitCount << 16 | 1, hasMasks ? 3U : 0U});
    append(file, {0, 0, 0, 0, 0});
    if (hasMasks)
        append(file, {format.red, format.green, format.blue});
    file.resize(file.size() + (width * format.bitCount + 31) / 32 * 4 * height);
    return file;
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
            auto copy = SkinKit::PixelBuffer::uninitialized({picture.width(), picture.height()});
            std::memcpy(copy.data(), picture.row(0).data(), copy.count() * sizeof(SkinKit::Pixel));
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        }
}

}

void registerBMP(const SkinFile& skin)
{
    const auto add = [&](const std::string& format, std::string_view who, auto run,
                         const Files& files) {
        benchmark::RegisterBenchmark(caseName("decode " + format, skin.name, who).c_str(),
                                     [run, files](benchmark::State& state) { run(state, files); });
    };
    std::vector<SkinKit::Size> sizes;
    for (const auto& [depth, files] : bitmapsByDepth(skin)) {
        const std::string name = std::to_string(depth) + "-bit";
        add(name, "ours", decodeOurs, files);
        add(name, "SDL2", decodeSDL, files);
        add(name, "memcpy", copyPixels, files);
        for (const auto& file : files)
            sizes.push_back(SkinKit::BMPDecoder::decode(file)->size());
    }
    for (const Format& format : formats) {
        Files files;
        for (const auto size : sizes)
            files.push_back(bitmapOf(format, size));
        add(std::string(format.name), "ours", decodeOurs, files);
        add(std::string(format.name), "memcpy", copyPixels, files);
    }
}

}
