#include "SkinKit/Windows/Playlist/PlaylistShadeLayout.h"

#include "SkinKit/Base/Unicode.h"

namespace SkinKit::PlaylistShadeLayout {

std::string title(std::optional<std::string_view> name, int width)
{
    if (!name)
        return "[No file]";

    constexpr int besideTitle = 70; // pixels
    constexpr int characterWidth = 5;
    const int most = (right(width) - besideTitle) / characterWidth;
    const auto first = [&](int count) {
        return Unicode::firstGraphemes(*name, static_cast<std::size_t>(std::max(count, 0)));
    };
    if (most >= 0 && first(most).size() == name->size())
        return std::string(*name);
    return std::string(first(most - 1)) + "…";
}

std::string timeString(std::optional<double> seconds)
{
    return seconds ? timeString(TimeDigits::fromSeconds(*seconds)) : "";
}

std::string timeString(const TimeDigits& digits)
{
    const auto text = [](std::optional<int> digit) { return std::to_string(digit.value_or(0)); };
    const std::string tens = digits.minutesTens == 0 ? "" : text(digits.minutesTens);
    return tens + text(digits.minutesOnes) + ":" + text(digits.secondsTens) +
           text(digits.secondsOnes);
}

}
