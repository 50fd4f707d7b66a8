#pragma once

#include "SkinKit/Text/TimeDigits.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

// The player's main menu as plain data: a front end builds its own kind of menu from the tree and
// carries out the commands.
namespace SkinKit {

// What the player can be asked to do.
enum class MainMenuCommand {
    about,
    checkForUpdates,
    openFiles,
    addFiles,
    toggleEQWindow,
    togglePlaylistWindow,
    openSkin,
    nextSkin,
    previousSkin,
    randomSkin,
    timeElapsed,
    timeRemaining,
    toggleAlwaysOnTop,
    toggleDoubleSize,
    toggleMainShade,
    toggleEQShade,
    togglePlaylistShade,
    toggleRepeat,
    toggleShuffle,
    previous,
    play,
    pause,
    stop,
    next,
    quit,
};

// What the check marks and the enabled items follow.
struct MainMenuState {
    TimeMode timeMode = TimeMode::elapsed;
    bool isEQWindowOpen = false;
    bool isPlaylistWindowOpen = false;
    bool isMainShaded = false;
    bool isEQShaded = false;
    bool isPlaylistShaded = false;
    bool isRepeating = false;
    bool isShuffled = false;
    bool canNavigateSkins = false; // there are other skins to go to
    bool isAlwaysOnTop = false;
    bool isDoubleSize = false;
    bool canCheckForUpdates = false;

    bool operator==(const MainMenuState&) const = default;
};

// A key with the modifiers held. Which key of the keyboard is "command" is the front end's choice.
struct MainMenuShortcut {
    // A set of modifiers, a bit each.
    struct Modifiers {
        static const Modifiers command;
        static const Modifiers option;
        static const Modifiers shift;
        static const Modifiers control;

        int rawValue = 0;

        constexpr bool operator==(const Modifiers&) const = default;

        constexpr bool contains(Modifiers others) const
        {
            return (rawValue & others.rawValue) == others.rawValue;
        }
        friend constexpr Modifiers operator|(Modifiers a, Modifiers b)
        {
            return {a.rawValue | b.rawValue};
        }
    };

    std::string key; // one character, lower case
    Modifiers modifiers;

    bool operator==(const MainMenuShortcut&) const = default;
};

inline constexpr MainMenuShortcut::Modifiers MainMenuShortcut::Modifiers::command{1};
inline constexpr MainMenuShortcut::Modifiers MainMenuShortcut::Modifiers::option{2};
inline constexpr MainMenuShortcut::Modifiers MainMenuShortcut::Modifiers::shift{4};
inline constexpr MainMenuShortcut::Modifiers MainMenuShortcut::Modifiers::control{8};

// An item that carries out a command.
struct MainMenuItem {
    enum class CheckState { off, on };

    MainMenuCommand command = MainMenuCommand::about;
    std::string title;
    CheckState state = CheckState::off;
    bool isEnabled = true;
    std::optional<MainMenuShortcut> shortcut;

    bool operator==(const MainMenuItem&) const = default;

    static constexpr CheckState checkState(bool checked)
    {
        return checked ? CheckState::on : CheckState::off;
    }
};

// A line of a menu.
struct MainMenuEntry {
    // A submenu with its title.
    struct Submenu {
        std::string title;
        std::vector<MainMenuEntry> entries;

        bool operator==(const Submenu&) const;
    };
    // A line between groups of items.
    struct Separator {
        bool operator==(const Separator&) const = default;
    };

    std::variant<MainMenuItem, Submenu, Separator> content;

    bool operator==(const MainMenuEntry&) const = default;
};

namespace MainMenu {

// The whole menu, to be built again whenever the state changes.
std::vector<MainMenuEntry> entries(const MainMenuState& state);

}

}
