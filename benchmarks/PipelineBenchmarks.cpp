#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "benchmarks/Cases.h"

#include <benchmark/benchmark.h>

// From a skin's file to the bytes of its picture, at scale 1, and the parts of that way.
namespace benchmarks {

void registerPipeline(const SkinFile& skin)
{
    using namespace SkinKit;
    const auto add = [&skin](std::string_view part, auto run) {
        benchmark::RegisterBenchmark(caseName("file to PNG", skin.name, part).c_str(),
                                     [run](benchmark::State& state) {
                                         for (auto _ : state)
                                             benchmark::DoNotOptimize(run());
                                     });
    };
    const auto render = [](const Skin& parsed) {
        return MainWindowRenderer::render(parsed, MainWindowState::webampScreenshot(), 1,
                                          Clip::toRegion);
    };
    const auto archive = SkinArchive::open(skin.path);
    const auto parsed = SkinParser::parse(*archive);
    const Image image = render(*parsed);

    add("ours",
        [path = skin.path, render] { return PNGWriter::data(render(*SkinParser::parse(path))); });
    add("part: open", [path = skin.path] { return SkinArchive::open(path); });
    add("part: parse", [archive] { return SkinParser::parse(*archive); });
    add("part: render", [parsed, render] { return render(*parsed); });
    add("part: encode", [image] { return PNGWriter::data(image); });
}

}
