#include "examples/samples/TextFiles.h"

namespace samples {
namespace {

std::string hexText(Color color)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const unsigned channel : {color.red, color.green, color.blue}) {
        text += digits[channel / 16];
        text += digits[channel % 16];
    }
    return text;
}

std::string colorLine(Color color, std::string_view meaning)
{
    return std::to_string(color.red) + "," + std::to_string(color.green) + "," +
           std::to_string(color.blue) + ", // " + std::string(meaning) + "\r\n";
}

}

std::string visColorText(const Look& look)
{
    constexpr int barRows = 16;
    constexpr int traceShades = 5;
    std::string text = colorLine(look.visBackground, "background");
    text += colorLine(look.visDots, "grid dots");
    for (int row = 0; row < barRows; ++row)
        text += colorLine(look.visBars.at(row, barRows), row == 0 ? "bars, topmost row" : "bars");
    for (int shade = 0; shade < traceShades; ++shade)
        text +=
            colorLine(look.visTrace.at(shade, traceShades), shade == 0 ? "trace, middle" : "trace");
    return text + colorLine(look.visPeak, "peak marks");
}

std::string playlistText(const Look& look)
{
    return "[Text]\r\n"
           "Normal=" +
           hexText(look.listInk) + "\r\nCurrent=" + hexText(look.listInkCurrent) +
           "\r\nNormalBG=" + hexText(look.list.fill.stops.front()) +
           "\r\nSelectedBG=" + hexText(look.listSelection) + "\r\nFont=" + look.listFont + "\r\n";
}

}
