#pragma once

#include <optional>
#include <string>
#include <string_view>

// The texts of the playlist window.
namespace SkinKit::PlaylistText {

inline constexpr int runningTimeLength = 18; // characters that the running time has room for

// "9. " for index 8, with no-break spaces in front so that the numbers of `count` rows align.
std::string rowNumber(int index, int count);

// "Artist - Title", or the title alone when the artist is empty; without a title the file's name.
std::string displayName(std::string_view artist, std::string_view title, std::string_view fileName);

// Whole minutes and seconds, "122:05". Empty when unknown, not finite or negative.
std::string time(std::optional<double> seconds);

// "0:00/62:05", the selected entries' time and that of all, filled up with spaces.
std::string runningTime(std::optional<double> selected, std::optional<double> total);

}
