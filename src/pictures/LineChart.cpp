#include "pictures/LineChart.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QVBoxLayout>
#include <qcustomplot.h>

#include <cmath>

namespace vastrel {

namespace {

const QColor SeriesColours[] = {QColor(0, 128, 0), QColor(210, 0, 0)}; // green and red
constexpr Qt::PenStyle SeriesStyles[] = {Qt::SolidLine, Qt::DashLine};

} // namespace

LineChart::LineChart(QWidget* parent) : QWidget(parent), plot_(new QCustomPlot(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(plot_);
    for (int series = 0; series < 2; ++series) {
        auto* graph = plot_->addGraph();
        graph->setPen(QPen(SeriesColours[series], 2, SeriesStyles[series]));
        if (series == 0) graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, 5));
    }
    plot_->setBackground(Qt::white);
    QLocale points = QLocale::c(); // the decimal sign of all numbers of the program
    points.setNumberOptions(QLocale::OmitGroupSeparator);
    plot_->setLocale(points);
    plot_->setAttribute(Qt::WA_TransparentForMouseEvents);
    plot_->xAxis->setTicker(QSharedPointer<QCPAxisTickerText>::create());
    plot_->xAxis->setSubTicks(false);
    plot_->legend->setVisible(false);
    setMinimumSize(160, 70);
}

void LineChart::PlaceKeyAboveChart() {
    auto* row = new QCPLayoutGrid;
    plot_->plotLayout()->insertRow(0);
    plot_->plotLayout()->addElement(0, 0, row);
    plot_->plotLayout()->setRowStretchFactor(0, 0.001);
    row->setMargins(QMargins(0, 0, 8, 0));
    plot_->plotLayout()->setRowSpacing(0);
    plot_->legend->setMargins(QMargins(0, 2, 0, 0));
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    plot_->legend->setFont(small);
    row->addElement(0, 0, new QCPLayoutElement);
    row->addElement(0, 1, plot_->legend);
    row->setColumnStretchFactor(1, 0.001);
    plot_->legend->setFillOrder(QCPLegend::foColumnsFirst);
    plot_->legend->setBorderPen(Qt::NoPen);
    plot_->legend->setVisible(true);
}

void LineChart::SetData(const Table<double>& table) {
    const std::ptrdiff_t rows = table.UpperBound1() + 1;
    shown_.Data = table;
    shown_.RowLabels.assign(static_cast<size_t>(rows), "");
    for (int series = 0; series < 2; ++series) {
        QVector<double> x, y;
        for (std::ptrdiff_t row = 0; row < rows; ++row) {
            x << static_cast<double>(row + 1);
            y << table(row, series);
        }
        plot_->graph(series)->setData(x, y, true);
    }
    // A line through one row is a point, and has to be drawn as one.
    plot_->graph(1)->setScatterStyle(rows == 1 ? QCPScatterStyle(QCPScatterStyle::ssSquare, 6)
                                               : QCPScatterStyle(QCPScatterStyle::ssNone));
    plot_->xAxis->setRange(0.5, static_cast<double>(rows) + 0.5);
    ScaleValues();
    ThinOutLabels(plot_->width());
    setAccessibleDescription(Spoken());
}

/// The range of all values and a little more; about a single value it goes by that value alone.
void LineChart::ScaleValues() {
    bool found = false;
    const QCPRange first = plot_->graph(0)->getValueRange(found);
    QCPRange range = plot_->graph(1)->getValueRange(found);
    range.expand(first);
    if (range.size() > 0)
        plot_->yAxis->setRange(range);
    else
        plot_->yAxis->setRange(range.center(), std::max(2.0, std::abs(range.center())), Qt::AlignCenter);
    plot_->yAxis->scaleRange(1.1);
}

std::pair<double, double> LineChart::ValueRange() const {
    return {plot_->yAxis->range().lower, plot_->yAxis->range().upper};
}

void LineChart::SetRows(const Table<double>& table, const std::vector<std::string>& labels) {
    SetData(table);
    for (size_t row = 0; row < labels.size(); ++row)
        shown_.RowLabels.at(row) = labels[row];
    ThinOutLabels(plot_->width());
}

void LineChart::SetRowLabel(int row, const std::string& label) {
    shown_.RowLabels.at(static_cast<size_t>(row - 1)) = label;
    ThinOutLabels(plot_->width());
}

void LineChart::ThinOutLabels(int width) {
    auto ticker = qSharedPointerDynamicCast<QCPAxisTickerText>(plot_->xAxis->ticker());
    ticker->clear();
    const QFontMetrics metrics(plot_->xAxis->tickLabelFont());
    int widest = 1;
    for (const auto& label : shown_.RowLabels)
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(label)));
    const size_t room = static_cast<size_t>(std::max(1, (width - 60) / (widest + 8)));
    const size_t every = std::max<size_t>(1, (shown_.RowLabels.size() + room - 1) / room);
    for (size_t i = 0; i < shown_.RowLabels.size(); i += every)
        ticker->addTick(static_cast<double>(i + 1), QString::fromStdString(shown_.RowLabels[i]));
    plot_->replot(QCustomPlot::rpQueuedReplot);
}

void LineChart::SetSpokenNames(const std::string& first, const std::string& second) {
    shown_.SeriesNames[0] = first;
    shown_.SeriesNames[1] = second;
    plot_->graph(0)->setName(QString::fromStdString(first));
    plot_->graph(1)->setName(QString::fromStdString(second));
    setAccessibleDescription(Spoken());
}

void LineChart::SetSeriesNames(const std::string& first, const std::string& second) {
    SetSpokenNames(first, second);
    if (!first.empty() && !plot_->legend->visible()) PlaceKeyAboveChart();
}

void LineChart::SetAxisTitle(const std::string& title) {
    SetTitleBeside(title);
    plot_->xAxis->setLabel(QString::fromStdString(title));
}

void LineChart::Repaint() {
    plot_->replot(QCustomPlot::rpImmediateRefresh);
    repaint();
}

QString LineChart::Spoken() const {
    return QString("Line chart of %1 and %2 over %3 rows.")
        .arg(plot_->graph(0)->name(), plot_->graph(1)->name())
        .arg(shown_.RowLabels.size());
}

Picture LineChart::PictureOf(const ChartPicture& chart, const QSize& size) {
    // NOLINTNEXTLINE(bugprone-exception-escape): copying the rows may be out of memory
    return {size, [chart, size](QPaintDevice& device) {
                LineChart whole;
                whole.resize(size);
                whole.SetRows(chart.Data, chart.RowLabels);
                whole.SetSeriesNames(chart.SeriesNames[0], chart.SeriesNames[1]);
                whole.SetAxisTitle(chart.AxisTitle);
                whole.ThinOutLabels(size.width());
                QCPPainter painter;
                painter.begin(&device);
                painter.setModes(QCPPainter::pmNoCaching | QCPPainter::pmNonCosmetic);
                whole.plot_->toPainter(&painter, size.width(), size.height());
            }};
}

void LineChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ThinOutLabels(plot_->width());
    constexpr int pixelsOfTick = 30;
    plot_->yAxis->ticker()->setTickCount(std::max(2, height() / pixelsOfTick));
}

void LineChart::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    AddPictureEntries(menu, [this] { return PictureOf(shown_, size()); });
    menu.exec(event->globalPos());
}

} // namespace vastrel
