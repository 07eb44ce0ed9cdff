#pragma once

#include "core/workspace/Arrays.h"

#include <QWidget>

#include <string>
#include <vector>

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

    /// The names alone, where a key stands beside the chart: whoever cannot see the chart is told them.
    void SetSpokenNames(const std::string& first, const std::string& second);
    void SetAxisTitle(const std::string& title);

    /// Brings the chart to the screen at once, without serving events.
    void Repaint();

    /// The bytes of the picture's file: "png", "svg" or "pdf".
    std::string PictureBytes(const std::string& format, int width, int height);

    /// What a person who cannot see the chart is told of it.
    QString Spoken() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void PlaceKeyAboveChart();
    void ThinOutLabels(int width);
    void SavePicture();

    QCustomPlot* plot_;
    std::vector<std::string> labels_;
};

} // namespace vastrel
