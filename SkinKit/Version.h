#pragma once

#include <string_view>

namespace SkinKit {

// The one place that says which version this is; the build reads it from here.
inline constexpr std::string_view version = "0.1.0";

}
