#include "skintool/Commands.h"

#include "skintool/Skins.h"

#include <optional>
#include <utility>

namespace skintool::InfoCommand {

const std::string_view help = R"(Examples:
  skintool info some.wsz           what a skin holds, for people
  skintool info --json some.wsz    the same for programs

Options:
  --json        print one JSON object, its keys sorted
  -h, --help    this text
  --version     the version

Exit status: 0 done; 2 trouble.)";

ExitStatus run(const SkinKit::InfoOptions& options)
{
    auto loaded = loadOrSayWhyNot(options.input, SkinKit::SkinParser::Sheets::whole);
    if (!loaded)
        return trouble;
    const auto info = std::exchange(loaded, std::nullopt)->info; // the largest skins' pixels go

    constexpr int indent = 2;
    if (options.json)
        Console::print(info.json().text(indent));
    else
        for (const auto& line : info.lines())
            Console::print(Console::visible(line));
    return done;
}

}
