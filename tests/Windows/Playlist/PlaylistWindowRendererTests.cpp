#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <set>

using namespace SkinKit;
using PlaylistLayout::Menu;
using PlaylistLayout::Steps;
using support::markOf;

namespace {

Image markedSheet()
{
    return support::markedImage(GeneratedBaseSkin::size("PLEDIT"));
}

// Colours that are no marks: no sheet is so high.
const PlaylistStyle style{
    .normal = {1, 250, 0},
    .current = {2, 250, 0},
    .normalBackground = {3, 250, 0},
    .selectedBackground = {4, 250, 0}
};

const Pixel normal = opaquePixel(style.normal);
const Pixel current = opaquePixel(style.current);
const Pixel normalBackground = opaquePixel(style.normalBackground);
const Pixel selectedBackground = opaquePixel(style.selectedBackground);

Skin markedSkin()
{
    Skin skin;
    skin.sheets.emplace("PLEDIT", markedSheet());
    skin.playlistStyle = style;
    return skin;
}

PlaylistWindowState fullList(Steps steps)
{
    PlaylistWindowState state{.current = 1, .steps = steps};
    for (int i = 0; i < 100; ++i)
        state.entries.push_back({"Agpqy, j@|" + std::string(i == 2 ? 1000 : 3, 'W'), 61.0 * i});
    state.entries[0].isSelected = true;
    return state;
}

Image render(const Skin& skin, const PlaylistWindowState& state)
{
    return PlaylistWindowRenderer::render(skin, state, 1, Clip::none);
}

PlaylistWindowState shaded(PlaylistWindowState state)
{
    state.shaded = true;
    return state;
}

// The sprite's pixel that a point of the rectangle shows when the sprite is repeated across it.
Pixel tiledMark(std::string_view sprite, const Rect& rect, Point point)
{
    const Rect source = SkinSprites::byName(sprite)->sprite.rect();
    return markOf({source.x + (point.x - rect.x) % source.width,
                   source.y + (point.y - rect.y) % source.height});
}

void expectSprite(const Image& image, std::string_view sprite, const Rect& rect)
{
    for (int y = rect.y; y < rect.bottom(); ++y)
        for (int x = rect.x; x < rect.right(); ++x)
            ASSERT_EQ(image.pixel({x, y}), tiledMark(sprite, rect, {x, y}))
                << sprite << " at " << x << ", " << y;
}

std::set<Pixel> colorsIn(const Image& image, const Rect& rect)
{
    std::set<Pixel> colors;
    for (int y = rect.y; y < rect.bottom(); ++y)
        for (int x = rect.x; x < rect.right(); ++x)
            colors.insert(image.pixel({x, y}));
    return colors;
}

Rect rowRect(Steps steps, int row)
{
    const Rect area = PlaylistLayout::trackArea(steps);
    return {area.x, area.y + 13 * row, area.width, 13};
}

}

TEST(PlaylistWindowRenderer, TilesTheFrameAroundTheListAtEverySize)
{
    const Skin skin = markedSkin();
    for (const auto& [width, height] : {
             std::pair{0, 0 },
             {1, 0 },
             {2, 1 },
             {3, 11},
             {8, 3 }
    }) {
        const bool isEven = width % 2 == 0; // also focused, so that both sets of sprites show
        PlaylistWindowState state{
            .steps = {width, height}
        };
        state.focused = isEven;
        const Image image = render(skin, state);
        const std::string end = isEven ? "_SELECTED" : "";
        const int w = 275 + 25 * width;
        const int h = 116 + 29 * height;
        const int title = (w - 100) / 2;
        const int narrow = isEven ? 12 : 0;
        ASSERT_EQ(image.size(), (Size{w, h}));
        expectSprite(image, isEven ? "PLAYLIST_TOP_LEFT_SELECTED" : "PLAYLIST_TOP_LEFT_CORNER",
                     {0, 0, 25, 20});
        expectSprite(image, "PLAYLIST_TOP_TILE" + end, {25, 0, narrow, 20});
        expectSprite(image, "PLAYLIST_TOP_TILE" + end, {25 + narrow, 0, title - 25 - narrow, 20});
        expectSprite(image, "PLAYLIST_TITLE_BAR" + end, {title, 0, 100, 20});
        expectSprite(image, "PLAYLIST_TOP_TILE" + end,
                     {title + 100 + (isEven ? 13 : 0), 0, title - 25 - narrow, 20});
        expectSprite(image, "PLAYLIST_TOP_RIGHT_CORNER" + end, {w - 25, 0, 25, 20});
        expectSprite(image, "PLAYLIST_LEFT_TILE", {0, 20, 12, h - 58});
        const Rect right{w - 20, 20, 20, h - 58};
        EXPECT_EQ(image.pixel({w - 1, h - 39}),
                  tiledMark("PLAYLIST_RIGHT_TILE", right, {w - 1, h - 39}));
        EXPECT_EQ(image.pixel({w - 20, 20}), tiledMark("PLAYLIST_RIGHT_TILE", right, {w - 20, 20}));
        expectSprite(image, "PLAYLIST_SCROLL_HANDLE", {w - 15, 20, 8, 18});
        expectSprite(image, "PLAYLIST_BOTTOM_LEFT_CORNER", {0, h - 38, 125, 38});
        if (width >= 3)
            expectSprite(image, "PLAYLIST_VISUALIZER_BACKGROUND", {w - 225, h - 38, 75, 38});
        const int foot = w - 150 - (width >= 3 ? 75 : 0);
        for (int x = 125; x < foot; ++x)
            ASSERT_EQ(image.pixel({x, h - 1}),
                      tiledMark("PLAYLIST_BOTTOM_TILE", {0, h - 38, w, 38}, {x, h - 1}));
        expectSprite(image, "PLAYLIST_BOTTOM_RIGHT_CORNER", {w - 150, h - 38, 150, 38});
        EXPECT_EQ(colorsIn(image, {12, 20, w - 32, h - 58}), std::set{normalBackground});
    }
}

