#pragma once

#include "SkinKit/Base/Check.h"
#include "SkinKit/Graphics/Geometry.h"

#include <algorithm>
#include <climits>

// The frames of a slider's background, an image for each range of its value. Sheet pixels.
namespace SkinKit::SliderFrames {

inline constexpr int frameCount = 28;

// Volume and balance: a strip of frames, one below the other.
inline constexpr int frameHeight = 15;      // from one frame to the next
inline constexpr int visibleFrameRows = 13; // of each

// A frame's rectangle in its strip. A negative frame is a programming error.
inline Rect frameRect(const Rect& strip, int frame)
{
    check(frame >= 0 && frame < INT_MAX / frameHeight / 2, "a frame out of range");
    return {strip.x, strip.y + frameHeight * frame, strip.width, visibleFrameRows};
}

// The equalizer's bands: from the lowest value to the highest, in rows of fourteen.
inline constexpr int framesInRow = 14;
inline constexpr Size framePitch{15, 65};
inline constexpr Size bandFrameSize{14, 63};

// The cell of a frame; one beyond is that of the nearer end.
constexpr Rect bandFrameRect(const Rect& strip, int frame)
{
    const int shown = std::clamp(frame, 0, frameCount - 1);
    return {strip.x + framePitch.width * (shown % framesInRow),
            strip.y + framePitch.height * (shown / framesInRow), bandFrameSize.width,
            bandFrameSize.height};
}

}
