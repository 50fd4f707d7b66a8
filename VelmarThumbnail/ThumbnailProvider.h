#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/SkinError.h"
#include "VelmarThumbnail/ThumbnailError.h"
#include "VelmarThumbnail/ThumbnailReply.h"
#include "VelmarThumbnail/ThumbnailRequest.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <optional>

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