TEST(PlaylistWindowRenderer, WritesEachEntryInItsColoursAndInsideItsRow)
{
    const Skin skin = markedSkin();
    for (const int height : {0, 1, 3, 11, 16}) {
        const Steps steps(1, height);
        const Image image = render(skin, fullList(steps));
        const int rows = PlaylistLayout::visibleRows(steps);
        for (int i = 0; i < rows; ++i) {
            const Rect row = rowRect(steps, i);
            const Pixel ink = i == 1 ? current : normal;
            const Pixel background = i == 0 ? selectedBackground : normalBackground;
            const Rect letters{row.x + 3, row.y + 1, row.width - 6, 9};
            EXPECT_EQ(colorsIn(image, letters), (std::set{ink, background})) << i;
            const bool isCut = row.bottom() > PlaylistLayout::bottom(steps) - 38;
            for (const Rect& beside : {
                     Rect{row.x,           row.y,      3,         10           },
                     Rect{row.right() - 3, row.y,      3,         10           },
                     Rect{row.x,           row.y,      row.width, 1            },
                     Rect{row.x,           row.y + 10, row.width, isCut ? 0 : 3}
            })
                for (const Pixel color : colorsIn(image, beside))
                    EXPECT_EQ(color, background) << i;
        }
        const Rect foot{0, PlaylistLayout::bottom(steps) - 38, 125, 38};
        expectSprite(image, "PLAYLIST_BOTTOM_LEFT_CORNER", foot);
    }
}

TEST(PlaylistWindowRenderer, ScrollsByWholeRowsAndMovesTheHandle)
{
    const Skin skin = markedSkin();
    auto state = fullList({0, 0});
    const Image top = render(skin, state);
    state.scrollPosition = 100.0 * 1 / 96;
    const Image second = render(skin, state);
    state.scrollPosition = 100;
    const Image bottom = render(skin, state);

    const auto part = [](const Image& image, int row) { return *image.crop(rowRect({0, 0}, row)); };
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(part(top, row + 1), part(second, row));
    EXPECT_EQ(colorsIn(bottom, rowRect({0, 0}, 0)), (std::set{normal, normalBackground}));
    expectSprite(top, "PLAYLIST_SCROLL_HANDLE", {260, 20, 8, 18});
    expectSprite(bottom, "PLAYLIST_SCROLL_HANDLE", {260, 60, 8, 18});
}

TEST(PlaylistWindowRenderer, OpensOneMenuAboveItsButton)
{
    const Skin skin = markedSkin();
    auto state = fullList({3, 2});
    for (const Menu menu : PlaylistLayout::allMenus) {
        state.openMenu = menu;
        const Image image = render(skin, state);
        for (const auto& [sprite, rect] : PlaylistLayout::menuEntries(menu, state.steps))
            expectSprite(image, sprite, rect);
        const auto bar = PlaylistLayout::menuBar(menu, state.steps);
        expectSprite(image, bar.sprite, bar.rect);
    }
}

