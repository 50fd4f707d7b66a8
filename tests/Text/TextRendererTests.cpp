#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Text/TextRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

using namespace SkinKit;

namespace {

Skin skinWithText(Size size)
{
    Skin skin;
    skin.sheets.emplace("TEXT", support::markedImage(size));
    return skin;
}

// The letters that an image shows, cell by cell from `xs`; "~" for an empty one, "?" for a mixture.
std::string lettersAt(const Image& image, std::span<const int> xs, std::string_view candidates,
                      const Skin& skin)
{
    std::string letters;
    for (const int x : xs) {
        const Image cell = *image.crop({x, 0, 5, 6});
        if (cell ==
            *Image(PixelBuffer::transparent({5, 6}), Image::Alpha::any).crop({0, 0, 5, 6})) {
            letters += '~';
            continue;
        }
        const auto found = std::ranges::find_if(candidates, [&](char c) {
            const auto sprite = TextFont::sprite(static_cast<char16_t>(c));
            return cell == *skin.sheets.at("TEXT").crop(sprite->rect());
        });
        letters += found == candidates.end() ? '?' : *found;
    }
    return letters;
}

}

TEST(TextRenderer, DrawsACellForEachUnitOfTheComposedText)
{
    const Skin skin = skinWithText({155, 18});
    const auto image = textImage(skin, "Cafe\u0301;9");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (Size{30, 6}));
    constexpr int xs[] = {0, 5, 10, 15, 20, 25};
    EXPECT_EQ(lettersAt(*image, xs, "acef9", skin), "cafe~9");
}

TEST(TextRenderer, StretchesCellsThatASmallSheetCutsShort)
{
    // The last column that is there belongs to the "b", two of whose five it has.
    const auto image = textImage(skinWithText({7, 4}), "bc");
    ASSERT_TRUE(image);
    constexpr unsigned columns[] = {5, 5, 6, 6, 6}; // floor((i + 1/2) * 2 / 5) beyond 5
    constexpr unsigned rows[] = {0, 1, 1, 2, 3, 3}; // floor((i + 1/2) * 4 / 6)
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 5; ++x) {
            EXPECT_EQ(image->pixel({x, y}), packPixel(columns[x], rows[y], 0)) << x << ", " << y;
            EXPECT_EQ(image->pixel({5 + x, y}), transparentPixel) << "no c at all";
        }
}

TEST(TextRenderer, GivesNothingWithoutATextOrASheet)
{
    EXPECT_FALSE(textImage(Skin{}, "text"));
    EXPECT_FALSE(textImage(skinWithText({155, 18}), ""));
    EXPECT_FALSE(miniTimeImage(Skin{}, MiniTime::blank()));
}

TEST(TextRenderer, LeavesAGapForTheColonOfTheMiniClock)
{
    const Skin skin = skinWithText({155, 18});
    const auto image = miniTimeImage(skin, {"-", "1", "2", "", "4x"});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (Size{30, 6}));
    constexpr int xs[] = {1, 7, 12, 20, 25};
    EXPECT_EQ(lettersAt(*image, xs, "-124", skin), "-12~4");
    for (int y = 0; y < 6; ++y)
        for (const int x : {0, 6, 17, 18, 19})
            EXPECT_EQ(image->pixel({x, y}), transparentPixel);
}
