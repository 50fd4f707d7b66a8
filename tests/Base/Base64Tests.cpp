#include "SkinKit/Base/Base64.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

using namespace SkinKit;

TEST(Base64, WritesThreeBytesAsFourCharacters)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"",             ""        },
        {"f",            "Zg=="    },
        {"fo",           "Zm8="    },
        {"foo",          "Zm9v"    },
        {"foob",         "Zm9vYg=="},
        {"\xFF\xEF\xBE", "/+++"    },
    };
    for (const auto& [bytes, expected] : rows)
        EXPECT_EQ(Base64::encoded(asBytes(bytes)), expected);
}

TEST(Base64, BreaksLinesAfter76Characters)
{
    const std::string fullLine(76, 'A');
    const auto lines = [](std::size_t count) { return Base64::encodedLines(ByteBuffer(count, 0)); };
    EXPECT_EQ(lines(0), "");
    EXPECT_EQ(lines(1), "AA==\r\n");
    EXPECT_EQ(lines(57), fullLine + "\r\n");
    EXPECT_EQ(lines(58), fullLine + "\r\nAA==\r\n");
}
