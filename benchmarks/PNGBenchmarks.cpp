#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "benchmarks/Cases.h"

#include <benchmark/benchmark.h>
#include <png.h>

#include <cstdlib>
#include <vector>

// Encoding a render, beside libpng with its defaults, in time and in bytes.
namespace benchmarks {
namespace {

using namespace SkinKit;

void appendBytes(png_structp png, png_bytep data, std::size_t count)
{
    auto& target = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
    target.insert(target.end(), data, data + count);
}

std::size_t encodeWithLibpng(const Image& image)
{
    std::vector<std::uint8_t> bytes;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png)))
        std::abort();
    png_set_write_fn(png, &bytes, appendBytes, [](png_structp) {});
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width()),
                 static_cast<png_uint_32>(image.height()), 8, PNG_COLOR_TYPE_RGB_ALPHA,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < image.height(); ++y)
        png_write_row(png, reinterpret_cast<png_const_bytep>(image.row(y).data()));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return bytes.size();
}

}

void registerPNG(const SkinFile& skin)
{
    const auto parsed = SkinParser::parse(skin.path);
    for (const int scale : {1, 4}) {
        const std::string what = "encode " + std::to_string(scale) + "x";
        const Image image = MainWindowRenderer::render(*parsed, MainWindowState::webampScreenshot(),
                                                       scale, Clip::none);
        benchmark::RegisterBenchmark(caseName(what, skin.name, "ours").c_str(),
                                     [image](benchmark::State& state) {
                                         std::size_t size = 0;
                                         for (auto _ : state)
                                             size = PNGWriter::data(image)->size();
                                         state.counters["bytes"] = static_cast<double>(size);
                                     });
        benchmark::RegisterBenchmark(caseName(what, skin.name, "libpng").c_str(),
                                     [image](benchmark::State& state) {
                                         std::size_t size = 0;
                                         for (auto _ : state)
                                             size = encodeWithLibpng(image);
                                         state.counters["bytes"] = static_cast<double>(size);
                                     });
    }
}

}
