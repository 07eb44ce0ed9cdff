#include "pictures/ChartFile.h"

#include "pictures/LineChart.h"

namespace vastrel {

std::string ChartFile(const std::string& format, const ChartPicture& chart) {
    constexpr int width = 720;
    constexpr int height = 420;
    LineChart picture;
    picture.resize(width, height);
    picture.SetRows(chart.Data, chart.RowLabels);
    picture.SetSeriesNames(chart.SeriesNames[0], chart.SeriesNames[1]);
    picture.SetAxisTitle(chart.AxisTitle);
    return picture.PictureBytes(format, width, height);
}

} // namespace vastrel
