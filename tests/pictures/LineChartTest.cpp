#include "pictures/LineChart.h"

#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"
#include "support/screens/AskedFile.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

constexpr const char* PictureFilter =
    "PNG picture (*.png)|*.png|SVG picture (*.svg)|*.svg|PDF document (*.pdf)|*.pdf";

/// Rows of a cusum that climbs by one, against a threshold of 2.
Table<double> Climbing(std::ptrdiff_t rows) {
    Table<double> table(rows - 1, 1);
    for (std::ptrdiff_t row = 0; row < rows; ++row) {
        table(row, 0) = static_cast<double>(row);
        table(row, 1) = 2;
    }
    return table;
}

std::vector<std::string> Numbered(int rows) {
    std::vector<std::string> labels;
    for (int row = 1; row <= rows; ++row)
        labels.push_back(std::to_string(row));
    return labels;
}

class LineChartTest : public testing::Test {
protected:
    LineChartTest() {
        Chart.resize(500, 200);
        Chart.SetSeriesNames("Cusum", "h-value");
        Chart.show();
    }

    /// Pixels that are clearly of the first (green) or of the second (red) series.
    int Pixels(bool green) {
        Chart.Repaint();
        const QImage shown = Chart.grab().toImage();
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x) {
                const QColor colour = shown.pixelColor(x, y);
                count += green ? (colour.green() > colour.red() + 60 ? 1 : 0)
                               : (colour.red() > colour.green() + 60 ? 1 : 0);
            }
        return count;
    }

    /// Opens the context menu and chooses an entry.
    void Choose(int entry) {
        QTimer::singleShot(0, [entry] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            menu->actions().at(entry)->trigger();
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(50, 50), Chart.mapToGlobal(QPoint(50, 50)));
        QCoreApplication::sendEvent(&Chart, &event);
    }

    ScriptedPlatform Script;
    LineChart Chart;
};

} // namespace

TEST_F(LineChartTest, DrawsTwoSeriesToldApartByColour) {
    Chart.SetRows(Climbing(10), Numbered(10));
    EXPECT_GT(Pixels(true), 100);
    EXPECT_GT(Pixels(false), 100);
}

TEST_F(LineChartTest, DrawsBothSeriesOfASingleRow) {
    const int key = Pixels(false);
    Chart.SetRows(Climbing(1), Numbered(1));
    EXPECT_GT(Pixels(false), key);
}

TEST_F(LineChartTest, TellsWhatItShows) {
    Chart.SetRows(Climbing(10), Numbered(10));
    EXPECT_EQ(Chart.Spoken(), "Line chart of Cusum and h-value over 10 rows.");
    EXPECT_EQ(Chart.accessibleDescription(), Chart.Spoken());
    Chart.SetSpokenNames("M", "M*");
    EXPECT_EQ(Chart.accessibleDescription(), "Line chart of M and M* over 10 rows.");
}

TEST_F(LineChartTest, LosesItsLabelsWithNewDataAndTakesThemOneByOne) {
    Chart.SetRows(Climbing(3), Numbered(3));
    Chart.Repaint();
    const QImage labelled = Chart.grab().toImage();
    Chart.SetData(Climbing(3));
    Chart.Repaint();
    EXPECT_NE(Chart.grab().toImage(), labelled);
    for (int row = 1; row <= 3; ++row)
        Chart.SetRowLabel(row, std::to_string(row));
    Chart.Repaint();
    EXPECT_EQ(Chart.grab().toImage(), labelled);
    EXPECT_THROW(Chart.SetRowLabel(4, "4"), std::out_of_range);
}

TEST_F(LineChartTest, DrawsManyRowsAndFlatOnes) {
    Chart.SetRows(Climbing(400), Numbered(400));
    EXPECT_GT(Pixels(true), 100);
    Table<double> zero(3, 1);
    Chart.SetRows(zero, Numbered(4));
    EXPECT_GT(Pixels(true) + Pixels(false), 100);
}

TEST_F(LineChartTest, CopiesItsPicture) {
    Chart.SetRows(Climbing(10), Numbered(10));
    QApplication::clipboard()->clear();
    Choose(0);
    EXPECT_FALSE(QApplication::clipboard()->pixmap().isNull());
}

/// The words of a chart's picture: a file of lines has them as text.
std::string Words(const LineChart& chart) {
    return PictureBytes("svg", LineChart::PictureOf(chart.Shown(), chart.size()));
}

TEST_F(LineChartTest, HasKeyAndTitleInItsPictureWhereTheyStandBesideIt) {
    LineChart beside;
    beside.resize(500, 200);
    beside.SetRows(Climbing(10), Numbered(10));
    beside.SetSpokenNames("Chi", "Chi*");
    beside.SetTitleBeside("Bandwidth(Sigma)");
    for (const char* word : {">Chi<", ">Chi*<", ">Bandwidth(Sigma)<"})
        EXPECT_NE(Words(beside).find(word), std::string::npos) << word;
}

TEST_F(LineChartTest, WritesItsNumbersWithAPointInEveryLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    LineChart chart;
    Table<double> table(1, 1);
    table(1, 0) = 0.5;
    chart.SetSeriesNames("Cusum", "h-value");
    chart.resize(500, 200);
    chart.SetRows(table, Numbered(2));
    const std::string words = Words(chart);
    QLocale::setDefault(before);
    EXPECT_NE(words.find(">0.2<"), std::string::npos);
    EXPECT_EQ(words.find(">0,2<"), std::string::npos);
}

TEST_F(LineChartTest, ScalesAFlatLineByItsValueAlone) {
    Table<double> flat(3, 1);
    for (int row = 0; row <= 3; ++row)
        flat(row, 0) = flat(row, 1) = 7;
    LineChart fresh;
    fresh.resize(Chart.size());
    fresh.SetSeriesNames("Cusum", "h-value");
    fresh.SetRows(flat, Numbered(4));
    Chart.SetRows(Climbing(400), Numbered(400)); // a range of another kind before
    Chart.SetRows(flat, Numbered(4));
    EXPECT_EQ(Chart.ValueRange(), fresh.ValueRange());
    EXPECT_LT(Chart.ValueRange().first, 7);
    EXPECT_GT(Chart.ValueRange().second, 7);
    Table<double> zero(3, 1);
    Chart.SetRows(zero, Numbered(4));
    EXPECT_DOUBLE_EQ(Chart.ValueRange().first, -Chart.ValueRange().second);
}

TEST_F(LineChartTest, SavesItsPictureInTheFormatOfTheName) {
    const TemporaryFolder folder;
    Chart.SetRows(Climbing(10), Numbered(10));
    const std::pair<const char*, const char*> rows[] = {
        {"chart.png", "\x89PNG"}, {"chart.svg", "<?xml"}, {"chart.PDF", "%PDF"}, {"chart.dat", "\x89PNG"}};
    for (const auto& [name, head] : rows) {
        Script.ExpectFile(FileQuestion::Kind::Save, PictureFilter, folder / name);
        Choose(1);
        EXPECT_EQ(ReadFile(folder / name).substr(0, std::string(head).size()), head) << name;
    }
    EXPECT_EQ(AskedFile(Script, [this] { Choose(1); }).DefaultExtension, "png");
    Script.ExpectFile(FileQuestion::Kind::Save, PictureFilter, ""); // cancelled: nothing
    Choose(1);
    Script.ExpectFile(FileQuestion::Kind::Save, PictureFilter, folder.Path()); // a folder
    Script.ExpectRunTimeError(75);
    Choose(1);
}
