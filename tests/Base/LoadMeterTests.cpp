#include "SkinKit/Base/LoadMeter.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using namespace std::chrono_literals;

namespace {

LoadMeter::Time now;
int looks = 0;

LoadMeter::Time clock()
{
    ++looks;
    return now;
}

}

TEST(LoadMeter, AsksTheClockOnceFor64KiBAndStaysOutOfTime)
{
    now = 5s;
    LoadMeter meter(clock, 4s);
    now += 5s;
    looks = 0;
    EXPECT_TRUE(meter.hasTimeAfter(65'535));
    EXPECT_EQ(looks, 0);
    EXPECT_FALSE(meter.hasTimeAfter(1));
    now -= 5s;
    EXPECT_FALSE(meter.hasTimeAfter(1));
    EXPECT_FALSE(meter.hasTimeFor(0s));
    EXPECT_TRUE(meter.isOutOfTime());
}

TEST(LoadMeter, LeavesTheTimeThatWasNotUsed)
{
    now = 1s;
    LoadMeter meter(clock, 4s);
    now += 3s;
    EXPECT_EQ(meter.timeLeft(), 1s);
    EXPECT_TRUE(meter.hasTimeFor(1s));
    EXPECT_FALSE(meter.hasTimeFor(1s + 1ns));
    EXPECT_EQ(LoadMeter().timeLeft(), LoadMeter::Time::max());
}

TEST(LoadMeter, GivesScratchMemoryBackButForWhatIsKept)
{
    LoadMeter meter;
    {
        LoadMeter::Scratch scratch(meter);
        EXPECT_TRUE(scratch.take(LoadMeter::defaultMemory));
        EXPECT_FALSE(scratch.take(1));
        EXPECT_FALSE(meter.take(1));
        scratch.keep(100);
    }
    EXPECT_FALSE(meter.take(LoadMeter::defaultMemory - 99));
    EXPECT_TRUE(meter.take(LoadMeter::defaultMemory - 100));
}
