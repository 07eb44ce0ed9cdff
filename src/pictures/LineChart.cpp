#include "pictures/LineChart.h"

#include "core/platform/ErrorBoundary.h"
#include "core/platform/Platform.h"
#include "core/text/TextFile.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSvgGenerator>
#include <QTemporaryFile>
#include <QVBoxLayout>
#include <qcustomplot.h>

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
    plot_->setAttribute(Qt::WA_TransparentForMouseEvents);
    plot_->xAxis->setTicker(QSharedPointer<QCPAxisTickerText>::create());
    plot_->xAxis->setSubTicks(false);
    plot_->legend->setVisible(false);
    setMinimumSize(160, 100);
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
    labels_.assign(static_cast<size_t>(rows), "");
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
    plot_->rescaleAxes();
    plot_->xAxis->setRange(0.5, static_cast<double>(rows) + 0.5);
    plot_->yAxis->scaleRange(1.1);
    ThinOutLabels(plot_->width());
    setAccessibleDescription(Spoken());
}

void LineChart::SetRows(const Table<double>& table, const std::vector<std::string>& labels) {
    SetData(table);
    for (size_t row = 0; row < labels.size(); ++row)
        labels_.at(row) = labels[row];
    ThinOutLabels(plot_->width());
}

void LineChart::SetRowLabel(int row, const std::string& label) {
    labels_.at(static_cast<size_t>(row - 1)) = label;
    ThinOutLabels(plot_->width());
}

void LineChart::ThinOutLabels(int width) {
    auto ticker = qSharedPointerDynamicCast<QCPAxisTickerText>(plot_->xAxis->ticker());
    ticker->clear();
    const QFontMetrics metrics(plot_->xAxis->tickLabelFont());
    int widest = 1;
    for (const auto& label : labels_)
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(label)));
    const size_t room = static_cast<size_t>(std::max(1, (width - 60) / (widest + 8)));
    const size_t every = std::max<size_t>(1, (labels_.size() + room - 1) / room);
    for (size_t i = 0; i < labels_.size(); i += every)
        ticker->addTick(static_cast<double>(i + 1), QString::fromStdString(labels_[i]));
    plot_->replot(QCustomPlot::rpQueuedReplot);
}

void LineChart::SetSpokenNames(const std::string& first, const std::string& second) {
    plot_->graph(0)->setName(QString::fromStdString(first));
    plot_->graph(1)->setName(QString::fromStdString(second));
    setAccessibleDescription(Spoken());
}

void LineChart::SetSeriesNames(const std::string& first, const std::string& second) {
    SetSpokenNames(first, second);
    if (!first.empty() && !plot_->legend->visible()) PlaceKeyAboveChart();
}

void LineChart::SetAxisTitle(const std::string& title) {
    plot_->xAxis->setLabel(QString::fromStdString(title));
}

void LineChart::Repaint() {
    plot_->replot(QCustomPlot::rpImmediateRefresh);
    repaint();
}

QString LineChart::Spoken() const {
    return QString("Line chart of %1 and %2 over %3 rows.")
        .arg(plot_->graph(0)->name(), plot_->graph(1)->name())
        .arg(labels_.size());
}

std::string LineChart::PictureBytes(const std::string& format, int width, int height) {
    ThinOutLabels(width);
    if (format == "pdf") {
        QTemporaryFile file; // the chart library writes a PDF to a named file only
        file.open();
        plot_->savePdf(file.fileName(), width, height);
        return file.readAll().toStdString();
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (format == "svg") {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize(QSize(width, height));
        generator.setViewBox(QRect(0, 0, width, height));
        QCPPainter painter;
        painter.begin(&generator);
        plot_->toPainter(&painter, width, height);
        painter.end();
    } else {
        plot_->toPixmap(width, height, 2).save(&buffer, "PNG");
    }
    return buffer.data().toStdString();
}

void LineChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ThinOutLabels(plot_->width());
    constexpr int pixelsOfTick = 30;
    plot_->yAxis->ticker()->setTickCount(std::max(2, height() / pixelsOfTick));
}

void LineChart::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addAction("&Copy picture", this,
                   [this] { QApplication::clipboard()->setPixmap(plot_->toPixmap(0, 0, 2)); });
    menu.addAction("&Save picture...", this, [this] { InBoundary([this] { SavePicture(); }); });
    menu.exec(event->globalPos());
}

void LineChart::SavePicture() {
    const FileChoice choice = platform().ChooseFile({FileQuestion::Kind::Save,
                                                     "PNG picture (*.png)|*.png|SVG picture (*.svg)|*.svg|"
                                                     "PDF document (*.pdf)|*.pdf",
                                                     "png"});
    if (choice.Path.empty()) return;
    const QString ending = QString::fromStdString(choice.Title).section('.', -1).toLower();
    const std::string format = ending == "svg" || ending == "pdf" ? ending.toStdString() : "png";
    WriteFile(choice.Path, PictureBytes(format, plot_->width(), plot_->height()));
}

} // namespace vastrel
