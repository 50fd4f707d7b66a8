#include "VelmarThumbnail/ThumbnailProvider.h"

#include "SkinKit/Graphics/AreaFilter.h"
#include "SkinKit/Pages/ThumbnailFit.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>

namespace VelmarThumbnail {

ThumbnailError ThumbnailError::of(const SkinKit::SkinError& error)
{
    return {std::string(skinErrorDomain), static_cast<int>(error.kind()), error.description()};
}

double devicePixels(double points, double scale)
{
    return std::isfinite(scale) && scale > 0 ? points * scale : points;
}

std::optional<SkinKit::Image> ThumbnailReply::image(double scale) const
{
    const auto side = [scale](double points) {
        const double pixels = std::round(devicePixels(points, scale));
        return static_cast<int>(std::clamp<double>(pixels, 1, INT_MAX));
    };
    SkinKit::Canvas canvas({side(contextSize.width), side(contextSize.height)});
    if (!draw({canvas, scale}))
        return std::nullopt;
    return std::move(canvas).image();
}

}

namespace VelmarThumbnail::ThumbnailProvider {
namespace {

using namespace SkinKit;

// The archive is gone when the skin is there.
std::expected<Skin, SkinError> load(const std::filesystem::path& file, const OpenArchive& open)
{
    const auto archive = open(file);
    return archive ? SkinParser::parse(*archive, SkinParser::Sheets::croppedToSprites)
                   : std::unexpected(archive.error());
}

RectF inDevicePixels(const RectF& rect, double scale)
{
    return {devicePixels(rect.x, scale), devicePixels(rect.y, scale),
            devicePixels(rect.width, scale), devicePixels(rect.height, scale)};
}

// Rounds halves away from zero, those, too, that the way through points left a hair below. What
// lies farther out than any raster stays out there.
int nearestPixel(double coordinate)
{
    constexpr double farthest = 1 << 30;
    constexpr double hair = 1e-6;
    const double rounded = std::round(coordinate + std::copysign(hair, coordinate));
    return static_cast<int>(std::clamp(rounded, -farthest, farthest));
}

// Only in a context of another scale than the request's is the rectangle not the image's own size.
void drawPixels(Canvas& canvas, const Image& image, const RectF& device)
{
    canvas.draw(image, Rect{nearestPixel(device.x), nearestPixel(device.y),
                            nearestPixel(device.width), nearestPixel(device.height)});
}

// Device pixels that the rectangle covers in part are covered in part.
void drawSmoothly(Canvas& canvas, const Image& image, const RectF& device)
{
    const double left = std::floor(device.x);
    const double top = std::floor(device.y);
    const Size size{nearestPixel(std::ceil(device.x + device.width) - left),
                    nearestPixel(std::ceil(device.y + device.height) - top)};
    const RectF cell{device.x - left, device.y - top, device.width, device.height};
    canvas.draw(AreaFilter::resample(image, size, cell),
                Point{nearestPixel(left), nearestPixel(top)});
}

bool draw(const DrawingContext& context, const Image& image, const ThumbnailFit::Result& fit)
{
    const RectF device = inDevicePixels(fit.imageRect, context.scale);
    if (fit.smooth)
        drawSmoothly(context.canvas, image, device);
    else
        drawPixels(context.canvas, image, device);
    return true;
}

}

SkinArchive::Limits limits()
{
    return {.maxProcessorTime = std::chrono::seconds(2)};
}

void provideThumbnail(const ThumbnailRequest& request, const Completion& completion,
                      const OpenArchive& open)
{
    const auto skin = load(request.file, open);
    if (!skin)
        return completion(std::nullopt, ThumbnailError::of(skin.error()));

    const auto fit =
        ThumbnailFit::fit(request.maximumSize, request.minimumSize, request.scale, window);
    Image image =
        MainWindowRenderer::render(*skin, MainWindowState::idle(), fit.renderScale, Clip::none);
    const auto drawIt = [image = std::move(image), fit](const DrawingContext& context) {
        return draw(context, image, fit);
    };
    completion(ThumbnailReply{fit.contextSize, drawIt}, std::nullopt);
}

void provideThumbnail(const ThumbnailRequest& request, const Completion& completion)
{
    provideThumbnail(request, completion, [](const std::filesystem::path& file) {
        return SkinArchive::open(file, limits());
    });
}

}
