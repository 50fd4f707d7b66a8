#include "SkinKit/Formats/AniDecoder.h"
#include "SkinKit/Formats/CurDecoder.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "tests/support/CursorWriter.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace SkinKit;
using support::AniFile;
using support::ByteBuffer;
using support::bytes;
using support::chunk;
using support::curFile;
using support::cursorPicture;
using support::encodeBMP;
using support::solidImage;

namespace {

// The frame as a file, told apart from others by its shade.
ByteBuffer frame(std::uint8_t shade)
{
    return curFile(cursorPicture(encodeBMP(solidImage({2, 2}, {shade, 0, 0}), 24)), {1, 0});
}

// Without its file header.
ByteBuffer plainBitmap(std::uint8_t shade)
{
    const auto file = encodeBMP(solidImage({2, 2}, {shade, 0, 0}), 24);
    return {file.begin() + 14, file.end()};
}

AniFile twoFrames()
{
    AniFile file;
    file.frames = {frame(1), frame(2)};
    return file;
}

// Each step as frame:jiffies, or a remark.
std::string stepsOf(const AniFile& file)
{
    const auto cursor = AniDecoder::decode(file.bytes());
    if (!cursor)
        return "unreadable";
    std::ostringstream text;
    for (const auto& [frame, jiffies] : cursor->steps)
        text << (text.view().empty() ? "" : " ") << frame << ":" << jiffies;
    return text.str();
}

}

TEST(AniDecoder, FollowsTheSequenceAndTheRateOfEachStep)
{
    using Numbers = std::vector<std::uint32_t>;
    // clang-format off
    const struct { Numbers sequence,
    rates; std::uint32_t defaultRate; std::optional<std::uint32_t> steps;
                   std::string_view expected; } rows[] = {
        {{1, 0, 1, 1},          {3, 60, 1, 600}, 10, {},         "1:3 0:60 1:1 1:600"},
        {{0, 2, 0xFFFFFFFF, 1}, {1, 2, 3, 4}, 10, {}, "0:1 1:4"}, // steps past the frames
        {{},                    {5},             8,  {},         "0:5 1:8"},
        {{},                    {0, 4},          8,  {},         "0:8 1:4"},
        {{},                    {1, 2, 3, 4},    8,  {},         "0:1 1:2"},
        {{}, {}, 0, {}, "0:1 1:1"}, // nothing is shown for no time
        {{},                    {0xFFFFFFFF}, 0x80000000, {},    "0:2147483647 1:2147483647"},
        {{1, 0, 1}, {}, 10, 2, "1:10 0:10"}, // no more than the header says
        {{1, 0, 1},             {},              10, 3,          "1:10 0:10 1:10"},
        {{1, 0, 1},             {},              10, 0xFFFFFFFF, "1:10 0:10 1:10"},
        {{1, 0, 1},             {},              10, 0,          "1:10 0:10 1:10"},  // says nothing
    };
    // clang-format on
    for (const auto& row : rows) {
        AniFile file = twoFrames();
        file.sequence = row.sequence;
        file.rates = row.rates;
        file.defaultRate = row.defaultRate;
        file.steps = row.steps;
        EXPECT_EQ(stepsOf(file), row.expected);
    }
}

TEST(AniDecoder, LeavesOutDamagedFramesAndTheirSteps)
{
    AniFile file;
    file.frames = {bytes("no cursor"), frame(1), {}, frame(2)};
    file.sequence = {3, 0, 1, 2};
    file.rates = {1, 2, 3, 4};
    EXPECT_EQ(stepsOf(file), "1:1 0:3");
    EXPECT_EQ(AniDecoder::decode(file.bytes())->frames.size(), 2U);
}

TEST(AniDecoder, TellsFramesByTheirBytes)
{
    const auto red = solidImage({2, 2}, {255, 0, 0});
    AniFile file;
    file.frames = {frame(1), plainBitmap(2), *PNGCodec::encode(red)};
    file.frameHeight = 2;
    file.flags = 0; // no cursor files, it says
    const auto cursor = AniDecoder::decode(file.bytes());
    ASSERT_TRUE(cursor);
    ASSERT_EQ(cursor->frames.size(), 3U);
    const Point middle{1, 1};
    const CursorImage bitmap{solidImage({2, 2}, {2, 0, 0}), middle, 24};
    const CursorImage png{red, middle, 32};
    EXPECT_EQ(cursor->frames[1].best(), bitmap);
    EXPECT_EQ(cursor->frames[2].best(), png);
}

TEST(AniDecoder, GivesNothingWithoutHeaderFramesOrSteps)
{
    AniFile headless = twoFrames();
    headless.hasHeader = false;
    AniFile shortHeader = headless;
    shortHeader.extraChunks = chunk("anih", ByteBuffer(35, 1));
    AniFile noSteps = twoFrames();
    noSteps.sequence = {2};
    ByteBuffer otherForm = twoFrames().bytes();
    otherForm[8] = 'W';
    const std::pair<std::string_view, ByteBuffer> rows[] = {
        {"no header",                  headless.bytes()                               },
        {"a short header",             shortHeader.bytes()                            },
        {"no frames",                  AniFile{}.bytes()                              },
        {"damaged frames only",        AniFile{.frames = {bytes("no cursor")}}.bytes()},
        {"no step that shows a frame", noSteps.bytes()                                },
        {"another kind of file",       otherForm                                      },
        {"a bare container",           bytes("RIFF....ACON")                          },
    };
    for (const auto& [what, file] : rows)
        EXPECT_FALSE(AniDecoder::decode(file)) << what;
}

TEST(AniDecoder, ReadsNothingPastTheEndHoweverShortTheFileIsCut)
{
    AniFile file = twoFrames();
    file.sequence = {1, 0};
    file.rates = {2, 3};
    const auto whole = file.bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ByteBuffer part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const auto cursor = AniDecoder::decode(part);
        EXPECT_TRUE(!cursor || cursor->steps.size() <= 2) << length;
    }
}
