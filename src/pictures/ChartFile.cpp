#include "pictures/ChartFile.h"

#include "pictures/LineChart.h"

namespace vastrel {

std::string ChartFile(const std::string& format, const ChartPicture& chart) {
    return PictureBytes(format, LineChart::PictureOf(chart, QSize(720, 420)));
}

} // namespace vastrel
