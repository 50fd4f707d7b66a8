#include "SkinKit/Player/MainMenu.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

using namespace SkinKit;

namespace {

using Command = MainMenuCommand;
using Modifiers = MainMenuShortcut::Modifiers;
using State = MainMenuState;

std::string text(const MainMenuShortcut& shortcut)
{
    std::string text;
    for (const auto& [modifier, name] : {
             std::pair{Modifiers::control, "ctrl "  },
             {Modifiers::option,  "option "},
             {Modifiers::shift,   "shift " },
             {Modifiers::command, "cmd "   }
    })
        if (shortcut.modifiers.contains(modifier))
            text += name;
    return text + shortcut.key;
}

// A line an entry, as a menu shows it: the check mark, the title, the shortcut; items that can't be
// chosen in brackets, a submenu's entries indented.
void write(std::ostream& stream, const std::vector<MainMenuEntry>& entries,
           const std::string& indent = "")
{
    for (const auto& [content] : entries) {
        stream << indent;
        if (const auto* submenu = std::get_if<MainMenuEntry::Submenu>(&content)) {
            stream << submenu->title << ":\n";
            write(stream, submenu->entries, indent + "    ");
        } else if (const auto* item = std::get_if<MainMenuItem>(&content)) {
            stream << (item->state == MainMenuItem::CheckState::on ? "* " : "")
                   << (item->isEnabled ? item->title : "[" + item->title + "]")
                   << (item->shortcut ? " | " + text(*item->shortcut) : "") << '\n';
        } else {
            stream << "--\n";
        }
    }
}

std::string shown(const State& state)
{
    std::ostringstream stream;
    write(stream, MainMenu::entries(state));
    return stream.str();
}

// Every item of the menu, from top to bottom.
std::vector<MainMenuItem> items(const std::vector<MainMenuEntry>& entries)
{
    std::vector<MainMenuItem> all;
    for (const auto& [content] : entries) {
        if (const auto* item = std::get_if<MainMenuItem>(&content))
            all.push_back(*item);
        if (const auto* submenu = std::get_if<MainMenuEntry::Submenu>(&content))
            for (auto& item : items(submenu->entries))
                all.push_back(std::move(item));
    }
    return all;
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

TEST(MainMenu, HoldsEachCommandOnceInTheirOrder)
{
    std::vector<Command> commands;
    for (const auto& item : items(MainMenu::entries({})))
        commands.push_back(item.command);
    std::vector<Command> expected;
    for (int i = 0; i <= static_cast<int>(Command::quit); ++i)
        expected.push_back(static_cast<Command>(i));
    EXPECT_EQ(commands, expected);
}

// Each field of the state moves its own item and no other.
TEST(MainMenu, ChecksAndEnablesItemsByTheState)
{
    struct Row {
        bool State::* field;
        std::set<Command> checked, enabled;
    };
    const Row rows[] = {
        {&State::isEQWindowOpen,       {Command::toggleEQWindow},       {}                        },
        {&State::isPlaylistWindowOpen, {Command::togglePlaylistWindow}, {}                        },
        {&State::isMainShaded,         {Command::toggleMainShade},      {}                        },
        {&State::isEQShaded,           {Command::toggleEQShade},        {}                        },
        {&State::isPlaylistShaded,     {Command::togglePlaylistShade},  {}                        },
        {&State::isRepeating,          {Command::toggleRepeat},         {}                        },
        {&State::isShuffled,           {Command::toggleShuffle},        {}                        },
        {&State::isAlwaysOnTop,        {Command::toggleAlwaysOnTop},    {}                        },
        {&State::isDoubleSize,         {Command::toggleDoubleSize},     {}                        },
        {&State::canCheckForUpdates,   {},                              {Command::checkForUpdates}},
        {&State::canNavigateSkins,
         {},
         {Command::nextSkin, Command::previousSkin, Command::randomSkin}                          },
    };
    const auto before = items(MainMenu::entries({}));
    for (const auto& row : rows) {
        State state;
        state.*row.field = true;
        const auto after = items(MainMenu::entries(state));
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            MainMenuItem expected = before[i];
            if (row.checked.contains(expected.command))
                expected.state = MainMenuItem::CheckState::on;
            if (row.enabled.contains(expected.command))
                expected.isEnabled = true;
            EXPECT_EQ(after[i], expected) << expected.title << " of row " << &row - rows;
        }
    }
}

TEST(MainMenu, ChecksExactlyOneWayOfCounting)
{
    EXPECT_TRUE(shown({.timeMode = TimeMode::remaining})
                    .contains("\n    Time Elapsed\n    * Time Remaining\n"));
    EXPECT_EQ(MainMenu::entries({}), MainMenu::entries({}));
    EXPECT_NE(MainMenu::entries({}), MainMenu::entries({.isShuffled = true})); // deep in a submenu
}

TEST(MainMenuShortcut, KeepsItsModifiersAsBits)
{
    EXPECT_EQ(Modifiers::command.rawValue, 1);
    EXPECT_EQ(Modifiers::option.rawValue, 2);
    EXPECT_EQ(Modifiers::shift.rawValue, 4);
    EXPECT_EQ(Modifiers::control.rawValue, 8);
    constexpr auto both = Modifiers::command | Modifiers::control;
    EXPECT_TRUE(both.contains(Modifiers::control) && both.contains({}) && both.contains(both));
    EXPECT_FALSE(both.contains(Modifiers::option | Modifiers::control));
}
