#include "desktop/retrospective/PointScreen.h"

#include "core/workspace/Workspace.h"
#include "pictures/LineChart.h"
#include "support/ProjectFolder.h"

using namespace vastrel;

namespace {

const std::string Sample = InProject("samples/country_pop.txt");

class PointRun : public PointScreenTest {};

} // namespace

TEST_F(PointRun, RunsEachVariableWithOneBandwidth) {
    Load(Sample);
    const struct {
        const char* Option;
        int GlobalRows;
        bool MLegend;
    } rows[] = {{"optUnadjusted", 10, false},
                {"optAdjusted_Generic", 15, false},
                {"optStandard", 5, true},
                {"optRossi", 5, true}};
    for (const auto& [option, globalRows, legend] : rows) {
        Press(Screen, option);
        RunSingle("1");
        EXPECT_EQ(Global()->ListCount(), globalRows) << option;
        EXPECT_EQ(Local()->ListCount(), 207 + 4) << option;
        EXPECT_EQ(IsShown(Screen, "imgM_Legend"), legend) << option;
        EXPECT_FALSE(IsShown(Screen, "MSChart1"));
        EXPECT_TRUE(ws.bRetroMapping);
        EXPECT_FALSE(Script.BusyPointer());
        Local()->SetListIndex(65); // in the cluster
        Shot(Frame, std::string("point-single-") + option);
    }
    EXPECT_EQ(Script.YieldCalls(), 0);
}

TEST_F(PointRun, RunsARange) {
    Load(Sample);
    Press(Screen, "optAdjusted_Generic");
    RunRange("0.2", "2.0", "0.2");
    EXPECT_EQ(Global()->ListCount(), 2 + 10 + 1);
    EXPECT_EQ(Local()->ListCount(), 0);
    EXPECT_EQ(ChartPartsShown(), 4);
    EXPECT_EQ(Text(Screen, "lblStats"), "Chi");
    EXPECT_EQ(Text(Screen, "lblCriticalStats"), "Chi*");
    EXPECT_EQ(The_<LineChart>(Screen, "MSChart1")->Spoken(), "Line chart of Chi and Chi* over 10 rows.");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_TRUE(ws.bRetroMapping);
    EXPECT_FALSE(Script.BusyPointer());
    Global()->SetListIndex(6);
    Shot(Frame, "point-range");
    Press(Screen, "optStandard");
    Press(Screen, "cmdRun");
    EXPECT_EQ(Text(Screen, "lblStats"), "M");
    EXPECT_EQ(Text(Screen, "lblCriticalStats"), "M*");
    Press(Screen, "optSpatialSingleSigma"); // closes the chart
    EXPECT_EQ(ChartPartsShown(), 0);
}

TEST_F(PointRun, ShowsTheStepOfASweepThatIsPicked) {
    LoadFour();
    Press(Screen, "optStandard");
    RunRange("0.5", "1.5", "0.5");
    const QImage plain = Map();
    for (const int row : {2, 3, 4}) {
        Global()->SetListIndex(row);
        EXPECT_EQ(ws.CurrentSigma, ws.BandwidthList(row - 2));
        for (int i = 1; i <= 4; ++i)
            EXPECT_EQ(ws.DisplayDrawValues(i), ws.StatisticTable(i, row - 2));
        EXPECT_TRUE(IsShown(Screen, "imgM_Legend"));
        EXPECT_NE(Map(), plain);
    }
    for (const int row : {0, 1, 5}) { // heading, dashes, dashes: the plain map
        Global()->SetListIndex(2);
        Global()->SetListIndex(row);
        EXPECT_EQ(Map(), plain) << row;
        EXPECT_EQ(ws.DisplayDrawValues(1), 0);
    }
    Press(Screen, "optUnadjusted");
    Global()->SetListIndex(2);
    EXPECT_FALSE(IsShown(Screen, "imgM_Legend"));
}

TEST_F(PointRun, EmptiesTheDisplayArraysAtAClickOnASingleRunsRow) {
    LoadFour();
    Press(Screen, "optStandard");
    RunSingle("1");
    const QImage map = Map();
    EXPECT_NE(ws.DisplayDrawValues(1), 0);
    Global()->SetListIndex(1);
    EXPECT_EQ(ws.DisplayDrawValues(1), 0);
    EXPECT_EQ(Map(), map);
    Press(Screen, "optSpatialSigmaRange"); // no sweep was run on these points: plain
    Global()->SetListIndex(2);
    EXPECT_NE(Map(), map);
}

TEST_F(PointRun, MarksTheRegionOfALocalRow) {
    LoadFour();
    RunSingle("1");
    const QImage map = Map();
    const auto green = [this] {
        const QImage shown = Map();
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                count += shown.pixelColor(x, y) == QColor(0, 255, 0) ? 1 : 0;
        return count;
    };
    for (const int row : {0, 1, 2, 7}) { // dashes, heading, dashes; dashes at the end
        Local()->SetListIndex(row);
        EXPECT_EQ(Map(), map) << row;
    }
    QImage before = map;
    for (const int row : {3, 4, 5, 6}) {
        Local()->SetListIndex(row);
        EXPECT_GT(green(), 0) << row;
        EXPECT_NE(Map(), before) << row;
        before = Map();
        Local()->SetListIndex(row);
        EXPECT_EQ(Map(), before) << "the same row marks again";
    }
}

