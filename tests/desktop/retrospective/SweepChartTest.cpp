// What the charts of a sweep plot, held against single runs at the same bandwidths.
#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/workspace/Workspace.h"
#include "desktop/retrospective/PointScreen.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "support/charts/PlottedChart.h"

using namespace vastrel;

namespace {

using Values = std::vector<double>;
using Texts = std::vector<std::string>;

constexpr const char* Sigmas[] = {"0.5", "1", "1.5"};

struct Series {
    Values Statistic, Critical;
};

/// The statistic and its critical value of a single run that has just ended.
void AddSingle(Series& series, bool score) {
    series.Statistic.push_back(score ? ws.ScoreChi : MaxLocalM());
    series.Critical.push_back(score ? ChiCritical(ws.AlphaLevel, ws.ScoreDF) : MCriticalValue().value_or(0));
}

void ExpectPlotted(QWidget& screen, const char* chart, const Series& series) {
    EXPECT_EQ(series.Statistic.size(), 3u);
    EXPECT_EQ(Plotted(screen, chart, 0), series.Statistic);
    EXPECT_EQ(Plotted(screen, chart, 1), series.Critical);
    EXPECT_NE(series.Statistic.front(), series.Statistic.back());
}

using PointSweepChart = PointScreenTest;
using PolygonSweepChart = RetroPolygonTest;

constexpr std::pair<const char*, bool> Variables[] = {
    {"optUnadjusted", true}, {"optAdjusted_Generic", true}, {"optStandard", false}, {"optRossi", false}};

} // namespace

TEST_F(PointSweepChart, PlotsTheStatisticOfEachBandwidth) {
    Load(InProject("samples/country_pop.txt"));
    for (const auto& [variable, score] : Variables) {
        Press(Screen, variable);
        Series series;
        for (const char* sigma : Sigmas) {
            RunSingle(sigma);
            AddSingle(series, score);
        }
        RunRange("0.5", "1.5", "0.5");
        ExpectPlotted(Screen, "MSChart1", series);
        EXPECT_EQ(AxisTexts(Screen, "MSChart1"), (Texts{"0.50", "1.00", "1.50"}));
    }
    EXPECT_EQ(LineColour(Screen, "MSChart1", 0), QColor(0, 128, 0));
    EXPECT_EQ(LineColour(Screen, "MSChart1", 1), QColor(210, 0, 0));
    EXPECT_NE(Text(Screen, "lblStatsLine").find("#008000"), std::string::npos);
    EXPECT_NE(Text(Screen, "lblCriticalStatsLine").find("#d20000"), std::string::npos);
}

TEST_F(PolygonSweepChart, PlotsTheStatisticOfEachBandwidth) {
    OpenSample();
    for (const auto& [variable, score] : Variables) {
        Series series;
        for (const char* sigma : Sigmas) {
            RunSingle(variable, sigma);
            AddSingle(series, score);
        }
        RunRange(variable, "0.5", "1.5", "0.5");
        ExpectPlotted(Chart, "chartPlotStatistics", series);
        EXPECT_EQ(AxisTexts(Chart, "chartPlotStatistics"), (Texts{"0.500", "1.000", "1.500"}));
    }
    EXPECT_NE(Text(Chart, "Line1").find("#008000"), std::string::npos);
    EXPECT_NE(Text(Chart, "Line2").find("#d20000"), std::string::npos);
}
