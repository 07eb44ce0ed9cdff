#include "desktop/retrospective/frmSigmaChart.h"

#include "desktop/display/frmGraph.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/OptionButton.h"
#include "pictures/LineChart.h"
#include "support/screens/ScreenChecks.h"

using namespace vastrel;

namespace {

class frmSigmaChartTest : public RetroPolygonTest {
protected:
    frmSigmaChartTest() { OpenSample(); }
    std::string Spoken() { return The_<LineChart>(Chart, "chartPlotStatistics")->Spoken().toStdString(); }
};

} // namespace

TEST_F(frmSigmaChartTest, StandsBelowTheMap) {
    Chart.Show();
    EXPECT_EQ(Chart.Frame()->pos(), QPoint(0, 5055 / 15));
    ExpectCaptions(Chart, {{"txtTitle", "Bandwidth(Sigma)"}});
    EXPECT_FALSE(IsEnabled(Chart, "txtTitle"));
    ExpectAccessibleNames(Chart);
    EXPECT_FALSE(Chart.Frame()->geometry().intersects(MapWindow.Frame()->geometry()));
    EXPECT_FALSE(Chart.Frame()->geometry().intersects(Retro.Frame()->geometry()));
}

TEST_F(frmSigmaChartTest, ShowsEachVariableOfARange) {
    const struct {
        const char *Option, *Stat, *Critical, *Spoken;
    } rows[] = {{"optUnadjusted", "Chi", "Chi*", "Line chart of Chi and Chi* over 3 rows."},
                {"optRossi", "M", "M*", "Line chart of M and M* over 3 rows."},
                {"optAdjusted_Generic", "Chi", "Chi*", "Line chart of Chi and Chi* over 3 rows."},
                {"optStandard", "M", "M*", "Line chart of M and M* over 3 rows."}};
    for (const auto& [option, stat, critical, spoken] : rows) {
        RunRange(option, "0.5", "1.5", "0.5");
        EXPECT_TRUE(Chart.isVisible());
        ExpectCaptions(Chart, {{"frmSigmaChart", "Global spatial statistics"},
                               {"txtTitle", "Bandwidth(Sigma)"},
                               {"lblStats", stat},
                               {"lblCriticalStats", critical}});
        EXPECT_EQ(Spoken(), spoken);
        EXPECT_EQ(ws.ChartLabels, (Names{"0.500", "1.000", "1.500"}));
        const bool score = std::string(stat) == "Chi";
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(ws.ChartData(k, 0), score ? ws.SweepChi(k) : ws.SweepStat(k)) << option;
            EXPECT_EQ(ws.ChartData(k, 1), score ? ws.SweepChiCritical(k) : ws.SweepMCritical(k)) << option;
            EXPECT_NE(ws.ChartData(k, 0), 0);
        }
        Shot(Frame, std::string("polygon-range-chart-") + option);
    }
}

TEST_F(frmSigmaChartTest, GoesWithTheOptionOfOneBandwidthAndWithTheTest) {
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    Press(Retro, "optStandard"); // another variable leaves it
    EXPECT_TRUE(Chart.IsLoaded());
    Press(Retro, "optSpatialSingleSigma");
    EXPECT_FALSE(Chart.IsLoaded());
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    Retro.Frame()->close();
    EXPECT_FALSE(Chart.IsLoaded());
}

TEST_F(frmSigmaChartTest, ComesBackAtTheNextSweepWhereItWasClosed) {
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    Chart.Frame()->close();
    EXPECT_FALSE(Chart.IsLoaded());
    Global()->SetListIndex(3); // a row does not bring it back
    EXPECT_FALSE(Chart.IsLoaded());
    Press(Retro, "cmdRun");
    EXPECT_TRUE(Chart.isVisible());
}

// The later one lies over the earlier one.
TEST_F(frmSigmaChartTest, StandsInTheSamePlaceAsTheChartOfARegion) {
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    auto& graph = The<frmGraph>();
    graph.Show();
    EXPECT_EQ(graph.Frame()->pos(), Chart.Frame()->pos());
    const auto* area = Chart.Frame()->parentWidget();
    const auto isAbove = [&](QWidget* upper, QWidget* lower) {
        return area->children().indexOf(upper) > area->children().indexOf(lower);
    };
    EXPECT_TRUE(isAbove(graph.Frame(), Chart.Frame()));
    Chart.Show();
    EXPECT_TRUE(isAbove(Chart.Frame(), graph.Frame()));
}
