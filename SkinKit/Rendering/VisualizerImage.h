#pragma once

#include "SkinKit/Raster/Image.h"
#include "SkinKit/Rendering/MainWindowState.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Vis/VisRenderer.h"

#include <optional>

namespace SkinKit {

// What a state's visualizer shows, in the skin's colours; nothing when it is off. See VisRenderer
// for the layout and `pushDown`.
std::optional<Image> visualizerImage(const Skin& skin,
                                     const MainWindowState::Visualizer& visualizer,
                                     VisLayout layout, int pushDown);

}