// Each refusal leaves the lists empty, cmdSave as it was and the pointer normal; the next run works.
TEST_F(PointRun, RefusesABandwidthThatIsNone) {
    LoadFour();
    RunSingle("1");
    for (const auto& [text, message] : {std::pair{"-0.5", "Bandwidth should not be negative."},
                                        {"", "Bandwidth should be numerical."},
                                        {"0,5", "Bandwidth should be numerical."},
                                        {"nan", "Bandwidth should be numerical."}}) {
        ws.CurrentSigma = 7;
        Script.ExpectMessage(message);
        RunSingle(text);
        EXPECT_EQ(Global()->ListCount(), 0) << text;
        EXPECT_EQ(Local()->ListCount(), 0) << text;
        EXPECT_EQ(Buttons(), Enabled(true, true)) << text;
        EXPECT_FALSE(Script.BusyPointer()) << text;
        EXPECT_EQ(ws.CurrentSigma, 7) << text;
    }
    RunSingle(" +1e0 ");
    EXPECT_EQ(ws.CurrentSigma, 1);
    EXPECT_EQ(Local()->ListCount(), 8);
}

TEST_F(PointRun, RefusesARangeThatIsNone) {
    LoadFour();
    constexpr const char* numeric = "A range of bandwidth parameters should be numeric.";
    constexpr const char* invalid = "Ivalid range of bandwidth was input. Check the parameters!";
    const struct {
        const char *From, *To, *Step, *Message;
    } rows[] = {{"", "2", "0.2", numeric},   {"0.2", "x", "0.2", numeric}, {"0.2", "2", "", numeric},
                {"-0.1", "2", "1", invalid}, {"0", "0", "1", invalid},     {"2", "2", "1", invalid},
                {"2", "1", "1", invalid},    {"0.2", "2", "0", invalid},   {"0.2", "2", "-1", invalid}};
    for (const auto& [from, to, step, message] : rows) {
        Script.ExpectMessage(message);
        RunRange(from, to, step);
        EXPECT_EQ(Global()->ListCount(), 0);
        EXPECT_EQ(Buttons(), Enabled(true, false));
        EXPECT_EQ(ChartPartsShown(), 0);
        EXPECT_FALSE(Script.BusyPointer());
    }
    RunRange("0", "1", "0.4"); // round(3.5) = 4 steps; the last one overshoots and shows the end
    EXPECT_EQ(Global()->ListCount(), 2 + 4 + 1);
    EXPECT_EQ(ws.BandwidthList(3), 1.0);
    EXPECT_EQ(Buttons(), Enabled(true, true));
}

TEST_F(PointRun, StopsBeforeItBeginsWhereThereAreTooManySteps) {
    LoadFour();
    Script.ExpectRunTimeError(6);
    RunRange("0", "1", "0.00001");
    EXPECT_EQ(Global()->ListCount(), 0);
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(Buttons(), Enabled(true, false));
}

TEST_F(PointRun, StopsAtADivisionByZeroWithThePointerBusyAndRunsAgain) {
    Load(Folder.Write("nobody.txt", "A,0,0,0,5\nB,4,0,200,1\nC,0,3,300,1\n")); // cases where nobody lives
    Press(Screen, "optAdjusted_Generic");
    Script.ExpectRunTimeError(11);
    RunSingle("1");
    EXPECT_EQ(Global()->ListCount(), 0);
    EXPECT_EQ(Local()->ListCount(), 0);
    EXPECT_EQ(Buttons(), Enabled(true, false));
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_FALSE(ws.bRetroMapping);
    Script.ExpectRunTimeError(11);
    RunRange("0.2", "2", "0.2"); // the title rows stand, the first bandwidth does not
    EXPECT_EQ(Global()->ListCount(), 2);
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(ChartPartsShown(), 0);
    Load(Folder.Write("no-cases.txt", "A,0,0,100,0\nB,4,0,200,0\nC,0,3,300,0\n"));
    Script.ExpectRunTimeError(5); // the sweep begins with the deviations: 0 / 0
    RunRange("0.2", "2", "0.2");
    EXPECT_TRUE(Script.BusyPointer());
    LoadFour();
    RunSingle("1");
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(Local()->ListCount(), 8);
}

TEST_F(PointRun, RunsASinglePointAndStopsAtTwoWithoutAnArea) {
    Load(Folder.Write("one.txt", "A,1,2,3,4\n"), "optObsExp");
    Press(Screen, "optStandard");
    Script.ExpectMessage("Error!"); // M* is out of range for one Region: in the list, then in the legend
    Script.ExpectMessage("Error!");
    RunSingle("5");
    EXPECT_EQ(Local()->ListCount(), 5);
    Load(Folder.Write("two.txt", "A,1,2,3,4\nB,5,2,3,4\n"), "optObsExp");
    Script.ExpectRunTimeError(11);
    RunSingle("1");
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(Local()->ListCount(), 0);
}

// x = 4 alpha (1 + 0.81 sigma^2) / N is above 1 here, so that M* does not exist.
TEST_F(PointRun, GoesOnWithoutACriticalValue) {
    LoadFour();
    Press(Screen, "optStandard");
    Script.ExpectMessage("Error!");
    Script.ExpectMessage("Error!");
    RunSingle("6");
    EXPECT_EQ(Global()->List(3), "M Critical (M*) = 0.000");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(PointRun, DrawsPlainPointsOfANewDatasetUntilItIsRun) {
    LoadFour();
    RunSingle("1");
    Load(Folder.Write("more.txt", "A,0,0,4,5\nB,4,0,9,6\nC,0,3,2,4\nD,4,3,5,5\nE,2,2,5,5\n"), "optObsExp");
    const auto rows = Rows(Local()); // still the rows of the four
    Local()->SetListIndex(3);
    EXPECT_EQ(Rows(Local()), rows);
    RunSingle("1");
    EXPECT_EQ(Local()->ListCount(), 9);
}
