#include "SkinKit/Windows/Main/MiniTime.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Text/TextRenderer.h"
#include "SkinKit/Windows/Main/MainShadeLayout.h"

#include <utility>

namespace SkinKit::MiniTime {

Characters blank()
{
    return {" ", " ", " ", " ", " "};
}

Characters characters(const MainWindowStatus& status)
{
    if (status.transport == Transport::stopped)
        return blank();
    const auto text = [](std::optional<int> digit) { return digit ? std::to_string(*digit) : " "; };
    const auto digits = status.digits();
    return {status.timeMode == TimeMode::remaining ? "-" : " ", text(digits.minutesTens),
            text(digits.minutesOnes), text(digits.secondsTens), text(digits.secondsOnes)};
}

}

namespace SkinKit {

std::optional<Image> miniTimeImage(const Skin& skin, const MiniTime::Characters& characters)
{
    if (!skin.sheets.contains(TextFont::sheet))
        return std::nullopt;

    Canvas canvas({MainShadeLayout::miniTimeImageWidth, TextFont::cellHeight});
    for (std::size_t i = 0; i < characters.size(); ++i)
        drawText(canvas, skin, Unicode::firstGraphemes(characters[i], 1),
                 {MainShadeLayout::miniTimeCellX[i], 0});
    return std::move(canvas).image();
}

}
