#include "skintool/InfoCommand.h"

#include "SkinKit/Tooling/InfoOptions.h"
#include "skintool/Loading.h"

namespace skintool::InfoCommand {

const std::string_view help = R"(Examples:
  skintool info some.wsz           what a skin holds, for people
  skintool info --json some.wsz    the same for programs

Options:
  --json        print one JSON object, its keys sorted
  -h, --help    this text
  --version     the version

Exit status: 0 done; 2 trouble.)";

ExitStatus run(std::span<const std::string> arguments)
{
    const auto options = SkinKit::InfoOptions::parse(arguments);
    if (!options)
        return Console::sayUsageError(options.error().description, SkinKit::InfoOptions::usage);
    const auto info = loadOrSayWhyNot(options->input);
    if (!info)
        return trouble;

    constexpr int indent = 2;
    if (options->json)
        Console::print(info->json().text(indent));
    else
        for (const auto& line : info->lines())
            Console::print(Console::visible(line));
    return done;
}

}
