#include "skintool/Console.h"

#include "SkinKit/Platform/Unicode.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace skintool::Console {
namespace {

// C0, delete and C1, and the two line separators.
bool isControl(char32_t codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == 0x2028 ||
           codePoint == 0x2029;
}

std::string spelledOut(char32_t codePoint)
{
    switch (codePoint) {
    case U'\n': return "\\n";
    case U'\r': return "\\r";
    case U'\t': return "\\t";
    default: break;
    }
    char text[16];
    std::snprintf(text, sizeof text, codePoint < 0x100 ? "\\x%02X" : "\\u%04X",
                  static_cast<unsigned>(codePoint));
    return text;
}

// Why standard output was first found not to take what it was given.
int outputError = 0;

void printLine(std::FILE* stream, std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stream);
    std::fputc('\n', stream);
}

}

std::string visible(std::string_view text)
{
    const std::string repaired = SkinKit::Unicode::repaired(SkinKit::asBytes(text));
    std::string result;
    for (std::string_view rest = repaired; !rest.empty();) {
        const char32_t codePoint = SkinKit::Unicode::takeFirst(rest);
        if (isControl(codePoint))
            result += spelledOut(codePoint);
        else
            SkinKit::Unicode::append(result, codePoint);
    }
    return result;
}

void print(std::string_view line)
{
    printLine(stdout, line);
    if (std::ferror(stdout) && outputError == 0)
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

ExitStatus sayUsageError(std::string_view description, std::string_view usage)
{
    sayError(description);
    say(usage);
    return trouble;
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
