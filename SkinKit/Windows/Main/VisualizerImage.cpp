#include "SkinKit/Windows/Main/VisualizerImage.h"

namespace SkinKit {

std::optional<Image> visualizerImage(const Skin& skin,
                                     const MainWindowState::Visualizer& visualizer,
                                     VisLayout layout, int pushDown)
{
    VisRenderer renderer(skin.visColors, layout);
    if (const auto* spectrum = std::get_if<MainWindowState::Spectrum>(&visualizer))
        renderer.drawBars(spectrum->heights, spectrum->peaks, pushDown);
    else if (const auto* trace = std::get_if<MainWindowState::Oscilloscope>(&visualizer))
        renderer.drawOscilloscope(trace->samples, pushDown);
    else
        return std::nullopt;
    return renderer.makeImage();
}

}
