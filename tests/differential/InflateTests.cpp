#include "SkinKit/Platform/Inflate.h"

#include "tests/differential/Random.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

using namespace SkinKit;
using differential::Random;

namespace {

constexpr int rawDeflate = -15;
constexpr std::size_t maxBytes = 70'000;

struct ZlibsAnswer {
    std::optional<ByteBuffer> bytes;
    std::string complaint; // in zlib's words; empty when the stream is only cut short or too long
};

ZlibsAnswer zlibsAnswer(ByteView stream)
{
    z_stream zlib{};
    if (inflateInit2(&zlib, rawDeflate) != Z_OK)
        throw std::bad_alloc();
    ByteBuffer room(maxBytes + 1);
    zlib.next_in = const_cast<Bytef*>(stream.data());
    zlib.avail_in = static_cast<uInt>(stream.size());
    zlib.next_out = room.data();
    zlib.avail_out = static_cast<uInt>(room.size());
    const int status = ::inflate(&zlib, Z_FINISH);
    room.resize(zlib.total_out);
    ZlibsAnswer answer;
    if (status == Z_STREAM_END && room.size() <= maxBytes)
        answer.bytes = std::move(room);
    if (status == Z_DATA_ERROR)
        answer.complaint = zlib.msg;
    inflateEnd(&zlib);
    return answer;
}

// Noise, repetition, and stretches of both: what makes streams of literals, of matches, of stored
// blocks and of all of them.
ByteBuffer content(Random& random)
{
    ByteBuffer bytes;
    for (auto parts = random.below(5); parts > 0; --parts) {
        const auto count = random.below(random.oneIn(10) ? 9000 : 500);
        const auto values = random.oneOf<std::size_t>({1, 3, 20, 256});
        for (std::size_t i = 0; i < count; ++i)
            bytes.push_back(static_cast<std::uint8_t>(random.below(values)));
    }
    return bytes;
}

ByteBuffer deflated(ByteView bytes, int level, int strategy)
{
    constexpr int usualMemory = 8;
    z_stream zlib{};
    if (deflateInit2(&zlib, level, Z_DEFLATED, rawDeflate, usualMemory, strategy) != Z_OK)
        throw std::bad_alloc();
    ByteBuffer stream(2 * bytes.size() + 100); // deflateBound does not hold for all of them
    zlib.next_in = const_cast<Bytef*>(bytes.data());
    zlib.avail_in = static_cast<uInt>(bytes.size());
    zlib.next_out = stream.data();
    zlib.avail_out = static_cast<uInt>(stream.size());
    if (::deflate(&zlib, Z_FINISH) != Z_STREAM_END)
        throw std::logic_error("zlib can't compress");
    stream.resize(zlib.total_out);
    deflateEnd(&zlib);
    return stream;
}

ByteBuffer deflated(ByteView bytes, Random& random)
{
    return deflated(bytes, random.between(0, 9),
                    random.oneOf({Z_DEFAULT_STRATEGY, Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED}));
}

std::optional<ByteBuffer> ours(ByteView stream, Random& random)
{
    return inflate(stream, random.oneOf<std::int64_t>({0, 1, 1000, 200'000}), maxBytes);
}

}

TEST(DifferentialInflate, GivesWhatZlibGivesForStreamsOfEveryLevelAndStrategy)
{
    Random random(5);
    for (int round = 0; round < 4000; ++round) {
        const auto bytes = content(random);
        ASSERT_EQ(ours(deflated(bytes, random), random), bytes) << round;
    }
}

// Zlib is the stricter of the two in a few things that no compressor writes: lengths repeated
// beyond the last symbol, and symbols that the format reserves. There we take what the bytes give.
TEST(DifferentialInflate, GivesWhatZlibGivesForDamagedStreamsAndRefusesWhatItRefuses)
{
    const std::set<std::string_view> reserved{
        "invalid bit length repeat",
        "invalid distance code",
        "invalid literal/length code",
        "too many length or distance symbols",
    };
    Random random(6);
    int accepted = 0;
    constexpr int rounds = 8000;
    for (int round = 0; round < rounds; ++round) {
        auto stream =
            random.oneIn(4) ? random.bytes(random.below(60)) : deflated(content(random), random);
        differential::damage(stream, random, 40);
        const auto [bytes, complaint] = zlibsAnswer(stream);
        const auto result = ours(stream, random);
        if (!bytes && reserved.contains(complaint))
            continue;
        ASSERT_EQ(result, bytes) << round << " " << complaint;
        accepted += bytes.has_value();
    }
    // Damage that all or none of the streams survive would try nothing.
    EXPECT_GT(accepted, rounds / 8);
    EXPECT_LT(accepted, rounds * 3 / 4);
}
