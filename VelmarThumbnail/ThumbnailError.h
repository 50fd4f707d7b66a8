#pragma once

#include "SkinKit/Archive/SkinError.h"

#include <string>
#include <string_view>

namespace VelmarThumbnail {

// Why there is no thumbnail, as the desktop has its errors: a number within a domain, and a text.
struct ThumbnailError {
    static constexpr std::string_view skinErrorDomain = "SkinKit.SkinError";

    std::string domain;
    int code = 0; // in the domain of skin errors: the place of the error's kind among its kinds
    std::string description;

    bool operator==(const ThumbnailError&) const = default;

    static ThumbnailError of(const SkinKit::SkinError& error);
};

}
