#include "SkinKit/Cursors/AniDecoder.h"
#include "SkinKit/Cursors/CurDecoder.h"
#include "SkinKit/Platform/PNGCodec.h"
#include "tests/support/CursorWriter.h"

#include <gtest/gtest.h>

#include <climits>

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

using Steps = std::vector<AnimatedCursor::Step>;

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

Steps stepsOf(const AniFile& file)
{
    const auto cursor = AniDecoder::decode(file.bytes());
    return cursor ? cursor->steps : Steps{};
}

}

TEST(AniDecoder, ShowsEachFrameInTurnAtTheDefaultRate)
{
    const AniFile file{
        .frames = {frame(1), frame(2)},
          .defaultRate = 7
    };
    AnimatedCursor expected;
    expected.frames = {*CurDecoder::decode(frame(1)), *CurDecoder::decode(frame(2))};
    expected.steps = {
        {0, 7},
        {1, 7}
    };
    expected.defaultJiffies = 7;
    EXPECT_EQ(AniDecoder::decode(file.bytes()), expected);
}

TEST(AniDecoder, FollowsTheSequenceAndTheRateOfEachStep)
{
    const AniFile file{
        .frames = {frame(1), frame(2)},
          .sequence = {1, 0, 1, 1},
          .rates = {3, 60, 1, 600}
    };
    EXPECT_EQ(stepsOf(file), (Steps{
                                 {1, 3  },
                                 {0, 60 },
                                 {1, 1  },
                                 {1, 600}
    }));
}

TEST(AniDecoder, UsesTheDefaultForStepsWithoutARate)
{
    struct Row {
        std::vector<std::uint32_t> rates;
        std::uint32_t defaultRate;
        Steps expected;
    };
    const Row rows[] = {
        {{5},          8,          {{0, 5}, {1, 8}}            },
        {{0, 4},       8,          {{0, 8}, {1, 4}}            },
        {{1, 2, 3, 4}, 8,          {{0, 1}, {1, 2}}            },
        {{},           0,          {{0, 1}, {1, 1}}            }, // nothing is shown for no time at all
        {{0xFFFFFFFF}, 0x80000000, {{0, INT_MAX}, {1, INT_MAX}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(stepsOf({
                      .frames = {frame(1), frame(2)},
                      .rates = row.rates,
                      .defaultRate = row.defaultRate
        }),
                  row.expected);
}

TEST(AniDecoder, LeavesOutStepsWithoutAFrame)
{
    const AniFile pastTheEnd{
        .frames = {frame(1), frame(2)},
          .sequence = {0, 2, 0xFFFFFFFF, 1},
          .rates = {1, 2, 3, 4}
    };
    EXPECT_EQ(stepsOf(pastTheEnd), (Steps{
                                       {0, 1},
                                       {1, 4}
    }));

    const AniFile damaged{
        .frames = {bytes("no cursor"), frame(1), {}, frame(2)},
        .sequence = {3,                  0,        1,  2       },
        .rates = {1,                  2,        3,  4       }
    };
    EXPECT_EQ(stepsOf(damaged), (Steps{
                                    {1, 1},
                                    {0, 3}
    }));
}

TEST(AniDecoder, TakesNoMoreOfTheSequenceThanTheHeaderSays)
{
    AniFile file{
        .frames = {frame(1), frame(2)},
          .sequence = {1, 0, 1},
          .steps = 2
    };
    EXPECT_EQ(stepsOf(file), (Steps{
                                 {1, 10},
                                 {0, 10}
    }));
    file.steps = 4'000'000'000;
    EXPECT_EQ(stepsOf(file), (Steps{
                                 {1, 10},
                                 {0, 10},
                                 {1, 10}
    }));
}

TEST(AniDecoder, TellsFramesByTheirBytes)
{
    const auto red = solidImage({2, 2}, {255, 0, 0});
    const AniFile file{
        .frames = {frame(1), plainBitmap(2), *PNGCodec::encode(red)},
          .frameHeight = 2, .flags = 0
    };
    const auto cursor = AniDecoder::decode(file.bytes());
    ASSERT_TRUE(cursor);
    ASSERT_EQ(cursor->frames.size(), 3U);
    EXPECT_EQ(cursor->frames[1].best(), (CursorImage{
                                            solidImage({2, 2},
                                            {2, 0, 0}
                                            ), {1, 1},
                                            24
    }));
    EXPECT_EQ(cursor->frames[2].best(), (CursorImage{
                                            red, {1, 1},
                                             32
    }));
}

TEST(AniDecoder, SkipsOtherChunksAndTheirPadding)
{
    ByteBuffer information = bytes("INFO");
    support::append(information, chunk("INAM", bytes("odd")));
    ByteBuffer extra = chunk("LIST", information);
    support::append(extra, chunk("junk", bytes("x")));
    support::append(extra, chunk("none", {}));
    const AniFile file{.frames = {frame(1)}, .rates = {3}, .extraChunks = extra};
    EXPECT_EQ(stepsOf(file), (Steps{
                                 {0, 3}
    }));
}

TEST(AniDecoder, FindsTheFramesWhateverTheirListClaims)
{
    for (const std::uint32_t size : {4U, 5U, 30U, 100'000U, 0xFFFFFFFFU})
        EXPECT_EQ(stepsOf({
                              .frames = {frame(1), frame(2)},
                                .listBytes = size
        })
                      .size(),
                  2U)
            << size;
}

TEST(AniDecoder, GivesNothingWithoutHeaderFramesOrSteps)
{
    const AniFile good{.frames = {frame(1)}};
    ASSERT_TRUE(AniDecoder::decode(good.bytes()));
    auto otherForm = good.bytes();
    otherForm[8] = 'W';
    const AniFile headless{.frames = {frame(1)}, .hasHeader = false};
    const AniFile shortHeader{
        .frames = {frame(1)}, .hasHeader = false, .extraChunks = chunk("anih", ByteBuffer(35, 1))};
    struct Row {
        std::string_view what;
        ByteBuffer file;
    };
    const Row rows[] = {
        {"no header",                  headless.bytes()                                      },
        {"a short header",             shortHeader.bytes()                                   },
        {"another kind of file",       otherForm                                             },
        {"no frames",                  AniFile{}.bytes()                                     },
        {"damaged frames only",        AniFile{.frames = {bytes("no cursor")}}.bytes()       },
        {"no step that shows a frame", AniFile{.frames = {frame(1)}, .sequence = {1}}.bytes()},
        {"a bare container",           bytes("RIFF....ACON")                                 },
    };
    for (const auto& row : rows)
        EXPECT_FALSE(AniDecoder::decode(row.file)) << row.what;
}

TEST(AniDecoder, SpendsOneBudgetOnAllFrames)
{
    const auto large = curFile(cursorPicture(encodeBMP(solidImage({256, 256}, {0, 0, 0}), 1)));
    const auto cursor = AniDecoder::decode(AniFile{
        .frames = {70, large}
    }.bytes());
    ASSERT_TRUE(cursor);
    EXPECT_EQ(cursor->frames.size(), 64U);
    EXPECT_EQ(cursor->steps.size(), 64U);
}

TEST(AniDecoder, ReadsNothingPastTheEndHoweverShortTheFileIsCut)
{
    const auto whole =
        AniFile{
            .frames = {frame(1), frame(2)},
              .sequence = {1,        0       },
              .rates = {2,        3       }
    }
            .bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ByteBuffer part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const auto cursor = AniDecoder::decode(part);
        EXPECT_TRUE(!cursor || cursor->steps.size() <= 2) << length;
    }
}
