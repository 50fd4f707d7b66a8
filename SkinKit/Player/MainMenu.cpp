#include "SkinKit/Player/MainMenu.h"

#include <string_view>
#include <utility>

namespace SkinKit {

bool MainMenuEntry::Submenu::operator==(const Submenu&) const = default;

namespace MainMenu {
namespace {

using Entries = std::vector<MainMenuEntry>;
using Modifiers = MainMenuShortcut::Modifiers;

// Of an item, what most of them leave as it is.
struct Traits {
    bool checked = false;
    bool enabled = true;
};

MainMenuEntry item(MainMenuCommand command, std::string_view title,
                   std::optional<MainMenuShortcut> shortcut, Traits traits = {})
{
    return {
        MainMenuItem{.command = command,
                     .title = std::string(title),
                     .state = MainMenuItem::checkState(traits.checked),
                     .isEnabled = traits.enabled,
                     .shortcut = std::move(shortcut)}
    };
}

MainMenuEntry submenu(std::string_view title, Entries entries)
{
    return {
        MainMenuEntry::Submenu{std::string(title), std::move(entries)}
    };
}

MainMenuEntry separator()
{
    return {MainMenuEntry::Separator{}};
}

constexpr std::nullopt_t none = std::nullopt;

MainMenuShortcut command(std::string_view key, Modifiers more = {})
{
    return {std::string(key), Modifiers::command | more};
}

// With the letter that is the single-key command for the same (see WinampHotkeys).
MainMenuShortcut commandControl(std::string_view key)
{
    return command(key, Modifiers::control);
}

// clang-format off
Entries skinsEntries(const MainMenuState& state)
{
    using enum MainMenuCommand;
    const Traits navigation{.enabled = state.canNavigateSkins};
    return {
        item(openSkin,     "Open Skin…",    command("o", Modifiers::shift)),
        separator(),
        item(nextSkin,     "Next Skin",     command("]"),                   navigation),
        item(previousSkin, "Previous Skin", command("["),                   navigation),
        item(randomSkin,   "Random Skin",   command("r", Modifiers::shift), navigation),
    };
}

Entries optionsEntries(const MainMenuState& state)
{
    using enum MainMenuCommand;
    const bool countsUp = state.timeMode == TimeMode::elapsed;
    return {
        item(timeElapsed,         "Time Elapsed",         none,                {.checked = countsUp}),
        item(timeRemaining,       "Time Remaining",       none,                {.checked = !countsUp}),
        item(toggleAlwaysOnTop,   "Always On Top",        none,                {.checked = state.isAlwaysOnTop}),
        item(toggleDoubleSize,    "Double Size",          none,                {.checked = state.isDoubleSize}),
        separator(),
        item(toggleMainShade,     "Windowshade",          commandControl("w"), {.checked = state.isMainShaded}),
        item(toggleEQShade,       "EQ Windowshade",       commandControl("e"), {.checked = state.isEQShaded}),
        item(togglePlaylistShade, "Playlist Windowshade", commandControl("p"), {.checked = state.isPlaylistShaded}),
        separator(),
        item(toggleRepeat,        "Repeat",               commandControl("r"), {.checked = state.isRepeating}),
        item(toggleShuffle,       "Shuffle",              commandControl("s"), {.checked = state.isShuffled}),
    };
}

Entries playbackEntries()
{
    using enum MainMenuCommand;
    return {
        item(previous, "Previous", commandControl("z")),
        item(play,     "Play",     commandControl("x")),
        item(pause,    "Pause",    commandControl("c")),
        item(stop,     "Stop",     commandControl("v")),
        item(next,     "Next",     commandControl("b")),
    };
}

}

Entries entries(const MainMenuState& state)
{
    using enum MainMenuCommand;
    return {
        item(about,                "About Velmar",       none),
        item(checkForUpdates,      "Check for Updates…", none,         {.enabled = state.canCheckForUpdates}),
        separator(),
        item(openFiles,            "Play File…",         command("o")),
        item(addFiles,             "Add to Playlist…",   command("o", Modifiers::option)),
        separator(),
        item(toggleEQWindow,       "Equalizer",          command("2"), {.checked = state.isEQWindowOpen}),
        item(togglePlaylistWindow, "Playlist Editor",    command("3"), {.checked = state.isPlaylistWindowOpen}),
        separator(),
        submenu("Skins", skinsEntries(state)),
        submenu("Options", optionsEntries(state)),
        submenu("Playback", playbackEntries()),
        separator(),
        item(quit,                 "Exit",               command("q")),
    };
}
// clang-format on

}

}
