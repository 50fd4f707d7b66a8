#include "SkinKit/Player/WinampHotkeys.h"

#include "SkinKit/Player/MainMenu.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

using namespace SkinKit;
using namespace SkinKit::WinampHotkeys;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

}

TEST(WinampHotkeys, ReadsASingleKey)
{
    const std::pair<std::string, std::optional<WinampHotkey>> rows[] = {
        {"l", WinampHotkey::openFile},
        {"\uF700", WinampHotkey::volumeUp},
        {"\uF701", WinampHotkey::volumeDown},
        {"\uF702", WinampHotkey::seekBack},
        {"\uF703", WinampHotkey::seekForward},
        {"Z", WinampHotkey::previous}, // caps lock
        {"zx", std::nullopt},
        {"z ", std::nullopt},
        {"\uF702\uF702", std::nullopt},
        {"a", std::nullopt},
        {"", std::nullopt},
        {"\xFF", std::nullopt}, // no text at all
        {std::string("z\0", 2), std::nullopt},
    };
    for (const auto& [characters, expected] : rows)
        EXPECT_EQ(hotkey({characters}), expected) << characters;
}

TEST(WinampHotkeys, LeavesKeysWithModifiersToOthers)
{
    for (const auto* characters : {"z", "Z", rightArrow})
        for (const auto modifier :
             {&KeyPress::command, &KeyPress::control, &KeyPress::option, &KeyPress::shift}) {
            KeyPress press{characters};
            press.*modifier = true;
            EXPECT_EQ(hotkey(press), std::nullopt) << characters;
        }
}

TEST(WinampHotkeys, RepeatsOnlyTheArrowsWhileTheyAreHeld)
{
    const auto held = [](const char* characters) {
        return hotkey({.charactersIgnoringModifiers = characters, .isRepeat = true});
    };
    EXPECT_EQ(held(rightArrow), WinampHotkey::seekForward);
    EXPECT_EQ(held(upArrow), WinampHotkey::volumeUp);
    EXPECT_EQ(held("x"), std::nullopt);
}

// The menu's shortcuts are command and control with the letter that alone means the same.
TEST(WinampHotkeys, AgreesWithTheLettersOfTheMenu)
{
    std::map<MainMenuCommand, WinampHotkey> hotkeys{
        {MainMenuCommand::toggleRepeat,  WinampHotkey::toggleRepeat },
        {MainMenuCommand::toggleShuffle, WinampHotkey::toggleShuffle},
        {MainMenuCommand::previous,      WinampHotkey::previous     },
        {MainMenuCommand::play,          WinampHotkey::play         },
        {MainMenuCommand::pause,         WinampHotkey::pause        },
        {MainMenuCommand::stop,          WinampHotkey::stop         },
        {MainMenuCommand::next,          WinampHotkey::next         },
    };
    for (const auto& entry : MainMenu::entries({})) {
        const auto* submenu = std::get_if<MainMenuEntry::Submenu>(&entry.content);
        for (const auto& line : submenu ? submenu->entries : std::vector<MainMenuEntry>{})
            if (const auto* item = std::get_if<MainMenuItem>(&line.content);
                item && hotkeys.contains(item->command)) {
                EXPECT_EQ(hotkey({item->shortcut->key}), hotkeys.at(item->command)) << item->title;
                hotkeys.erase(item->command);
            }
    }
    EXPECT_TRUE(hotkeys.empty());
}

TEST(WinampHotkeys, SeeksWithinTheTrack)
{
    constexpr auto back = SeekDirection::back;
    constexpr auto forward = SeekDirection::forward;
    const std::tuple<double, double, SeekDirection, std::optional<double>> rows[] = {
        {60,         180,        forward, 65          },
        {60,         180,        back,    55          },
        {3,          180,        back,    0           },
        {5,          180,        back,    0           },
        {178,        180,        forward, 180         },
        {400,        180,        back,    180         }, // beyond the end to begin with
        {-20,        180,        forward, 0           },
        {1,          2,          forward, 2           }, // a track shorter than a step
        {60,         0,          forward, std::nullopt},
        {60,         -1,         back,    std::nullopt},
        {60,         notANumber, forward, std::nullopt},
        {60,         -infinity,  forward, std::nullopt},
        {60,         infinity,   forward, 65          }, // a stream has no end
        {infinity,   180,        back,    180         },
        {-infinity,  180,        forward, 0           },
        {notANumber, 180,        forward, 0           },
    };
    for (const auto& [elapsed, duration, direction, expected] : rows)
        EXPECT_EQ(seekTarget(elapsed, duration, direction), expected)
            << elapsed << " of " << duration;
}

TEST(WinampHotkeys, NudgesTheVolumeWithinItsBounds)
{
    constexpr auto up = VolumeDirection::up;
    constexpr auto down = VolumeDirection::down;
    const std::tuple<float, VolumeDirection, float> rows[] = {
        {0.5F,                           up,   0.5F + 0.01F},
        {0.5F,                           down, 0.5F - 0.01F},
        {0.995F,                         up,   1           },
        {0.004F,                         down, 0           },
        {1,                              up,   1           },
        {0,                              down, 0           },
        {7,                              down, 1           },
        {-7,                             up,   0           },
        {static_cast<float>(infinity),   up,   1           },
        {static_cast<float>(notANumber), up,   0           },
    };
    for (const auto& [volume, direction, expected] : rows)
        EXPECT_EQ(nudgedVolume(volume, direction), expected) << volume;
    EXPECT_EQ(seekStep, 5.0);
    EXPECT_EQ(volumeStep, 0.01F);
}
