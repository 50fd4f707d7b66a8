#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "SkinKit/Tooling/CommandLine/SkintoolOptions.h"
#include "VelmarThumbnail/ThumbnailerOptions.h"
#include "fuzz/Fuzzing.h"

#include <cmath>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace SkinKit;
using VelmarThumbnail::ThumbnailerOptions;

using Arguments = std::vector<std::string>;

// A command line that says what the options hold.
Arguments line(std::string input,
               std::initializer_list<std::pair<const char*, std::optional<std::string>>> values,
               std::initializer_list<std::pair<const char*, bool>> flags = {})
{
    Arguments arguments{std::move(input)};
    for (const auto& [word, value] : values)
        if (value)
            arguments.insert(arguments.end(), {word, *value});
    for (const auto& [word, isSet] : flags)
        if (isSet)
            arguments.emplace_back(word);
    return arguments;
}

std::string text(SkintoolOptions::State state)
{
    return std::string(rawValue(state));
}

std::string text(double seconds)
{
    return std::isinf(seconds) ? "inf" : Numbers::shortest(seconds);
}

// clang-format off
Arguments argumentsOf(const SkintoolOptions& o)
{
    if (!o.png) {
        fuzzing::require(o == SkintoolOptions{.verbose = o.verbose, .input = o.input});
        return line(o.input, {}, {{"-v", o.verbose}});
    }
    fuzzing::require(o.scale >= 1 && (!o.compare || o.scale == 1));
    return line(o.input,
                {{"--png",     o.png},
                 {"--state",   text(o.state)},
                 {"--scale",   std::to_string(o.scale)},
                 {"--compare", o.compare}},
                {{"-v", o.verbose}, {"--no-region", o.noRegion}});
}

Arguments argumentsOf(const WindowsOptions& o)
{
    fuzzing::require(o.scale >= 1);
    return line(o.input,
                {{"--out",   o.out},
                 {"--scale", std::to_string(o.scale)},
                 {"--state", text(o.state)}},
                {{"--no-region", o.noRegion}});
}

Arguments argumentsOf(const InfoOptions& o)
{
    return line(o.input, {}, {{"--json", o.json}});
}

Arguments argumentsOf(const PreviewOptions& o)
{
    return line(o.input, {{"--out", o.out}}, {{"--mhtml", o.mhtml}});
}

Arguments argumentsOf(const GalleryOptions& o)
{
    fuzzing::require(o.scale >= 1);
    return line(o.input, {{"--out", o.out}, {"--scale", std::to_string(o.scale)}});
}

Arguments argumentsOf(const CorpusOptions& o)
{
    fuzzing::require(o.timeout > 0 && o.maxMemoryMiB >= 1 && o.sample.value_or(1) >= 1);
    return line(o.input,
                {{"--out",        o.out},
                 {"--timeout",    text(o.timeout)},
                 {"--max-memory", std::to_string(o.maxMemoryMiB)},
                 {"--sample",     o.sample.transform([](auto count) { return std::to_string(count); })},
                 {"--seed",       std::to_string(o.seed)},
                 {"--manifest",   o.manifest}},
                {{"--resume", o.resume}});
}

Arguments argumentsOf(const CorpusReportOptions& o)
{
    fuzzing::require(o.sample >= 1);
    return line(o.input,
                {{"--markdown", o.markdown},
                 {"--json",     o.json},
                 {"--env",      o.env},
                 {"--sample",   std::to_string(o.sample)},
                 {"--seed",     std::to_string(o.seed)},
                 {"--crashes",  o.crashes}});
}
// clang-format on

Arguments argumentsOf(const ThumbnailerOptions& o)
{
    fuzzing::require(o.size >= ThumbnailerOptions::smallestSize &&
                     o.size <= ThumbnailerOptions::largestSize);
    return {"-s", std::to_string(o.size), o.input, o.output};
}

// What every form promises: an input that is no option, or a complaint; and that the options can
// be asked for again.
template <typename Options>
void parse(const Arguments& arguments)
{
    const auto options = Options::parse(arguments);
    fuzzing::require(Options::parse(arguments) == options);
    if (!options) {
        fuzzing::require(!options.error().description.empty());
        return;
    }
    fuzzing::require(Options::parse(argumentsOf(*options)) == options);
}

}

// The input's lines are the arguments, given to every form of the command line.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Arguments arguments(1);
    for (const char c : asText({data, size})) {
        if (c == '\n')
            arguments.emplace_back();
        else
            arguments.back() += c;
    }
    parse<SkintoolOptions>(arguments);
    parse<WindowsOptions>(arguments);
    parse<InfoOptions>(arguments);
    parse<PreviewOptions>(arguments);
    parse<GalleryOptions>(arguments);
    parse<CorpusOptions>(arguments);
    parse<CorpusReportOptions>(arguments);
    parse<ThumbnailerOptions>(arguments);
    return 0;
}
