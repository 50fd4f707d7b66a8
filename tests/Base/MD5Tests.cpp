#include "SkinKit/Base/MD5.h"

#include "tests/support/Bytes.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::bytes;

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
            digest.add(bytes(message.substr(at, step)));
        EXPECT_EQ(digest.hexDigest(), "57edf4a22be3c955ac49da2e2107b67a") << step;
    }
}
