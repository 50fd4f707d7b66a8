#pragma once

#include "examples/samples/Look.h"

#include <map>
#include <string>
#include <string_view>

namespace samples {

// The sheets of a skin while they are being painted; each is as large as its sprites need.
class Sheets {
public:
    explicit Sheets(Color gutter) : gutter_(gutter) {}

    // The place of a sprite on its sheet.
    Painter sprite(std::string_view name);
    // A whole sheet.
    Painter sheet(std::string_view name);

    std::map<std::string, Image> images() &&;

private:
    Color gutter_;
    std::map<std::string, SkinKit::PixelBuffer, std::less<>> sheets_;
};

// All sixteen sheets in one look.
std::map<std::string, Image> drawSheets(const Look& look);

// The windows' shares of the work.
void drawMainSheets(Sheets& sheets, const Look& look);
void drawEqualizerSheets(Sheets& sheets, const Look& look);
void drawPlaylistSheets(Sheets& sheets, const Look& look);

}
