#pragma once

#include "core/display/ChartPicture.h"
#include "pictures/Picture.h"

#include <QWidget>

#include <utility>

class QCustomPlot;

namespace vastrel {

/// A line chart of two series over labelled rows, told apart by colour and by line style. Its scales follow
/// the data. A context menu copies or saves the picture.
class LineChart : public QWidget {
    Q_OBJECT

public:
    explicit LineChart(QWidget* parent = nullptr);

    /// One point a row, a series for each of columns 0 and 1; the row labels go back to none.
    void SetData(const Table<double>& table);

    /// The same with a label for each row, where there is one.
    void SetRows(const Table<double>& table, const std::vector<std::string>& labels);

    /// The label of a row, counted from 1. Labels thin out where they would run into one another.
    void SetRowLabel(int row, const std::string& label);

    /// The names of the two series, and the chart's own key with them.
    void SetSeriesNames(const std::string& first, const std::string& second);

    void SetAxisTitle(const std::string& title);

    /// Names and title where they stand beside the chart: its pictures have them inside all the same, and
    /// whoever cannot see the chart is told the names.
    void SetSpokenNames(const std::string& first, const std::string& second);
    void SetTitleBeside(const std::string& title) { shown_.AxisTitle = title; }

    /// Brings the chart to the screen at once, without serving events.
    void Repaint();

    /// A chart as a picture of this size, with its key and the title of its axis.
    static Picture PictureOf(const ChartPicture& chart, const QSize& size);

    /// What the chart shows, and the ends of its scale of values.
    const ChartPicture& Shown() const { return shown_; }
    std::pair<double, double> ValueRange() const;

    /// What a person who cannot see the chart is told of it.
    QString Spoken() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void PlaceKeyAboveChart();
    void ScaleValues();
    void ThinOutLabels(int width);

    QCustomPlot* plot_;
    ChartPicture shown_;
};

} // namespace vastrel
