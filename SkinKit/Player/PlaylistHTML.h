#pragma once

#include <optional>
#include <span>
#include <string>

// A playlist as a separate web page, in the classic player's dark blue: how many tracks, how long
// they are on average and together, and their list.
namespace SkinKit::PlaylistHTML {

// One track of the list.
struct Entry {
    std::string name;               // the title to show; UTF-8
    std::optional<double> duration; // seconds

    bool operator==(const Entry&) const = default;
};

// The whole page, UTF-8 with line feeds. An entry whose duration is not known (none, not finite or
// negative) is listed without one and left out of the average and the total.
std::string document(std::span<const Entry> entries);

}
