#include "SkinKit/Windows/Main/MainWindowState.h"
#include "tests/support/Table.h"

#include <climits>
#include <cmath>

using namespace SkinKit;
using support::expectTable;

// clang-format off
TEST(MediaInfoText, FitsRatesIntoTheirFields)
{
    expectTable<std::optional<int>, std::string_view>(MediaInfoText::kbps, {
        {{}, "  0"}, {INT_MIN, "  0"}, {7, "  7"}, {64, " 64"}, {999, "999"}, {1000, "10H"},
        {1411, "14H"}, {9999, "99H"}, {10'000, " 1C"}, {99'999, " 9C"}, {INT_MAX, " 2C"},
    });
    expectTable<std::optional<double>, std::string_view>(MediaInfoText::khz, {
        {{}, " 0"}, {HUGE_VAL, " 0"}, {NAN, " 0"}, {-44'100, " 0"}, {499, " 0"}, {500, " 1"},
        {9499, " 9"}, {9500, " 1"}, {10'499, " 1"}, {10'500, "11"}, {44'100, "44"},
        {99'499, "99"}, {99'500, "00"}, {192'000, "92"}, {1'234'000, "23"}, {1e300, "00"},
    });
}

TEST(MiniTime, SpellsTheClockOutWithItsSign)
{
    const auto characters = [](Transport transport) {
        std::string joined;
        for (const auto& character : MiniTime::characters(
                 {.transport = transport, .timeMode = TimeMode::remaining, .duration = 757}))
            joined += character;
        return joined;
    };
    expectTable<Transport, std::string_view>(characters, {
        {Transport::paused, "-1237"}, {Transport::loading, "-1237"}, {Transport::stopped, "     "},
    });
}
// clang-format on
