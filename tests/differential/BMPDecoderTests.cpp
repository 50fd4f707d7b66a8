#include "SkinKit/Graphics/BMPDecoder.h"

#include "tests/differential/RandomBMP.h"
#include "tests/differential/SlowBMPDecoder.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using namespace differential;

namespace {

constexpr std::size_t headBytes = 70; // headers and masks

}

TEST(DifferentialBMPDecoder, ShowsWhatTheSlowDecoderShowsOfFilesOfEveryKind)
{
    Random random(1);
    int shown = 0;
    constexpr int rounds = 6000;
    for (int round = 0; round < rounds; ++round) {
        const auto file = RandomBMP(random, RandomBMP::Kind::any).bytes();
        const auto image = BMPDecoder::decode(file);
        ASSERT_EQ(image, slowlyDecodedBMP(file)) << round;
        ASSERT_TRUE(!image || image->isOpaque());
        shown += image.has_value();
    }
    EXPECT_GT(shown, rounds * 4 / 5);
}

TEST(DifferentialBMPDecoder, RefusesAndShowsTheSameDamagedFiles)
{
    Random random(2);
    int shown = 0;
    constexpr int rounds = 12'000;
    for (int round = 0; round < rounds; ++round) {
        auto file = RandomBMP(random, RandomBMP::Kind::any).bytes();
        damage(file, random, headBytes);
        const auto image = BMPDecoder::decode(file);
        ASSERT_EQ(image, slowlyDecodedBMP(file)) << round;
        shown += image.has_value();
    }
    // Damage that all or none of the files survive would try nothing.
    EXPECT_GT(shown, rounds / 4);
    EXPECT_LT(shown, rounds * 3 / 4);
}

TEST(DifferentialBMPDecoder, RefusesAndShowsTheSameFilesCutOffAnywhere)
{
    Random random(3);
    for (int round = 0; round < 60; ++round) {
        const auto file = RandomBMP(random, RandomBMP::Kind::any).bytes();
        for (std::size_t length = 0; length < file.size(); length += 1 + length / headBytes * 5) {
            const auto start = support::ByteView(file).first(length);
            ASSERT_EQ(BMPDecoder::decode(start), slowlyDecodedBMP(start)) << round << " " << length;
        }
    }
}
