#include "SkinKit/Player/WinampHotkeys.h"

#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace SkinKit::WinampHotkeys {
namespace {

struct Key {
    std::string_view characters;
    WinampHotkey hotkey;
};
// clang-format off
constexpr Key arrows[] = {
    {leftArrow,  WinampHotkey::seekBack},
    {rightArrow, WinampHotkey::seekForward},
    {upArrow,    WinampHotkey::volumeUp},
    {downArrow,  WinampHotkey::volumeDown},
};
constexpr Key letters[] = {
    {"z", WinampHotkey::previous},
    {"x", WinampHotkey::play},
    {"c", WinampHotkey::pause},
    {"v", WinampHotkey::stop},
    {"b", WinampHotkey::next},
    {"s", WinampHotkey::toggleShuffle},
    {"r", WinampHotkey::toggleRepeat},
    {"l", WinampHotkey::openFile},
};
// clang-format on

std::optional<WinampHotkey> find(std::span<const Key> keys, std::string_view characters)
{
    const auto found = std::ranges::find(keys, characters, &Key::characters);
    return found == keys.end() ? std::nullopt : std::optional(found->hotkey);
}

}

std::optional<WinampHotkey> hotkey(const KeyPress& press)
{
    if (press.command || press.control || press.option || press.shift)
        return std::nullopt;
    if (const auto arrow = find(arrows, press.charactersIgnoringModifiers))
        return arrow;
    if (press.isRepeat)
        return std::nullopt;
    return find(letters, Unicode::lowercased(press.charactersIgnoringModifiers));
}

std::optional<double> seekTarget(double elapsed, double duration, SeekDirection direction)
{
    if (!(duration > 0))
        return std::nullopt;
    const double target = elapsed + (direction == SeekDirection::forward ? seekStep : -seekStep);
    return target > 0 ? std::min(target, duration) : 0;
}

float nudgedVolume(float volume, VolumeDirection direction)
{
    const float nudged = volume + (direction == VolumeDirection::up ? volumeStep : -volumeStep);
    return nudged > 0 ? std::min(nudged, 1.0F) : 0;
}

}
