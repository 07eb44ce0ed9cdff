#pragma once

#include "core/display/PlotSurface.h"

#include <functional>
#include <string>

namespace vastrel {

/// Makes fonts and pictures usable in a program without a window. Nothing where an application stands
/// already.
void UsePicturesOffscreen();

/// The bytes of a picture file, of what `draw` draws on a surface of this size; a PNG is enlarged this many
/// times.
std::string PngPicture(const SurfaceSize& size, int enlarged, const std::function<void(PlotSurface&)>& draw);
std::string SvgPicture(const SurfaceSize& size, const std::function<void(PlotSurface&)>& draw);

} // namespace vastrel
