#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <string>

using namespace SkinKit;
using namespace SkinKit::MainWindowLayout;

TEST(MainWindowLayout, GivesEachButtonThePlaceAndTheSizeOfItsSprite)
{
    const std::pair<Rect, std::string_view> rows[] = {
        {rect(TitleButton::options), "MAIN_OPTIONS_BUTTON"},
        {rect(TitleButton::minimize), "MAIN_MINIMIZE_BUTTON"},
        {rect(TitleButton::shade), "MAIN_SHADE_BUTTON"},
        {rect(TitleButton::close), "MAIN_CLOSE_BUTTON"},
        {rect(ClutterButton::mainMenu), spriteName(ClutterButton::mainMenu)},
        {rect(ClutterButton::alwaysOnTop), spriteName(ClutterButton::alwaysOnTop)},
        {rect(ClutterButton::fileInfo), spriteName(ClutterButton::fileInfo)},
        {rect(ClutterButton::doubleSize), spriteName(ClutterButton::doubleSize)},
        {rect(ClutterButton::visualizer), spriteName(ClutterButton::visualizer)},
        {rect(Transport::previous), spriteName(Transport::previous, ButtonState::released)},
        {rect(Transport::play), spriteName(Transport::play, ButtonState::pressed)},
        {rect(Transport::pause), spriteName(Transport::pause, ButtonState::released)},
        {rect(Transport::stop), spriteName(Transport::stop, ButtonState::released)},
        {rect(Transport::next), spriteName(Transport::next, ButtonState::pressed)},
        {rect(Transport::eject), spriteName(Transport::eject, ButtonState::released)},
        {titleBar, "MAIN_TITLE_BAR"},
        {clutterBar, "MAIN_CLUTTER_BAR_BACKGROUND"},
        {MainSliders::position.background(), "MAIN_POSITION_SLIDER_BACKGROUND"},
    };
    for (const auto& [place, name] : rows) {
        const auto sprite = SkinSprites::byName(name);
        ASSERT_TRUE(sprite) << name;
        EXPECT_EQ(sprite->sprite.rect().size(), place.size()) << name;
        EXPECT_TRUE(contains(Rect{0, 0, size.width, size.height}, place)) << name;
    }
    for (const auto button : allTransports) {
        const std::string released(spriteName(button, ButtonState::released));
        EXPECT_EQ(spriteName(button, ButtonState::pressed), released + "_ACTIVE");
    }
    EXPECT_EQ(rect(Transport::next), (Rect{108, 88, 22, 18})); // narrower than its released sprite
}

TEST(MainWindowLayout, StacksTheClutterButtonsInsideTheirBar)
{
    int y = 25;
    for (const auto& [button, letter] : {
             std::pair{ClutterButton::mainMenu,    'O'},
             {ClutterButton::alwaysOnTop, 'A'},
             {ClutterButton::fileInfo,    'I'},
             {ClutterButton::doubleSize,  'D'},
             {ClutterButton::visualizer,  'V'}
    }) {
        EXPECT_EQ(rect(button).y, y);
        EXPECT_TRUE(contains(clutterBar, rect(button)));
        EXPECT_EQ(spriteName(button),
                  std::string("MAIN_CLUTTER_BAR_BUTTON_") + letter + "_SELECTED");
        y = rect(button).bottom();
    }
}

TEST(MainShadeLayout, ExcludesFromDraggingWhatCanBeClicked)
{
    const auto& areas = MainShadeLayout::dragExclusions;
    EXPECT_EQ(MainShadeLayout::size, MainWindowLayout::shadeSize);
    EXPECT_EQ(std::size(areas), 13U);
    for (const Rect& area : areas)
        EXPECT_TRUE(contains(Rect{0, 0, 275, 14}, area)) << area.x;
    const auto& position = MainSliders::shadePosition;
    for (const Point part : {
             Point{6,                      3                    },
             {252,                    11                   },
             {254,                    3                    },
             {272,                    11                   },
             {127,                    4                    },
             {79,                     5                    },
             {154,                    9                    },
             {169,                    2                    },
             {224,                    11                   },
             position.origin,
             {position.origin.x + 16, position.origin.y + 6}
    })
        EXPECT_TRUE(std::ranges::any_of(areas, [&](const Rect& r) { return contains(r, part); }))
            << part.x;
}
