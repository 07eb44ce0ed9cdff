#pragma once

#include "display/PlotSurface.h"

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

/// A chart of two series over labelled rows, as in the store: (row, 0 or 1).
struct ChartPicture {
    Table<double> Data;
    std::vector<std::string> RowLabels;
    std::string SeriesNames[2];
    std::string AxisTitle;
};

std::string DrawChart(const std::string& path, const ChartPicture& chart);

} // namespace vastrel
