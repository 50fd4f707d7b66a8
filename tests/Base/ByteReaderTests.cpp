#include "SkinKit/Base/ByteReader.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace SkinKit;

TEST(ByteReader, ReadsLittleEndianNumbersOneAfterTheOther)
{
    const ByteBuffer bytes{0x34, 0x12, 0xEF, 0xCD, 0xAB, 0x89, 7};
    ByteReader reader(bytes);
    EXPECT_EQ(reader.u16(), 0x1234);
    EXPECT_EQ(reader.u32(), 0x89ABCDEFU);
    EXPECT_EQ(reader.offset(), 6);
    EXPECT_EQ(reader.remaining(), 1);
}

TEST(ByteReader, GivesNothingWhenTheBytesLeftAreTooFew)
{
    const ByteBuffer bytes{1, 2, 3};
    EXPECT_FALSE(ByteReader(bytes, 2).u16());
    EXPECT_TRUE(ByteReader(bytes, 1).u16());
    EXPECT_FALSE(ByteReader(bytes).u32());
    EXPECT_FALSE(ByteReader(bytes).bytes(4));
    EXPECT_FALSE(ByteReader(bytes).bytes(-1));
    EXPECT_FALSE(ByteReader(bytes).bytes(INT64_MAX));
    EXPECT_TRUE(ByteReader(bytes, 3).bytes(0));
    for (const std::int64_t offset : {std::int64_t{-1}, INT64_MIN, INT64_MAX, std::int64_t{4}}) {
        EXPECT_FALSE(ByteReader(bytes, offset).bytes(0)) << offset;
        EXPECT_FALSE(ByteReader(bytes, offset).u16()) << offset;
    }
}
