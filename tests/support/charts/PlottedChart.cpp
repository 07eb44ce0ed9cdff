#include "support/charts/PlottedChart.h"

#include <qcustomplot.h>

#include <gtest/gtest.h>

namespace vastrel {

namespace {

QCustomPlot* PlotOf(QWidget& screen, const char* chart) {
    auto* widget = screen.findChild<QWidget*>(chart);
    auto* plot = widget != nullptr ? widget->findChild<QCustomPlot*>() : nullptr;
    if (plot == nullptr) ADD_FAILURE() << chart << " does not stand on the screen.";
    return plot;
}

} // namespace

std::vector<double> Plotted(QWidget& screen, const char* chart, int series) {
    std::vector<double> values;
    auto* plot = PlotOf(screen, chart);
    if (plot == nullptr) return values;
    EXPECT_EQ(plot->graphCount(), 2);
    for (const QCPGraphData& point : *plot->graph(series)->data()) {
        EXPECT_EQ(point.key, static_cast<double>(values.size() + 1));
        values.push_back(point.value);
    }
    EXPECT_TRUE(plot->graph(series)->visible());
    return values;
}

std::vector<std::string> AxisTexts(QWidget& screen, const char* chart) {
    std::vector<std::string> texts;
    auto* plot = PlotOf(screen, chart);
    if (plot == nullptr) return texts;
    const auto ticker = qSharedPointerDynamicCast<QCPAxisTickerText>(plot->xAxis->ticker());
    for (const QString& text : ticker->ticks())
        texts.push_back(text.toStdString());
    return texts;
}

QColor LineColour(QWidget& screen, const char* chart, int series) {
    auto* plot = PlotOf(screen, chart);
    return plot == nullptr ? QColor() : plot->graph(series)->pen().color();
}

} // namespace vastrel
