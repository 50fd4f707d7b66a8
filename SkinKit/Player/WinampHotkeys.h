#pragma once

#include <array>
#include <optional>
#include <string>

namespace SkinKit {

// The classic single-key commands of the player.
enum class WinampHotkey {
    previous,
    play,
    pause,
    stop,
    next,
    seekBack,
    seekForward,
    volumeUp,
    volumeDown,
    toggleShuffle,
    toggleRepeat,
    openFile,
};

inline constexpr std::array allWinampHotkeys{
    WinampHotkey::previous,      WinampHotkey::play,         WinampHotkey::pause,
    WinampHotkey::stop,          WinampHotkey::next,         WinampHotkey::seekBack,
    WinampHotkey::seekForward,   WinampHotkey::volumeUp,     WinampHotkey::volumeDown,
    WinampHotkey::toggleShuffle, WinampHotkey::toggleRepeat, WinampHotkey::openFile,
};

// Which key means which command, and what the commands that take a step do.
namespace WinampHotkeys {

inline constexpr double seekStep = 5.0;    // seconds
inline constexpr float volumeStep = 0.01F; // of 0 … 1

// The arrow keys have no characters; these represent them.
inline constexpr const char* upArrow = "\uF700";
inline constexpr const char* downArrow = "\uF701";
inline constexpr const char* leftArrow = "\uF702";
inline constexpr const char* rightArrow = "\uF703";

// One event of the keyboard.
struct KeyPress {
    std::string charactersIgnoringModifiers; // UTF-8; caps lock still counts
    bool command = false;
    bool control = false;
    bool option = false;
    bool shift = false;
    bool isRepeat = false; // the key is being held down

    bool operator==(const KeyPress&) const = default;
};

// Nothing while a modifier is held. Only the arrow keys repeat.
std::optional<WinampHotkey> hotkey(const KeyPress& press);

enum class SeekDirection { back, forward };

// Where a step from `elapsed` leads, in seconds of 0 … `duration`. Nothing when the duration is not
// above 0 or unknown (not-a-number); an elapsed time that is not-a-number leads to 0.
std::optional<double> seekTarget(double elapsed, double duration, SeekDirection direction);

enum class VolumeDirection { down, up };

// The volume a step on, held within 0 … 1; not-a-number leads to 0.
float nudgedVolume(float volume, VolumeDirection direction);

}

}
