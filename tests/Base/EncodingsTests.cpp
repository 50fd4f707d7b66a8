#include "SkinKit/Base/Encodings.h"
#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

using namespace SkinKit;

TEST(Hex, ReadsWhatItWritesAndNothingElse)
{
    const std::string bytes("\0\x7F\xA0\xFF", 4);
    EXPECT_EQ(Hex::encoded(asBytes(bytes)), "007fa0ff");
    EXPECT_EQ(Hex::decoded("007fA0Ff"), bytes);
    EXPECT_EQ(Hex::decoded(""), "");
    for (const auto* text : {"0", "0g", "+1", "0x", " 1", "123"})
        EXPECT_EQ(Hex::decoded(text), std::nullopt) << text;
    EXPECT_EQ(Hex::parse("d83C"), 0xD83CU);
    EXPECT_EQ(Hex::parse(""), std::nullopt);
}

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

// Digests from RFC 1321.
TEST(MD5, DigestsAMessageInAnyPieces)
{
    EXPECT_EQ(MD5().hexDigest(), "d41d8cd98f00b204e9800998ecf8427e");
    const std::string message =
        "12345678901234567890123456789012345678901234567890123456789012345678"
        "901234567890";
    for (const std::size_t step : {1U, 7U, 64U, 80U}) {
        MD5 digest;
        for (std::size_t at = 0; at < message.size(); at += step)
            digest.add(support::bytes(message.substr(at, step)));
        EXPECT_EQ(digest.hexDigest(), "57edf4a22be3c955ac49da2e2107b67a") << step;
    }
}
