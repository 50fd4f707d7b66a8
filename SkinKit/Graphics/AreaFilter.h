#pragma once

#include "SkinKit/Graphics/Image.h"

// Images at other sizes, smoothly.
namespace SkinKit::AreaFilter {

// A picture of `size` pixels over which the whole of `image` is stretched to `cell`, whose edges
// (in the picture's pixels) may lie between pixels and outside. Each pixel is the mean of what it
// covers, every part of the image counting by its area; what lies outside the cell counts as
// transparent. Worked out on premultiplied channels, so that a colour counts by its alpha, and
// rounded to nearest, halves up. Meant for making images smaller: one that grows shows its pixels
// as blocks. The cell must be finite and not empty.
Image resample(const Image& image, Size size, const RectF& cell);

}
