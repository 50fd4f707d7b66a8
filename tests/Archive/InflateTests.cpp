#include "SkinKit/Archive/Inflate.h"
#include "tests/support/ZipWriter.h"

#include <gtest/gtest.h>

#include <random>

using namespace SkinKit;

namespace {

// Bytes of middling entropy, so that a stream holds literals and matches.
ByteBuffer someBytes(std::size_t count)
{
    std::mt19937 random(static_cast<unsigned>(count));
    ByteBuffer bytes(count);
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(random() % 5 * (random() % 7));
    return bytes;
}

std::optional<ByteBuffer> inflated(ByteView stream, std::int64_t expected, std::int64_t limit)
{
    LoadMeter meter;
    return inflate(stream, expected, limit, meter);
}

}

TEST(Inflate, UndoesWhatZlibDidWhateverSizeWasExpected)
{
    for (const std::size_t count : {0U, 1U, 2U, 300U, 65'536U, 200'000U}) {
        const ByteBuffer data = someBytes(count);
        const ByteBuffer stream = support::deflated(data);
        const auto size = static_cast<std::int64_t>(count);
        for (const std::int64_t expected :
             {INT64_MIN, std::int64_t{0}, size / 2, size, 3 * size + 9, INT64_MAX})
            for (const std::int64_t limit : {size, size + 1, std::int64_t{8} << 20, INT64_MAX})
                EXPECT_EQ(inflated(stream, expected, limit), data)
                    << count << " bytes, " << expected << " expected, at most " << limit;
        if (count > 0) {
            EXPECT_FALSE(inflated(stream, size, size - 1));
        }
    }
}

TEST(Inflate, GivesNothingForAStreamCutShortAndIgnoresWhatFollowsItsEnd)
{
    const ByteBuffer data = someBytes(2000);
    ByteBuffer stream = support::deflated(data);
    for (std::size_t length = 0; length < stream.size(); ++length)
        EXPECT_FALSE(inflated(ByteView(stream).first(length), 2000, 4000)) << length;
    stream.insert(stream.end(), {1, 2, 3});
    EXPECT_EQ(inflated(stream, 2000, 4000), data);
}

TEST(Inflate, BeginsOnlyWhatTheTimeLeftCovers)
{
    const ByteBuffer data = someBytes(20'000);
    const ByteBuffer stream = support::deflated(data);
    const auto clock = [] { return LoadMeter::Time(0); };
    LoadMeter tooShort(clock, std::chrono::microseconds(1));
    EXPECT_FALSE(inflate(stream, 20'000, 20'000, tooShort));
    EXPECT_TRUE(tooShort.isOutOfTime());
    LoadMeter longEnough(clock, std::chrono::seconds(1));
    EXPECT_EQ(inflate(stream, 20'000, 20'000, longEnough), data);
}
