#include "SkinKit/Windows/Playlist/PlaylistText.h"

#include <gtest/gtest.h>

#include <limits>

using namespace SkinKit;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

}

TEST(PlaylistText, AlignsTheRowNumbersOfAList)
{
    constexpr int largest = std::numeric_limits<int>::max();
    const std::tuple<int, int, std::string_view> rows[] = {
        {0,       1,       "1. "         },
        {8,       120,
         "\u00A0\u00A0"
         "9. "                           },
        {9,       120,
         "\u00A0"
         "10. "                          },
        {119,     120,     "120. "       },
        {999,     120,     "1000. "      }, // beyond the list
        {0,       0,       "1. "         },
        {0,       -120,    "1. "         },
        {largest, largest, "2147483648. "},
        {-1,      10,
         "\u00A0"
         "0. "                           },
    };
    for (const auto& [index, count, expected] : rows)
        EXPECT_EQ(PlaylistText::rowNumber(index, count), expected);
}

TEST(PlaylistText, NamesATrackByWhatIsKnownOfIt)
{
    EXPECT_EQ(PlaylistText::displayName("Artist", "Title", "a.mp3"), "Artist - Title");
    EXPECT_EQ(PlaylistText::displayName("", "Title", "a.mp3"), "Title");
    EXPECT_EQ(PlaylistText::displayName("Artist", "", "a.mp3"), "a.mp3");
    EXPECT_EQ(PlaylistText::displayName("", "", ""), "");
}

TEST(PlaylistText, CountsWholeMinutesAndSeconds)
{
    const std::pair<std::optional<double>, std::string_view> rows[] = {
        {0,            "0:00"                },
        {65.9,         "1:05"                },
        {7325,         "122:05"              },
        {59.999,       "0:59"                },
        {-0.0,         "0:00"                },
        {6e17,         "10000000000000000:00"},
        {-0.5,         ""                    },
        {infinity,     ""                    },
        {-infinity,    ""                    },
        {notANumber,   ""                    },
        {std::nullopt, ""                    },
    };
    for (const auto& [seconds, expected] : rows)
        EXPECT_EQ(PlaylistText::time(seconds), expected);
    EXPECT_EQ(PlaylistText::time(std::numeric_limits<double>::max()).size(), 307U + 3);
}

TEST(PlaylistText, FillsTheRunningTimeUpToItsRoom)
{
    EXPECT_EQ(PlaylistText::runningTime(0, 3725), "0:00/62:05        ");
    EXPECT_EQ(PlaylistText::runningTime(std::nullopt, 5), "/0:05             ");
    EXPECT_EQ(PlaylistText::runningTime(6e9, 6e9), "100000000:00/100000000:00");
}
