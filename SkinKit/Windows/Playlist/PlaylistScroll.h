#pragma once

// The playlist's scroll bar: how its position of 0 … 100 and the first visible row belong together.
// A position outside counts as the nearer end, not-a-number as 0.
namespace SkinKit::PlaylistScroll {

inline constexpr int rowHeight = 13; // window pixels

// Rows first … end - 1.
struct Rows {
    int first = 0;
    int end = 0;

    bool operator==(const Rows&) const = default;
};

// How many of `count` rows don't fit.
int overflow(int count, int visibleRows);

// The first visible row, the nearest one to the position.
int offset(double position, int count, int visibleRows);
Rows visibleRange(double position, int count, int visibleRows);

// The position of the first visible row, in hundredths of 0 … 1: where the handle stands.
double handleValue(double position, int count, int visibleRows);

// The position after the wheel moved the list by so many pixels.
double positionAfterWheel(double delta, double position, int count);
// The position after the first visible row moved by `rows`.
double positionAfterScrolling(int rows, double position, int count, int visibleRows);

}
