#include "SkinKit/Tooling/SkintoolOptions.h"
#include "SkinKit/Version.h"
#include "skintool/Console.h"
#include "skintool/RenderCommand.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace skintool;

constexpr std::string_view help = R"(Examples:
  skintool some.wsz                           what is in a skin, in a line
  skintool -v some.wsz                        and everything the loader noticed
  skintool --png out.png some.wsz             its main window as a picture
  skintool --png out.png --scale 2 folder/    twice as large, from an unpacked skin

Options:
  -v, --verbose         print the loader's warnings and fallbacks
  --png <out>           write the main window as a PNG file
  --state webamp|idle   a playing player (the default) or one just started
  --scale N             N device pixels for each of the 275 x 116 (default 1)
  --compare <refdir>    compare with <refdir>/<skin's name>.png; needs scale 1
  --no-region           the whole rectangle, not the shape the skin cuts from it
  -h, --help            this text
  --version             the version

Exit status: 0 done; 1 the pictures differ; 2 trouble.)";

bool isHelp(std::string_view argument)
{
    return argument == "-h" || argument == "--help";
}

ExitStatus printHelp()
{
    Console::print(SkinKit::SkintoolOptions::usage);
    Console::print("");
    Console::print(help);
    return done;
}

ExitStatus printVersion()
{
    Console::print("skintool " + std::string(SkinKit::version));
    return done;
}

ExitStatus run(std::span<const std::string> arguments)
{
    if (!arguments.empty() && isHelp(arguments.front()))
        return printHelp();
    if (!arguments.empty() && arguments.front() == "--version")
        return printVersion();
    return RenderCommand::run(arguments);
}

}

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return Console::finish(run(arguments));
}
