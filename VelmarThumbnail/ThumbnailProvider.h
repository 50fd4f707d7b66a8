#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/SkinError.h"
#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Image.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace VelmarThumbnail {

// What a file browser asks for.
struct ThumbnailRequest {
    std::filesystem::path file; // a skin, archive or folder
    SkinKit::SizeF maximumSize; // points
    SkinKit::SizeF minimumSize; // points
    double scale = 1;           // the display's device pixels per point

    bool operator==(const ThumbnailRequest&) const = default;
};

// Why there is no thumbnail, in the form desktops use for errors: a domain, a number in it, a text.
struct ThumbnailError {
    static constexpr std::string_view skinErrorDomain = "SkinKit.SkinError";

    std::string domain;
    int code = 0; // in the domain of skin errors: the value of SkinError::Kind
    std::string description;

    bool operator==(const ThumbnailError&) const = default;

    static ThumbnailError of(const SkinKit::SkinError& error);
};

// Where a reply is drawn: a canvas of device pixels, `scale` of them per point. Its origin is the
// top left corner of the reply's area.
struct DrawingContext {
    SkinKit::Canvas& canvas;
    double scale = 1;
};

// A length in points, in device pixels. A scale that is not a positive number counts as 1.
double devicePixels(double points, double scale);

// An image to be drawn later, and the area it needs. The callback owns everything it uses: it may
// be called at any time, on any thread, several times, and after the rest of the request is gone.
// It returns whether it drew.
struct ThumbnailReply {
    SkinKit::SizeF contextSize; // points
    std::function<bool(const DrawingContext&)> draw;

    // The whole area drawn, in device pixels; nothing when the callback did not draw. Sides are
    // rounded to whole pixels. An area that no raster can hold is a programming error.
    std::optional<SkinKit::Image> image(double scale) const;
};

}

// Answers a file browser that asks for the picture of a skin: the whole main window as it is before
// anything plays, fitted into the size asked for. Keeps nothing between requests, so any number may
// run side by side.
namespace VelmarThumbnail::ThumbnailProvider {

// The window that every thumbnail shows, in pixels.
inline constexpr SkinKit::Size window{275, 116};

// Takes a reply or an error, never both and never neither.
using Completion =
    std::function<void(std::optional<ThumbnailReply>, std::optional<ThumbnailError>)>;

// How the file of a request becomes an archive.
using OpenArchive = std::function<std::expected<SkinKit::SkinArchive, SkinKit::SkinError>(
    const std::filesystem::path&)>;

// The library's limits, but with less processor time: the thumbnailer may take 3 seconds in all.
SkinKit::SkinArchive::Limits limits();

// Calls `completion` exactly once, before it returns: with the reply, or with why the skin was
// refused. Nothing of the skin is drawn in its stead. Where the window must shrink below its own
// size, it is drawn smoothly, each device pixel the mean of what it covers; else pixel for pixel,
// its top left corner on the nearest whole device pixel (halves away from zero). A size so large
// that no raster can hold the window is a programming error.
void provideThumbnail(const ThumbnailRequest& request, const Completion& completion);
// The same for whoever must open the file in a way of its own.
void provideThumbnail(const ThumbnailRequest& request, const Completion& completion,
                      const OpenArchive& open);

}
