#include "SkinKit/Windows/Playlist/PlaylistText.h"
#include "tests/support/Table.h"

#include <climits>
#include <cmath>

using namespace SkinKit;
using namespace SkinKit::PlaylistText;
using support::expectTable;

// clang-format off
TEST(PlaylistText, WritesNumbersNamesAndTimes)
{
    using Row = std::pair<int, int>;
    expectTable<Row, std::string>([](Row row) { return rowNumber(row.first, row.second); }, {
        {{0, 1}, "1. "}, {{9, 120}, "\u00A0" "10. "}, {{119, 120}, "120. "}, {{999, 120}, "1000. "},
        {{0, -120}, "1. "}, {{INT_MAX, INT_MAX}, "2147483648. "}, {{-1, 10}, "\u00A0" "0. "},
    });
    EXPECT_EQ(displayName("Artist", "Title", "a.mp3"), "Artist - Title");
    EXPECT_EQ(displayName("", "Title", "a.mp3"), "Title");
    EXPECT_EQ(displayName("Artist", "", "a.mp3"), "a.mp3");
    expectTable<std::optional<double>, std::string_view>(PlaylistText::time, {
        {0, "0:00"}, {65.9, "1:05"}, {7325, "122:05"}, {59.999, "0:59"}, {-0.5, ""}, {{}, ""},
        {6e17, "10000000000000000:00"}, {HUGE_VAL, ""}, {NAN, ""},
    });
    EXPECT_EQ(runningTime(std::nullopt, 5), "/0:05             ");
    EXPECT_EQ(runningTime(6e9, 6e9), "100000000:00/100000000:00");
}
// clang-format on
