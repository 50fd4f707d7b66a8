#include "SkinKit/Text/TimeDigits.h"
#include "tests/support/Table.h"

#include <cmath>

using namespace SkinKit;
using support::expectTable;

// clang-format off
TEST(TimeDigits, ShowWholeSecondsUpToAHundredMinutes)
{
    expectTable<double, TimeDigits>(TimeDigits::fromSeconds, {
        {-0.5, {0, 0, 0, 0}}, {65.9, {0, 1, 0, 5}}, {599.999, {0, 9, 5, 9}}, {754, {1, 2, 3, 4}},
        {5999, {9, 9, 5, 9}}, {6000, {9, 9, 5, 9}}, {1e300, {9, 9, 5, 9}},   {NAN, {0, 0, 0, 0}},
        {HUGE_VAL, {0, 0, 0, 0}},
    });
    using enum TimeMode;
    EXPECT_EQ(TimeDigits::shown(elapsed, 65.9, 100), TimeDigits::fromSeconds(65.9));
    EXPECT_EQ(TimeDigits::shown(remaining, 0.5, 65), TimeDigits::fromSeconds(64.5));
    EXPECT_EQ(TimeDigits::shown(remaining, 7, 5), TimeDigits::fromSeconds(0));
    EXPECT_EQ(TimeDigits::shown(remaining, NAN, 65), TimeDigits::fromSeconds(0));
    expectTable<std::string_view, std::optional<TimeMode>>(parseTimeMode, {
        {"elapsed", elapsed}, {"remaining", remaining}, {"Elapsed", {}}, {"remain", {}},
    });
}
// clang-format on
