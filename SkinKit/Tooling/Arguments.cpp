#include "SkinKit/Tooling/Arguments.h"

#include "SkinKit/Platform/Check.h"
#include "SkinKit/Platform/Numbers.h"

namespace SkinKit {

const std::string& Arguments::next()
{
    check(!rest_.empty(), "no argument is left");
    const std::string& argument = rest_.front();
    rest_ = rest_.subspan(1);
    return argument;
}

std::optional<std::string> Arguments::value(std::string_view optionMark)
{
    if (rest_.empty() || rest_.front().starts_with(optionMark))
        return std::nullopt;
    return next();
}

std::expected<std::string, std::string>
Arguments::onlySkin(const std::vector<std::string>& positional)
{
    if (positional.empty())
        return std::unexpected("missing <skin.wsz | folder>");
    if (positional.size() > 1)
        return std::unexpected("only one <skin.wsz | folder> is accepted");
    return positional.front();
}

std::optional<std::int64_t> Arguments::parseScale(std::string_view text)
{
    const auto scale = Numbers::parseInteger<std::int64_t>(text);
    return scale && *scale >= 1 ? scale : std::nullopt;
}

}
