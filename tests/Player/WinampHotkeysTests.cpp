#include "SkinKit/Player/WinampHotkeys.h"
#include "tests/support/Table.h"

#include <cmath>

using namespace SkinKit;
using namespace SkinKit::WinampHotkeys;
using support::expectTable;

// clang-format off
TEST(WinampHotkeys, ReadsASingleKeyWithoutModifiers)
{
    using enum WinampHotkey;
    const auto read = [](const std::string& characters) { return hotkey({characters}); };
    expectTable<std::string, std::optional<WinampHotkey>>(read, {
        {"z", previous}, {"x", play}, {"c", pause}, {"v", stop}, {"b", next},
        {"s", toggleShuffle}, {"r", toggleRepeat}, {"l", openFile}, {"Z", previous}, // caps lock
        {"\uF700", volumeUp}, {"\uF701", volumeDown}, {"\uF702", seekBack}, {"\uF703", seekForward},
        {"zx", {}}, {"\uF702\uF702", {}}, {"a", {}}, {"", {}}, {"\xFF", {}},
    });
    for (const auto modifier :
         {&KeyPress::command, &KeyPress::control, &KeyPress::option, &KeyPress::shift}) {
        KeyPress press{"z"};
        press.*modifier = true;
        EXPECT_EQ(hotkey(press), std::nullopt);
    }
    EXPECT_EQ(hotkey({.charactersIgnoringModifiers = upArrow, .isRepeat = true}), volumeUp);
    EXPECT_EQ(hotkey({.charactersIgnoringModifiers = "x", .isRepeat = true}), std::nullopt);
}

TEST(WinampHotkeys, SeeksWithinTheTrack)
{
    using enum SeekDirection;
    const std::tuple<double, double, SeekDirection, std::optional<double>> rows[] = {
        {60, 180, forward, 65}, {60, 180, back, 55}, {3, 180, back, 0}, {178, 180, forward, 180},
        {400, 180, back, 180}, {-20, 180, forward, 0}, {NAN, 180, forward, 0},
        {60, 0, forward, {}}, {60, -1, back, {}}, {60, NAN, forward, {}},
        {60, HUGE_VAL, forward, 65}, // a stream has no end
    };
    for (const auto& [elapsed, duration, direction, expected] : rows)
        EXPECT_EQ(seekTarget(elapsed, duration, direction), expected)
            << elapsed << " of " << duration;
}

TEST(WinampHotkeys, ChangesTheVolumeWithinItsBounds)
{
    using enum VolumeDirection;
    expectTable<float, float>([](float volume) { return nudgedVolume(volume, up); }, {
        {0.5F, 0.5F + 0.01F}, {0.995F, 1}, {-7, 0}, {NAN, 0},
    });
    expectTable<float, float>([](float volume) { return nudgedVolume(volume, down); }, {
        {0.5F, 0.5F - 0.01F}, {0.004F, 0}, {7, 1},
    });
}
// clang-format on
