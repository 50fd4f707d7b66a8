#include "VelmarThumbnail/ThumbnailerOptions.h"

#include "VelmarThumbnail/FileURI.h"

#include <optional>

namespace VelmarThumbnail {
namespace {

using Options = ThumbnailerOptions;
using Form = SkinKit::CommandLine<Options>;
using SkinKit::takeText;

bool takeSize(Options& options, const std::string& text)
{
    options.size = SkinKit::Numbers::parseInteger<int>(text).value_or(0);
    return options.size >= Options::smallestSize && options.size <= Options::largestSize;
}

std::optional<std::string> resolveURI(Options& options, const Form::Given&)
{
    const std::string name = options.input.string();
    if (!FileURI::isFileURI(name))
        return std::nullopt;
    const auto path = FileURI::path(name);
    if (!path)
        return "no file of this computer: " + name;
    options.input = *path;
    return std::nullopt;
}

}

const std::string_view ThumbnailerOptions::usage =
    "usage: velmar-thumbnailer [-s SIZE] INPUT OUTPUT";

std::expected<ThumbnailerOptions, SkinKit::UsageError>
ThumbnailerOptions::parse(std::span<const std::string> arguments)
{
    return Form{
        .operands = {{takeText<&Options::input>, "missing INPUT and OUTPUT"},
                     {takeText<&Options::output>, "missing OUTPUT"}},
        .tooMany = "only one INPUT and one OUTPUT are accepted",
        .reportTooMany = Form::Report::atEnd,
        .options = {{"-s", takeSize, "-s needs a size from 1 to 4096"}},
        .check = resolveURI,
    }
        .parse(arguments);
}

}
