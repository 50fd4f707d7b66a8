#include "SkinKit/System/Process.h"
#include "SkinKit/Version.h"
#include "skintool/Commands.h"
#include "skintool/Console.h"

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

template <typename Options, ExitStatus (*command)(const Options&)>
ExitStatus parseAndRun(Arguments arguments)
{
    const auto options = Options::parse(arguments);
    if (options)
        return command(*options);
    Console::sayError(options.error().description);
    Console::say(Options::usage);
    return trouble;
}

template <typename Options, ExitStatus (*command)(const Options&)>
Form formOf(std::string_view word, std::string_view help, std::string_view summary = {})
{
    return {word, summary, Options::usage, help, parseAndRun<Options, command>};
}

std::span<const Form> subCommands()
{
    using namespace SkinKit;
    // clang-format off
    static const Form forms[] = {
        formOf<InfoOptions, InfoCommand::run>("info", InfoCommand::help,
            "tell everything about a skin, or print it as JSON"),
        formOf<WindowsOptions, WindowsCommand::run>("windows", WindowsCommand::help,
            "write pictures of all windows of a skin"),
        formOf<PreviewOptions, PreviewCommand::run>("preview", PreviewCommand::help,
            "write an HTML page that shows a skin"),
        formOf<GalleryOptions, GalleryCommand::run>("gallery", GalleryCommand::help,
            "make a page of all skins of a folder"),
        formOf<CorpusOptions, CorpusCommand::run>("corpus", CorpusCommand::help,
            "try every skin of a collection, and note what came of each"),
        formOf<CorpusReportOptions, CorpusReportCommand::run>("corpus-report", CorpusReportCommand::help,
            "sum up what such a run found"),
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
    return run(formOf<SkinKit::SkintoolOptions, RenderCommand::run>("", RenderCommand::help),
               arguments);
}

}

int main(int argc, char** argv)
{
    SkinKit::Process::reserveStandardStreams();
    SkinKit::Process::abortOnOutOfMemory();
    SkinKit::Process::ignoreFileSizeSignal();
    SkinKit::Process::preallocateMemory();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return Console::finish(run(arguments));
}
