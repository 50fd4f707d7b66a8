#include "SkinKit/Graphics/SpanMask.h"
#include "tests/support/Winding.h"

#include <gtest/gtest.h>

#include <random>

using namespace SkinKit;

namespace {

using Vertex = Path::Vertex;

std::vector<std::string> shape(const SpanMask& mask, const Rect& area)
{
    std::vector<std::string> rows;
    for (int y = area.y; y < area.bottom(); ++y) {
        auto& row = rows.emplace_back(static_cast<std::size_t>(area.width), '.');
        int last = INT_MIN;
        for (const auto [begin, end] : mask.row(y)) {
            EXPECT_LT(last, begin) << "touching or out of order";
            EXPECT_LT(begin, end);
            last = end;
            for (int x = begin; x < end; ++x)
                row.at(static_cast<std::size_t>(x - area.x)) = '#';
        }
    }
    return rows;
}

std::vector<std::string> reference(const Path& path, const Rect& area)
{
    std::vector<std::string> rows;
    for (int y = area.y; y < area.bottom(); ++y) {
        auto& row = rows.emplace_back();
        for (int x = area.x; x < area.right(); ++x)
            row += support::windingNumber(path, x, y) != 0 ? '#' : '.';
    }
    return rows;
}

Path randomPath(std::mt19937& random, std::int64_t low, std::int64_t high)
{
    std::uniform_int_distribution<std::int64_t> coordinate(low, high);
    Path path;
    for (auto count = random() % 4; count > 0; --count) {
        auto& polygon = path.polygons.emplace_back();
        for (auto points = random() % 8; points > 0; --points)
            polygon.push_back({coordinate(random), coordinate(random)});
    }
    return path;
}

}

TEST(SpanMask, FillsThosePixelsWhoseCentreTheExactTestFindsInside)
{
    std::mt19937 random(13);
    for (const auto& [low, high] : {
             std::pair<std::int64_t, std::int64_t>{0,                        12                   },
             {-20,                      40                   },
             {-100'000,                 100'000              },
             {-(std::int64_t{1} << 59), std::int64_t{1} << 59}
    })
        for (int round = 0; round < 700; ++round) {
            const Path path = randomPath(random, low, high);
            const Rect bounds{static_cast<int>(random() % 9) - 4,
                              static_cast<int>(random() % 9) - 4, static_cast<int>(random() % 20),
                              static_cast<int>(random() % 20)};
            const SpanMask mask = SpanMask::fill(path, bounds);
            ASSERT_EQ(shape(mask, bounds), reference(path, bounds))
                << "round " << round << " of " << low;
            EXPECT_TRUE(mask.row(bounds.y - 1).empty() && mask.row(bounds.bottom()).empty());
        }
}

TEST(SpanMask, GivesACentreOnAnEdgeToTheAreaToItsRight)
{
    using Rows = std::vector<std::string>;
    const Rect area{0, 0, 4, 4};
    const std::pair<std::vector<Vertex>, Rows> rows[] = {
        {{{1, 1}, {3, 1}, {3, 3}, {1, 3}},  {"....", ".##.", ".##.", "...."}},
        {{{0, 0}, {4, 4}, {0, 4}},          {"....", "#...", "##..", "###."}}, // right edge through centres
        {{{0, 0}, {4, 0}, {4, 4}},          {"####", ".###", "..##", "...#"}}, // left edge through centres
        {{{0, 0}, {4, 4}},                  {"....", "....", "....", "...."}},
        {{{1, 1}},                          {"....", "....", "....", "...."}},
        {{{INT64_MIN, INT64_MIN},
          {INT64_MAX, INT64_MIN},
          {INT64_MAX, INT64_MAX},
          {INT64_MIN, INT64_MAX}},
         {"####", "####", "####", "####"}                                   },
    };
    for (const auto& [polygon, expected] : rows)
        EXPECT_EQ(shape(SpanMask::fill(Path{{polygon}}, area), area), expected);
}
