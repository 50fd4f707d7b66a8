#include "SkinKit/System/Process.h"

#include "SkinKit/Base/Bytes.h"

#include <gtest/gtest.h>

#include <sys/mman.h>

using namespace SkinKit;

TEST(ProcessFootprint, FollowsTheMemoryAndRemembersThePeak)
{
    constexpr std::size_t mebibyte = 1 << 20;
    const auto before = ProcessFootprint::mebibytes();
    EXPECT_GT(before.current, 0);
    EXPECT_GE(before.lifetimeMax, before.current);

    void* const room = ::mmap(nullptr, 100 * mebibyte, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    ASSERT_NE(room, MAP_FAILED);
    const auto held = ProcessFootprint::mebibytes();
    ::munmap(room, 100 * mebibyte);
    const auto after = ProcessFootprint::mebibytes();

    EXPECT_NEAR(static_cast<double>(held.current - before.current), 100, 5);
    EXPECT_NEAR(static_cast<double>(after.current - before.current), 0, 5);
    EXPECT_GE(after.lifetimeMax, held.current - 1);
}
