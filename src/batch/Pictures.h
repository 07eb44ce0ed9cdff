#pragma once

#include "core/display/ChartPicture.h"
#include "core/display/PlotSurface.h"

#include <functional>
#include <string>
#include <vector>

namespace vastrel {

/// WrongUse where a picture's file name ends in none of these. The empty name, of no picture, passes.
void RequirePictureEnding(const std::string& path, const std::vector<std::string>& endings);

/// Draws a picture on an image surface and gives the bytes of its file, in the format of the path's ending,
/// `enlarged` times in a PNG.
std::string DrawPicture(const std::string& path, const SurfaceSize& size, int enlarged,
                        const std::function<void(PlotSurface&)>& draw);

/// The bytes of a chart's file, in the format of the path's ending.
std::string DrawChart(const std::string& path, const ChartPicture& chart);

} // namespace vastrel
