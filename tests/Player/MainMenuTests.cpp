#include "SkinKit/Player/MainMenu.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace SkinKit;

namespace {

using Modifiers = MainMenuShortcut::Modifiers;
using State = MainMenuState;

// A line an entry: the check mark, the title, the shortcut; disabled items in brackets, a submenu's
// entries indented. Each item must have the next command.
void write(std::ostream& stream, const std::vector<MainMenuEntry>& entries, int& nextCommand,
           const std::string& indent = "")
{
    constexpr std::pair<Modifiers, std::string_view> names[] = {
        {Modifiers::control, "ctrl "  },
        {Modifiers::option,  "option "},
        {Modifiers::shift,   "shift " },
        {Modifiers::command, "cmd "   }
    };
    for (const auto& [content] : entries) {
        stream << indent;
        if (const auto* submenu = std::get_if<MainMenuEntry::Submenu>(&content)) {
            stream << submenu->title << ":\n";
            write(stream, submenu->entries, nextCommand, indent + "    ");
        } else if (const auto* item = std::get_if<MainMenuItem>(&content)) {
            EXPECT_EQ(static_cast<int>(item->command), nextCommand++) << item->title;
            stream << (item->state == MainMenuItem::CheckState::on ? "* " : "")
                   << (item->isEnabled ? item->title : "[" + item->title + "]")
                   << (item->shortcut ? " | " : "");
            for (const auto& [modifier, name] : names)
                if (item->shortcut && item->shortcut->modifiers.contains(modifier))
                    stream << name;
            stream << (item->shortcut ? item->shortcut->key : "") << '\n';
        } else {
            stream << "--\n";
        }
    }
}

std::string shown(const State& state)
{
    std::ostringstream stream;
    int commands = 0;
    write(stream, MainMenu::entries(state), commands);
    return stream.str();
}

}

TEST(MainMenu, ListsEverythingInItsPlace)
{
    EXPECT_EQ(shown({}), R"(About Velmar
[Check for Updates…]
--
Play File… | cmd o
Add to Playlist… | option cmd o
--
Equalizer | cmd 2
Playlist Editor | cmd 3
--
Skins:
    Open Skin… | shift cmd o
    --
    [Next Skin] | cmd ]
    [Previous Skin] | cmd [
    [Random Skin] | shift cmd r
Options:
    * Time Elapsed
    Time Remaining
    Always On Top
    Double Size
    --
    Windowshade | ctrl cmd w
    EQ Windowshade | ctrl cmd e
    Playlist Windowshade | ctrl cmd p
    --
    Repeat | ctrl cmd r
    Shuffle | ctrl cmd s
Playback:
    Previous | ctrl cmd z
    Play | ctrl cmd x
    Pause | ctrl cmd c
    Stop | ctrl cmd v
    Next | ctrl cmd b
--
Exit | cmd q
)");
}

// Each field of the state changes its own lines and no other.
TEST(MainMenu, ChecksAndEnablesItemsByTheState)
{
    // clang-format off
    const std::tuple<bool State::*, std::string, std::string> rows[] = {
        {&State::isEQWindowOpen,       "Equalizer |",           "* Equalizer |"},
        {&State::isPlaylistWindowOpen, "Playlist Editor",       "* Playlist Editor"},
        {&State::isMainShaded,         "Windowshade",           "* Windowshade"},
        {&State::isEQShaded,           "EQ Windowshade",        "* EQ Windowshade"},
        {&State::isPlaylistShaded,     "Playlist Windowshade",  "* Playlist Windowshade"},
        {&State::isRepeating,          "Repeat",                "* Repeat"},
        {&State::isShuffled,           "Shuffle",               "* Shuffle"},
        {&State::isAlwaysOnTop,        "Always On Top",         "* Always On Top"},
        {&State::isDoubleSize,         "Double Size",           "* Double Size"},
        {&State::canCheckForUpdates,   "[Check for Updates…]",  "Check for Updates…"},
    };
    // clang-format on
    for (const auto& [field, before, after] : rows) {
        State state;
        state.*field = true;
        std::string expected = shown({});
        expected.replace(expected.find(before), before.size(), after);
        EXPECT_EQ(shown(state), expected);
    }
    const auto navigable = shown({.canNavigateSkins = true});
    for (const auto* item : {"    Next Skin |", "    Previous Skin |", "    Random Skin |"})
        EXPECT_TRUE(navigable.contains(item)) << navigable;
    EXPECT_TRUE(shown({.timeMode = TimeMode::remaining})
                    .contains("\n    Time Elapsed\n    * Time Remaining\n"));
}
