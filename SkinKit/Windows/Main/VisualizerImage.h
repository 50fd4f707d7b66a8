#pragma once

#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Skin.h"
#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/VisRenderer.h"

#include <optional>

namespace SkinKit {

// What a state's visualizer shows, in the skin's colours; nothing when it is off. See VisRenderer
// for the layout and `pushDown`.
std::optional<Image> visualizerImage(const Skin& skin,
                                     const MainWindowState::Visualizer& visualizer,
                                     VisLayout layout, int pushDown);

}
