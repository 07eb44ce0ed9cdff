#pragma once

#include <QColor>
#include <QWidget>

#include <string>
#include <vector>

namespace vastrel {

/// What a line chart plots: the values of a series (0 or 1), a row each, the rows being numbered from 1, and
/// the texts that stand along the axis.
std::vector<double> Plotted(QWidget& screen, const char* chart, int series);
std::vector<std::string> AxisTexts(QWidget& screen, const char* chart);

/// The colour of a series' line.
QColor LineColour(QWidget& screen, const char* chart, int series);

} // namespace vastrel
