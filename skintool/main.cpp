#include "SkinKit/Platform/Process.h"
#include "SkinKit/Tooling/CorpusOptions.h"
#include "SkinKit/Tooling/GalleryOptions.h"
#include "SkinKit/Tooling/InfoOptions.h"
#include "SkinKit/Tooling/PreviewOptions.h"
#include "SkinKit/Tooling/SkintoolOptions.h"
#include "SkinKit/Tooling/WindowsOptions.h"
#include "SkinKit/Version.h"
#include "skintool/Console.h"
#include "skintool/CorpusCommand.h"
#include "skintool/GalleryCommand.h"
#include "skintool/InfoCommand.h"
#include "skintool/PreviewCommand.h"
#include "skintool/RenderCommand.h"
#include "skintool/WindowsCommand.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace skintool;
using Arguments = std::span<const std::string>;

// A form of the command line.
struct Form {
    std::string_view word; // empty for the one without a word
    std::string_view usage;
    std::string_view help;
    ExitStatus (*run)(Arguments);
};

ExitStatus run(const Form& form, Arguments arguments)
{
    const std::string_view first = arguments.empty() ? std::string_view() : arguments.front();
    if (first == "-h" || first == "--help") {
        Console::print(form.usage);
        Console::print("");
        Console::print(form.help);
        return done;
    }
    if (first == "--version") {
        Console::print("skintool " + std::string(SkinKit::version));
        return done;
    }
    return form.run(arguments);
}

ExitStatus run(Arguments arguments)
{
    const Form single{"", SkinKit::SkintoolOptions::usage, RenderCommand::help, RenderCommand::run};
    const Form subCommands[] = {
        {"corpus",  SkinKit::CorpusOptions::usage,  CorpusCommand::help,  CorpusCommand::run },
        {"gallery", SkinKit::GalleryOptions::usage, GalleryCommand::help, GalleryCommand::run},
        {"info",    SkinKit::InfoOptions::usage,    InfoCommand::help,    InfoCommand::run   },
        {"preview", SkinKit::PreviewOptions::usage, PreviewCommand::help, PreviewCommand::run},
        {"windows", SkinKit::WindowsOptions::usage, WindowsCommand::help, WindowsCommand::run},
    };
    for (const Form& form : subCommands)
        if (!arguments.empty() && arguments.front() == form.word)
            return run(form, arguments.subspan(1));
    return run(single, arguments);
}

}

int main(int argc, char** argv)
{
    SkinKit::Process::reportFileSizeLimit();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return Console::finish(run(arguments));
}
