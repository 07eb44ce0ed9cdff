#pragma once

#include "core/display/ChartPicture.h"

#include <string>

namespace vastrel {

/// The bytes of the chart as a "png", "svg" or "pdf" file.
std::string ChartFile(const std::string& format, const ChartPicture& chart);

} // namespace vastrel
