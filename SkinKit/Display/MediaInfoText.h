#pragma once

#include <optional>
#include <string>

// The stream's bit rate and sample rate, in as many characters as the window has room for.
namespace SkinKit::MediaInfoText {

// Three characters: 64 is " 64", 1411 is "14H" (hundreds), 12345 is " 1C" (the first digit of ten
// thousands). Unknown is "  0"; a negative rate counts as 0.
std::string kbps(std::optional<int> bitrateKbps);

// Two characters, in kilohertz: 44100 is "44". From 100 kHz up the first digit is dropped (192000
// is "92"), up to 10 kHz only the first is kept (10000 is " 1"). Unknown is " 0".
std::string khz(std::optional<double> sampleRate);

}
