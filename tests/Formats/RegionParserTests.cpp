#include "SkinKit/Formats/RegionParser.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

using namespace SkinKit;
using Polygons = SkinRegion::Polygons;

namespace {

// The polygons of one section, or nothing when it is left out.
std::optional<Polygons> polygons(std::string_view counts, std::string_view points)
{
    const auto region = RegionParser::parse("[Normal]\nNumPoints=" + std::string(counts) +
                                            "\nPointList=" + std::string(points));
    return region.normal() ? std::optional(*region.normal()) : std::nullopt;
}

}

TEST(RegionParser, KeepsEverySectionThatHasBothKeys)
{
    const auto region = RegionParser::parse("[WindowShade]\nnumpoints=3\nPOINTLIST=0,0,1,0,1,1\n"
                                            "[Anything]\nNumPoints=x\nPointList=y\n"
                                            "[NoCounts]\nPointList=0,0,1,0,1,1\n"
                                            "[NoPoints]\nNumPoints=3\n"
                                            "[Empty]\nNumPoints=\nPointList=0,0\n"
                                            "[EmptyToo]\nNumPoints=3\nPointList=''\n"
                                            "[EqualizerWS]\nNumPoints=1\nPointList=0,0\n"
                                            "[Equalizer]\nNumPoints=3\nPointList=5,5,6,5,6,6\n");
    EXPECT_EQ(region.sections.size(), 4U);
    EXPECT_EQ(region.normal(), nullptr);
    ASSERT_TRUE(region.windowShade() && region.equalizer() && region.equalizerShade());
    EXPECT_EQ(*region.windowShade(), (Polygons{
                                         {{0, 0}, {1, 0}, {1, 1}}
    }));
    EXPECT_EQ(*region.equalizer(), (Polygons{
                                       {{5, 5}, {6, 5}, {6, 6}}
    }));
    EXPECT_EQ(*region.equalizerShade(), Polygons{});
    EXPECT_EQ(*region.section("anything"), Polygons{});
}

TEST(RegionParser, DealsThePointsOutByTheCounts)
{
    // Eleven points, each with its number for both coordinates.
    std::string points;
    for (int i = 0; i < 11; ++i)
        points += std::to_string(i) + "," + std::to_string(i) + ", ";
    const auto run = [](std::int64_t from, std::int64_t to) {
        SkinRegion::Polygon polygon;
        for (; from < to; ++from)
            polygon.push_back({from, from});
        return polygon;
    };
    const std::pair<std::string_view, Polygons> rows[] = {
        {"4",                     {run(0, 4)}           },
        {"4,2,3",                 {run(0, 4), run(6, 9)}},
        {"1,0,-5,3",              {run(1, 4)}           }, // no polygon, but what they count is gone
        {"x,3,4.0,3 3,,+3",       {run(0, 3), run(3, 6)}},
        {"9,2,3",                 {run(0, 9)}           }, // nothing is left
        {"9223372036854775807,3", {run(0, 11)}          },
        {"9223372036854775808,3", {run(0, 3)}           }, // not an integer
    };
    for (const auto& [counts, expected] : rows)
        EXPECT_EQ(polygons(counts, points), expected) << counts;
}

TEST(RegionParser, ReadsCoordinatesLeniently)
{
    const std::pair<std::string_view, SkinRegion::Polygon> rows[] = {
        {"0,0,275,0 275,116\t0,116",                 {{0, 0}, {275, 0}, {275, 116}, {0, 116}}},
        {"1,2,3",                                    {{1, 2}}                                }, // an odd one is ignored
        {"12.7,-3.5,+5,-0.9",                        {{12, -3}, {5, 0}}                      },
        {"1e2,.5,5.,0",                              {{100, 0}, {5, 0}}                      },
        {"1,y,2,3",                                  {{2, 3}}                                },
        {"5x,1,0x10,2,1,2",                          {{1, 2}}                                },
        {"nan,1,inf,2,-inf,3,1e400,4,1e19,5,7,7",    {{7, 7}}                                },
        {"9223372036854775807,-9223372036854775808", {{INT64_MAX, INT64_MIN}}                },
        {"--1,1,+-2,1,-+3,1,+,-,7,7",                {{7, 7}}                                },
    };
    for (const auto& [points, expected] : rows)
        EXPECT_EQ(polygons("99", points), (expected.empty() ? Polygons{} : Polygons{expected}))
            << points;
}

TEST(RegionParser, EndsTheListWhereItFindsTooLittleMemory)
{
    std::string text = "[Normal]\nNumPoints=999999\nPointList=";
    for (int i = 0; i < 1'000'000; ++i)
        text += "1,2 ";
    const auto region = RegionParser::parse(text);
    ASSERT_EQ(region.section("normal")->size(), 1U);
    const auto bytes = region.section("normal")->front().size() * sizeof(SkinRegion::Point);
    EXPECT_GT(bytes, 1U << 20);
    EXPECT_LT(bytes, static_cast<std::size_t>(LoadMeter::defaultMemory));
}
