#include "SkinKit/Platform/Process.h"
#include "SkinKit/Tooling/CorpusOptions.h"
#include "SkinKit/Tooling/CorpusReportOptions.h"
#include "SkinKit/Tooling/GalleryOptions.h"
#include "SkinKit/Tooling/InfoOptions.h"
#include "SkinKit/Tooling/PreviewOptions.h"
#include "SkinKit/Tooling/SkintoolOptions.h"
#include "SkinKit/Tooling/WindowsOptions.h"
#include "SkinKit/Version.h"
#include "skintool/Console.h"
#include "skintool/CorpusCommand.h"
#include "skintool/CorpusReportCommand.h"
#include "skintool/GalleryCommand.h"
#include "skintool/InfoCommand.h"
#include "skintool/PreviewCommand.h"
#include "skintool/RenderCommand.h"
#include "skintool/WindowsCommand.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace skintool;
using Arguments = std::span<const std::string>;

// A form of the command line.
struct Form {
    std::string_view word;    // empty for the one without a word
    std::string_view summary; // in the list of sub-commands
    std::string_view usage;
    std::string_view help;
    ExitStatus (*run)(Arguments);
};

std::span<const Form> subCommands()
{
    // clang-format off
    static const Form forms[] = {
        {"info", "tell everything about a skin, or print it as JSON",
         SkinKit::InfoOptions::usage, InfoCommand::help, InfoCommand::run},
        {"windows", "write pictures of all windows of a skin",
         SkinKit::WindowsOptions::usage, WindowsCommand::help, WindowsCommand::run},
        {"preview", "write an HTML page that shows a skin",
         SkinKit::PreviewOptions::usage, PreviewCommand::help, PreviewCommand::run},
        {"gallery", "make a page of all skins of a folder",
         SkinKit::GalleryOptions::usage, GalleryCommand::help, GalleryCommand::run},
        {"corpus", "try every skin of a collection, and note what came of each",
         SkinKit::CorpusOptions::usage, CorpusCommand::help, CorpusCommand::run},
        {"corpus-report", "sum up what such a run found",
         SkinKit::CorpusReportOptions::usage, CorpusReportCommand::help, CorpusReportCommand::run},
    };
    // clang-format on
    return forms;
}

void printSubCommands()
{
    constexpr std::size_t column = 24;
    Console::print("\nSub-commands (skintool <word> --help tells more):");
    for (const Form& form : subCommands()) {
        std::string line = "  " + std::string(form.word);
        line.resize(column, ' ');
        Console::print(line.append(form.summary));
    }
}

ExitStatus run(const Form& form, Arguments arguments)
{
    const std::string_view first = arguments.empty() ? std::string_view() : arguments.front();
    if (first == "-h" || first == "--help") {
        Console::print(form.usage);
        Console::print("");
        Console::print(form.help);
        if (form.word.empty())
            printSubCommands();
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
    for (const Form& form : subCommands())
        if (!arguments.empty() && arguments.front() == form.word)
            return run(form, arguments.subspan(1));
    return run({"", "", SkinKit::SkintoolOptions::usage, RenderCommand::help, RenderCommand::run},
               arguments);
}

}

int main(int argc, char** argv)
{
    SkinKit::Process::holdStandardStreams();
    SkinKit::Process::endWithoutMemory();
    SkinKit::Process::reportFileSizeLimit();
    SkinKit::Process::takeMemoryAtOnce();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return Console::finish(run(arguments));
}
