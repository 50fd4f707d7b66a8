#include "SkinKit/Display/MiniTime.h"

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
