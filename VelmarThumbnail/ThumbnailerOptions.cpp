#include "VelmarThumbnail/ThumbnailerOptions.h"

#include "SkinKit/Platform/Numbers.h"
#include "SkinKit/Tooling/Arguments.h"
#include "VelmarThumbnail/FileURI.h"

#include <optional>
#include <utility>
#include <vector>

namespace VelmarThumbnail {
namespace {

using Options = ThumbnailerOptions;

std::unexpected<Options::UsageError> wrong(std::string description)
{
    return std::unexpected(Options::UsageError{std::move(description)});
}

std::optional<int> parseSize(std::string_view text)
{
    const auto size = SkinKit::Numbers::parseInteger<int>(text);
    const bool fits = size && *size >= Options::smallestSize && *size <= Options::largestSize;
    return fits ? size : std::nullopt;
}

}

const std::string_view ThumbnailerOptions::usage =
    "usage: velmar-thumbnailer [-s SIZE] INPUT OUTPUT";

std::expected<ThumbnailerOptions, ThumbnailerOptions::UsageError>
ThumbnailerOptions::parse(std::span<const std::string> arguments)
{
    ThumbnailerOptions options;
    std::vector<std::string> files;
    for (SkinKit::Arguments rest(arguments); !rest.isEmpty();) {
        const std::string& argument = rest.next();
        if (argument == "-s") {
            const auto size = rest.value().and_then(parseSize);
            if (!size)
                return wrong("-s needs a size from 1 to 4096");
            options.size = *size;
        } else if (argument.starts_with('-')) {
            return wrong("unknown option: " + argument);
        } else {
            files.push_back(argument);
        }
    }
    if (files.size() != 2)
        return wrong(files.empty()       ? "missing INPUT and OUTPUT"
                     : files.size() == 1 ? "missing OUTPUT"
                                         : "only one INPUT and one OUTPUT are accepted");

    const auto input =
        FileURI::isFileURI(files[0]) ? FileURI::path(files[0]) : std::filesystem::path(files[0]);
    if (!input)
        return wrong("no file of this computer: " + files[0]);
    options.input = *input;
    options.output = files[1];
    return options;
}

}