TEST(PlaylistWindowRenderer, WritesItsTimesInTheSkinsFont)
{
    Skin skin = markedSkin();
    skin.sheets.emplace("TEXT", *GeneratedBaseSkin::sheet("TEXT"));
    PlaylistWindowState state{
        .entries = {{"a", 60.0, true}, {"b", std::nullopt, true}, {"c", -5.0}, {"d", 30.5}},
        .steps = {2, 2},
        .status = {.transport = Transport::playing, .elapsed = 83}
    };
    const Image image = render(skin, state);
    EXPECT_EQ(*image.crop({325 - 143, 174 - 28, 90, 6}), *textImage(skin, "1:00/1:30         "));
    const Image clock = *miniTimeImage(skin, {" ", "0", "1", "2", "3"});
    EXPECT_EQ(image.crop({325 - 84 + 7, 174 - 15, 10, 6}), clock.crop({7, 0, 10, 6}));
    EXPECT_EQ(image.crop({325 - 84 + 20, 174 - 15, 10, 6}), clock.crop({20, 0, 10, 6}));

    state.entries.push_back({"e", 1e300});
    const Image tooLong = render(skin, state);
    for (int x = 325 - 143 + 90; x < 325; ++x) // ends with its room
        ASSERT_EQ(tooLong.pixel({x, 174 - 26}), image.pixel({x, 174 - 26}));
}

TEST(PlaylistWindowRenderer, ShadesToAStripWithTheCurrentEntry)
{
    Skin skin = markedSkin();
    auto state = fullList({3, 7});
    const Image bare = render(skin, shaded(state));
    ASSERT_EQ(bare.size(), (Size{350, 14}));
    expectSprite(bare, "PLAYLIST_SHADE_BACKGROUND_LEFT", {0, 0, 25, 14});
    expectSprite(bare, "PLAYLIST_SHADE_BACKGROUND", {25, 0, 275, 14});
    expectSprite(bare, "PLAYLIST_SHADE_BACKGROUND_RIGHT_SELECTED", {300, 0, 50, 14});
    state.focused = false;
    expectSprite(render(skin, shaded(state)), "PLAYLIST_SHADE_BACKGROUND_RIGHT", {300, 0, 50, 14});

    skin.sheets.emplace("TEXT", *GeneratedBaseSkin::sheet("TEXT"));
    const Image playing = render(skin, shaded(state));
    const auto textAt = [](const Image& image, int x, std::size_t length) {
        return image.crop({x, 4, 5 * static_cast<int>(length), 6});
    };
    EXPECT_EQ(textAt(playing, 5, 8), textImage(skin, "Agpqy, j"));
    EXPECT_EQ(textAt(playing, 300, 4), textImage(skin, "1:01"));

    state.current = 2; // with a name that is far too long
    const Image tooLong = render(skin, shaded(state));
    EXPECT_EQ(textAt(tooLong, 5 + 55 * 5, 1), textImage(skin, "…"));
    EXPECT_EQ(textAt(tooLong, 300, 4), textImage(skin, "2:02"));
    state.current = 100; // no such entry
    const Image idle = render(skin, shaded(state));
    EXPECT_EQ(textAt(idle, 5, 9), textImage(skin, "[No file]"));
}

TEST(PlaylistWindowRenderer, DrawsOnlyTheListWithoutSheets)
{
    Skin skin;
    skin.playlistStyle = style;
    auto state = fullList({1, 1});
    state.openMenu = Menu::misc;
    const Image image = render(skin, state);
    const Rect list{12, 20, 268, 87};
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ASSERT_EQ(image.pixel({x, y}) != transparentPixel, contains(list, Point{x, y}));
    EXPECT_EQ(colorsIn(render(skin, shaded(state)), {0, 0, 300, 14}), std::set{transparentPixel});
}

TEST(PlaylistWindowRenderer, DrawsNoMoreOfASmallSheetThanItHas)
{
    Skin skin = markedSkin();
    skin.sheets.at("PLEDIT") = *markedSheet().crop({0, 0, 140, 50});
    const Image image = render(skin, {
                                         .steps = {1, 1}
    });
    EXPECT_EQ(image.pixel({0, 27}), markOf({0, 49}));
    EXPECT_EQ(image.pixel({0, 28}), transparentPixel); // the tile's rows beyond the sheet
    EXPECT_EQ(image.pixel({0, 49}), markOf({0, 42}));  // the next tile is where it always is
    EXPECT_EQ(image.pixel({37, 5}), markOf({139, 5}));
    EXPECT_EQ(image.pixel({38, 5}), transparentPixel);
}
