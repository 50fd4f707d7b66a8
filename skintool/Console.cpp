#include "skintool/Console.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace skintool::Console {
namespace {

// Why standard output was first found not to take what it was given.
int outputError = 0;

void printLine(std::FILE* stream, std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stream);
    std::fputc('\n', stream);
}

}

void print(std::string_view line)
{
    printLine(stdout, line);
    if (std::ferror(stdout) != 0 && outputError == 0)
        outputError = errno;
}

void say(std::string_view line)
{
    printLine(stderr, line);
}

void sayError(std::string_view name, std::string_view text)
{
    say("skintool: " + visible(name) + ": " + visible(text));
}

void sayError(std::string_view text)
{
    say("skintool: " + visible(text));
}

ExitStatus finish(ExitStatus status)
{
    const bool flushed = std::fflush(stdout) == 0;
    if (flushed && outputError == 0)
        return status;
    sayError("standard output",
             std::generic_category().message(outputError != 0 ? outputError : errno));
    return trouble;
}

}
