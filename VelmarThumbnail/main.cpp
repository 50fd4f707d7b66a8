#include "SkinKit/Base/TerminalText.h"
#include "SkinKit/System/Process.h"
#include "SkinKit/System/Sandbox.h"
#include "SkinKit/Version.h"
#include "VelmarThumbnail/Thumbnailer.h"
#include "VelmarThumbnail/ThumbnailerOptions.h"

#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace VelmarThumbnail;
using SkinKit::TerminalText::visible;

enum ExitStatus : int {
    done = 0,
    trouble = 2, // usage, a refused skin, a file that can't be read or written
};

constexpr std::string_view help = R"(
Examples:
  velmar-thumbnailer some.wsz out.png                      a skin's main window
  velmar-thumbnailer -s 256 file:///home/me/a.wsz out.png  larger, named as desktops do
  velmar-thumbnailer folder/ out.png                       from an unpacked skin

Options:
  -s SIZE     the most pixels that either side may have: 1 to 4096 (default 128)
  -h, --help  this text
  --version   the version

Writes a PNG file into OUTPUT as it stands, without replacing it; after a failure it
is empty, or as it was. A name that begins with "-" is written "./-name", and so is one that
begins with "file:". Exit status: 0 done; 2 trouble.
)";

std::string spoken(const std::string& line)
{
    return "velmar-thumbnailer: " + line + "\n";
}

void say(const std::string& line)
{
    std::fputs(spoken(line).c_str(), stderr);
}

// Before anything is read, since the names in a folder are read, too. What the system does not
// allow is done without: inside a container or a desktop's own sandbox some of it may be forbidden,
// and a user there wants thumbnails as well. The library bounds what a skin costs and is what keeps
// its bytes harmless; these limits are the second barrier, and each of them holds without the
// others.
void limitCosts(const ThumbnailerOptions& options)
{
    namespace Sandbox = SkinKit::Sandbox;
    const Sandbox::Limits limits;
    const std::string name = visible(options.input.string());
    Sandbox::limitCosts(limits, {.outOfMemory = spoken(name + ": takes too much memory"),
                                 .outOfTime = spoken(name + ": takes longer than " +
                                                     std::to_string(limits.processorSeconds) +
                                                     " seconds of processor time"),
                                 .status = trouble});
}

ExitStatus print(const std::string& text)
{
    if (std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0)
        return done;
    say("standard output can't be written");
    return trouble;
}

ExitStatus run(std::span<const std::string> arguments)
{
    const std::string_view first = arguments.empty() ? std::string_view() : arguments.front();
    if (first == "-h" || first == "--help")
        return print(std::string(ThumbnailerOptions::usage) + "\n" + std::string(help));
    if (first == "--version")
        return print("velmar-thumbnailer " + std::string(SkinKit::version) + "\n");

    const auto options = ThumbnailerOptions::parse(arguments);
    if (!options) {
        say(visible(options.error().description) + "\n" + std::string(ThumbnailerOptions::usage));
        return trouble;
    }
    limitCosts(*options);
    if (const auto failure = Thumbnailer::run(*options)) {
        say(visible(failure->file.string()) + ": " + visible(failure->text));
        return trouble;
    }
    return done;
}

}

int main(int argc, char** argv)
{
    SkinKit::Process::reserveStandardStreams();
    SkinKit::Process::abortOnOutOfMemory();
    SkinKit::Process::ignoreFileSizeSignal();
    SkinKit::Process::preallocateMemory();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return run(arguments);
}
