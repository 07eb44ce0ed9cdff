// What the charts of the watch plot, on both screens: before the first frame, at a middle frame and at the
// end.
#include "desktop/prospective/PolygonWatchScreen.h"
#include "desktop/prospective/WatchScreen.h"
#include "support/charts/PlottedChart.h"

#include <QImage>

using namespace vastrel;

namespace {

using Values = std::vector<double>;
using Texts = std::vector<std::string>;

/// A screen whose chart of the maxima is looked at while it plays. A run of four periods yields four times,
/// each time before the frame of its period.
template <typename ScreenTest>
class ChartsTest : public ScreenTest {
protected:
    Values Maxima() { return Plotted(this->Screen, "MSChart1", 0); }
    Values Threshold() { return Plotted(this->Screen, "MSChart1", 1); }
    void ExpectAtYield(long call, const Values& maxima) {
        this->Script.AtYield(call, [this, maxima] {
            EXPECT_TRUE(this->IsShown(this->Screen, "MSChart1"));
            EXPECT_EQ(Maxima(), maxima);
        });
    }
};

using PointCharts = ChartsTest<WatchScreenTest>;
using PolygonCharts = ChartsTest<PolygonWatchScreenTest>;

} // namespace

TEST_F(PointCharts, ClimbFrameByFrameFromZero) {
    LoadForStart();
    ExpectAtYield(1, {0, 0, 0, 0});
    ExpectAtYield(3, {1, 3.5, 0, 0});
    Run();
    EXPECT_EQ(Maxima(), (Values{1, 3.5, 2, 4.5}));
    EXPECT_EQ(Threshold(), (Values{2.2, 2.2, 2.2, 2.2}));
    EXPECT_EQ(AxisTexts(Screen, "MSChart1"), (Texts{"1", "2", "3", "4"}));
}

TEST_F(PointCharts, BeginWithTheSavedMaxima) {
    LoadForContinuation();
    ExpectAtYield(1, {3, 2, 0, 0, 0, 0});
    ExpectAtYield(3, {3, 2, 2, 4, 0, 0});
    Run();
    EXPECT_EQ(Maxima(), (Values{3, 2, 2, 4, 3, 5.5}));
    EXPECT_EQ(Threshold(), Values(6, 2.2));
}

TEST_F(PointCharts, OfARegionHaveAllPeriods) {
    LoadForStart();
    Run();
    Periods()->SetListIndex(3);
    Regions()->SetListIndex(1);
    EXPECT_EQ(Plotted(Screen, "MSChart2", 0), (Values{0, 3.5, 0, 0.25})); // C
    EXPECT_EQ(Plotted(Screen, "MSChart2", 1), (Values{2.2, 2.2, 2.2, 2.2}));
    EXPECT_EQ(AxisTexts(Screen, "MSChart2"), (Texts{"1", "2", "3", "4"}));
    EXPECT_EQ(Maxima(), (Values{1, 3.5, 2, 4.5})); // the other chart stays
    Regions()->SetListIndex(0);
    EXPECT_EQ(Plotted(Screen, "MSChart2", 0), (Values{1, 2.5, 2, 4.5})); // A
}

TEST_F(PointCharts, OfARegionHaveTheSavedPeriodsToo) {
    LoadForContinuation();
    Run();
    Periods()->SetListIndex(5);
    Regions()->SetListIndex(1);
    EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "C in 4: ---> 4.00");
    EXPECT_EQ(Plotted(Screen, "MSChart2", 0), (Values{3, 2, 0.5, 4, 0, 0.25}));
    EXPECT_EQ(Plotted(Screen, "MSChart2", 1), Values(6, 2.2));
}

TEST_F(PolygonCharts, ClimbFrameByFrameFromZero) {
    ExpectAtYield(1, {0, 0, 0});
    ExpectAtYield(3, {5.5, 11, 0});
    RunFields();
    EXPECT_EQ(Maxima(), (Values{5.5, 11, 10}));
    EXPECT_EQ(Threshold(), (Values{9.3, 9.3, 9.3}));
    EXPECT_EQ(AxisTexts(Screen, "MSChart1"), (Texts{"1", "2", "3"}));
}

TEST_F(PolygonCharts, ClimbAlsoFromATextFile) {
    Press(Screen, "optExistingTextfile");
    ExpectText();
    ExpectAtYield(1, {0, 0, 0});
    ExpectAtYield(3, {5.5, 11, 0});
    Run();
    EXPECT_EQ(Maxima(), (Values{5.5, 11, 10}));
}

TEST_F(PolygonCharts, BeginWithTheSavedMaximaWhereBothAreShown) {
    Press(Screen, "optPre");
    Pick(2, 4);
    Run();
    OpenSaved();
    Press(Dialog, "optPreviousCurrent");
    ExpectAtYield(1, {3, 4, 0, 0, 0});
    ExpectAtYield(3, {3, 4, 5.5, 11, 0});
    Press(Dialog, "cmdOK");
    EXPECT_EQ(Maxima(), (Values{3, 4, 5.5, 11, 12.5}));
    EXPECT_EQ(Threshold(), Values(5, 9.3));
    Press(Dialog, "optCurrent");
    ExpectAtYield(1, {0, 0, 0});
    ExpectAtYield(3, {5.5, 11, 0});
    Press(Dialog, "cmdOK");
    EXPECT_EQ(Maxima(), (Values{5.5, 11, 12.5}));
}

TEST_F(PolygonCharts, OfARegionHaveTheNewPeriods) {
    RunFields();
    Graph.Show();               // in its size, so that no label is left out
    Regions()->SetListIndex(0); // C in the last period
    EXPECT_EQ(Plotted(Graph, "MSChart1", 0), (Values{0, 1.5, 10}));
    EXPECT_EQ(Plotted(Graph, "MSChart1", 1), (Values{9.3, 9.3, 9.3}));
    EXPECT_EQ(AxisTexts(Graph, "MSChart1"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(Maxima(), (Values{5.5, 11, 10}));
    Periods()->SetListIndex(3);
    Regions()->SetListIndex(0); // B
    EXPECT_EQ(Plotted(Graph, "MSChart1", 0), (Values{5.5, 11, 8.5}));
}

TEST_F(PolygonCharts, HaveAKeyInTheColoursOfTheirLines) {
    RunFields();
    const std::pair<const char*, QColor> keys[] = {{"picCusumKey", {0, 128, 0}}, {"picHKey", {210, 0, 0}}};
    for (int series = 0; series < 2; ++series) {
        const auto& [key, colour] = keys[series];
        const QImage shown = The_<QWidget>(Screen, key)->grab().toImage();
        EXPECT_EQ(shown.pixelColor(shown.width() / 2, shown.height() / 2), colour) << key;
        EXPECT_EQ(LineColour(Screen, "MSChart1", series), colour) << key;
    }
}
