#include "SkinKit/Formats/CurDecoder.h"
#include "SkinKit/Formats/SkinCursors.h"
#include "tests/support/CursorWriter.h"
#include "tests/support/SkinBuilder.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::AniFile;
using support::ByteBuffer;
using support::bytes;
using support::SkinBuilder;

namespace {

ByteBuffer still(std::uint8_t shade)
{
    return support::curFile(
        support::cursorPicture(support::encodeBMP(support::solidImage({1, 1}, {shade, 0, 0}), 24)));
}

SkinCursors loaded(const SkinBuilder& skin)
{
    return SkinCursors::load(skin.archive());
}

using Names = std::vector<std::string>;

Names namesIn(const SkinCursors& cursors)
{
    Names names;
    for (const auto& [name, cursor] : cursors.byName)
        names.push_back(name);
    return names;
}

}

TEST(SkinCursors, ReadsAllTwentyFourNamesAndNoOther)
{
    const Names all{"CLOSE",    "EQCLOSE",  "EQNORMAL", "EQSLID",  "EQTITLE",  "MAINMENU",
                    "MIN",      "MMENU",    "NORMAL",   "PCLOSE",  "PNORMAL",  "POSBAR",
                    "PSIZE",    "PTBAR",    "PVSCROLL", "PWINBUT", "PWSNORM",  "PWSSIZE",
                    "SONGNAME", "TITLEBAR", "VOLBAL",   "WINBUT",  "WSNORMAL", "WSPOSBAR"};
    SkinBuilder skin;
    for (const auto& name : all)
        skin.file(name + ".CUR", still(1));
    skin.file("volbar.cur", still(1));
    EXPECT_EQ(namesIn(loaded(skin)), all);
}

TEST(SkinCursors, PrefersTheStaticNameAndTakesEitherForWhatItHolds)
{
    const auto animated = AniFile{.frames = {still(2)}}.bytes();
    const auto cursors = loaded(SkinBuilder{}
                                    .file("close.cur", still(1))
                                    .file("close.ani", animated)
                                    .file("min.cur", animated)
                                    .file("min.ani", still(1))
                                    .file("normal.ani", still(1)));
    const auto isAnimated = [&cursors](std::string_view name) {
        return std::holds_alternative<AnimatedCursor>(*cursors.cursor(name));
    };
    ASSERT_EQ(namesIn(cursors), (Names{"CLOSE", "MIN", "NORMAL"}));
    EXPECT_FALSE(isAnimated("CLOSE"));
    EXPECT_TRUE(isAnimated("MIN"));
    EXPECT_FALSE(isAnimated("NORMAL"));
}

TEST(SkinCursors, ListsDamagedFilesInAscendingOrder)
{
    const auto cursors = loaded(SkinBuilder{}
                                    .text("WINBUT.CUR", "no cursor")
                                    .text("mmenu.ani", "RIFF of something else")
                                    .text("min.cur", "")
                                    .file("min.ani", AniFile{.frames = {still(1)}}.bytes())
                                    .file("normal.cur", still(1)));
    EXPECT_EQ(cursors.unreadable, (Names{"min.cur", "mmenu.ani", "winbut.cur"}));
    EXPECT_EQ(namesIn(cursors), Names{"NORMAL"});
}

TEST(SkinCursors, IgnoresAFileThatIsTooLarge)
{
    ByteBuffer largest = still(1);
    largest.resize(SkinCursors::maxFileBytes, 0);
    ByteBuffer tooLarge = largest;
    tooLarge.push_back(0);
    const auto cursors = loaded(SkinBuilder{}
                                    .file("close.cur", largest)
                                    .file("min.cur", tooLarge)
                                    .file("normal.cur", tooLarge)
                                    .file("normal.ani", still(1)));
    EXPECT_EQ(namesIn(cursors), (Names{"CLOSE", "NORMAL"}));
    EXPECT_TRUE(cursors.unreadable.empty());
}

TEST(SkinCursors, ArePartOfASkinAndMakeNoNotes)
{
    const auto plain = SkinBuilder{}.allSheets().parse();
    const auto skin =
        SkinBuilder{}.allSheets().file("normal.cur", still(9)).text("close.cur", "").parse();
    ASSERT_TRUE(plain && skin && skin->cursors.cursor("NORMAL"));
    EXPECT_EQ(*skin->cursors.cursor("NORMAL"), Cursor(*CurDecoder::decode(still(9))));
    EXPECT_EQ(skin->cursors.cursor("CLOSE"), nullptr);
    EXPECT_EQ(skin->cursors.unreadable, Names{"close.cur"});
    EXPECT_EQ(skin->warnings, plain->warnings);
    EXPECT_EQ(skin->fallbacks, plain->fallbacks);
}
