#include "desktop/prospective/WatchScreen.h"

#include "desktop/toolkit/OptionButton.h"
#include "pictures/LineChart.h"
#include "support/ProjectFolder.h"

using namespace vastrel;

namespace {

using namespace WatchChain;

const std::string Samples = InProject("samples/");
const std::string Dashes(82, '-');
constexpr const char* Title = "  Year   Cusum     Region of max cusum value";

class WatchRun : public WatchScreenTest {
protected:
    /// Selects FIR, whose button a person cannot press.
    void SelectFIR() { The_<OptionButton>(Screen, "optFIR")->Select(); }

    std::vector<double> ChartColumn(int column) {
        std::vector<double> values;
        for (std::ptrdiff_t row = 0; row <= ws.CusumChartData.UpperBound1(); ++row)
            values.push_back(ws.CusumChartData(row, column));
        return values;
    }
    using Values = std::vector<double>;
};

} // namespace

// Where another ids file is loaded over the results of a run, the map and the lists go by it at once.
TEST_F(WatchRun, ShowsTheRunOnShowAtThePointsOfANewIdsFile) {
    LoadForStart();
    Run();
    const QImage before = Map();
    Load("cmdFileOpenIDXY", Folder.Write("moved.txt", "A,0,0\nB,4,0\nC,4,3\n"));
    EXPECT_EQ(Map(), before); // until it is drawn
    Periods()->SetListIndex(3);
    const QImage moved = Map();
    Load("cmdFileOpenIDXY", IDs());
    Periods()->SetListIndex(3);
    EXPECT_NE(Map(), moved);
    EXPECT_EQ(Regions()->ListCount(), 2); // A 2.5 and C 3.5 are above 2.2

    Load("cmdFileOpenIDXY", Folder.Write("two.txt", "A,0,0\nB,4,3\n"));
    Periods()->SetListIndex(3);
    EXPECT_EQ(Rows(Regions()), Names{"    2.50 <---                 A"}); // through the two points alone
}

TEST_F(WatchRun, RunsFromZero) {
    LoadForStart();
    Run();
    EXPECT_EQ(
        Rows(Periods()),
        (Names{Title, Dashes, "    1     1.00                    A", "    2     3.50                    C",
               "    3     2.00                    A", "    4     4.50                    A", Dashes}));
    EXPECT_EQ(Periods()->ListIndex(), 5);
    EXPECT_EQ(Rows(Regions()), (Names{"    4.50 <---                 A"}));
    EXPECT_EQ(Caption(), "Period: 4");
    EXPECT_EQ(ChartColumn(0), (Values{1, 3.5, 2, 4.5}));
    EXPECT_EQ(ChartColumn(1), (Values{2.2, 2.2, 2.2, 2.2}));
    EXPECT_EQ(ws.CusumChartLabels, (Names{"1", "2", "3", "4"}));
    EXPECT_TRUE(IsShown(Screen, "MSChart1"));
    EXPECT_FALSE(IsShown(Screen, "MSChart2"));
    EXPECT_EQ(Script.YieldCalls(), 4);
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(WatchRun, RunsFromHalfTheThresholdWhereFIRIsSelected) {
    LoadForStart();
    SelectFIR();
    EXPECT_FALSE(IsEnabled(Screen, "cmdOldCusum"));
    EXPECT_EQ(Text(Screen, "txtIDXY"), Folder / "ids.txt"); // FIR starts no chain anew
    Run();
    // A from 1.1: 2.1 3.6 3.1 5.6; C: 0 3.5 0 0.25; B stays below 1.1
    EXPECT_EQ(
        Rows(Periods()),
        (Names{Title, Dashes, "    1     2.10                    A", "    2     3.60                    A",
               "    3     3.10                    A", "    4     5.60                    A", Dashes}));
}

TEST_F(WatchRun, ContinuesSavedSums) {
    LoadForContinuation();
    Script.AtYield(1, [this] { // the saved periods stand before the first delay
        EXPECT_EQ(Rows(Periods()), (Names{Title, Dashes, "    1     3.00                    C",
                                          "    2     2.00                    C"}));
        EXPECT_EQ(ChartColumn(0), (Values{3, 2, 0, 0, 0, 0}));
        EXPECT_EQ(ws.CusumChartLabels, (Names{"", "", "", "", "", ""}));
    });
    Script.AtYield(3, [this] { EXPECT_EQ(Caption(), "Period: 2"); }); // counts the new periods
    Run();
    EXPECT_EQ(
        Rows(Periods()),
        (Names{Title, Dashes, "    1     3.00                    C", "    2     2.00                    C",
               "    3     2.00                    A", "    4     4.00                    C",
               "    5     3.00                    A", "    6     5.50                    A", Dashes}));
    EXPECT_EQ(Periods()->ListIndex(), 7);
    EXPECT_EQ(Rows(Regions()), (Names{"    5.50 <---                 A"}));
    EXPECT_EQ(Caption(), "Period: 4");
    EXPECT_EQ(ChartColumn(0), (Values{3, 2, 2, 4, 3, 5.5}));
    EXPECT_EQ(Script.YieldCalls(), 4);
    Periods()->SetListIndex(2);
    EXPECT_EQ(Caption(), "Period: 1");
    EXPECT_EQ(Rows(Regions()), (Names{"    3.00 <---                 C"}));
}

TEST_F(WatchRun, WaitsByTheSpeedOfTheRun) {
    LoadForStart();
    const struct {
        const char *Option, *Yield;
    } rows[] = {{"optFast", "yield 10001\n"}, {"optMedium", "yield 120001\n"}, {"optSlow", "yield 300001\n"}};
    for (const auto& [option, yield] : rows) {
        Press(Screen, option);
        const size_t before = Script.Transcript().size();
        Script.AtYield(2, [this] { The_<OptionButton>(Screen, "optFast")->Select(); }); // for the next run
        Run();
        const std::string expected =
            std::string("pointer busy\n") + yield + yield + yield + yield + "pointer normal\n";
        EXPECT_EQ(Script.Transcript().substr(before), expected);
    }
}

TEST_F(WatchRun, ShowsAPeriodThatIsPicked) {
    LoadForStart();
    Run();
    const QImage last = Map();
    Regions()->SetListIndex(0);
    EXPECT_TRUE(IsShown(Screen, "MSChart2"));
    Periods()->SetListIndex(3);
    EXPECT_EQ(Caption(), "Period: 2");
    EXPECT_EQ(Rows(Regions()), (Names{"    2.50 <---                 A", "    3.50 <---                 C"}));
    EXPECT_FALSE(IsShown(Screen, "MSChart2"));
    EXPECT_FALSE(IsShown(Screen, "picEachRegionInfo"));
    EXPECT_NE(Map(), last);
    Periods()->SetListIndex(2); // no signal
    EXPECT_EQ(Caption(), "Period: 1");
    EXPECT_EQ(Regions()->ListCount(), 0);
    for (const int row : {0, 1, 6}) { // title, dashes, dashes
        Periods()->SetListIndex(5);
        Periods()->SetListIndex(row);
        EXPECT_EQ(Caption(), "") << row;
        EXPECT_EQ(Regions()->ListCount(), 0) << row;
    }
    Periods()->SetListIndex(5);
    EXPECT_EQ(Map(), last);
}

TEST_F(WatchRun, ShowsARegionThatIsPicked) {
    LoadForStart();
    Run();
    Periods()->SetListIndex(3);
    const QImage period = Map();
    Regions()->SetListIndex(1);
    EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "C in 2: ---> 3.50");
    EXPECT_TRUE(IsShown(Screen, "picEachRegionInfo"));
    EXPECT_TRUE(IsShown(Screen, "MSChart2"));
    EXPECT_EQ(ChartColumn(0), (Values{0, 3.5, 0, 0.25}));
    EXPECT_NE(Map(), period); // the mark stays
    const QImage marked = Map();
    Regions()->SetListIndex(1);
    EXPECT_EQ(Map(), marked);
    EXPECT_EQ(The_<LineChart>(Screen, "MSChart2")->Spoken(), "Line chart of Cusum and h-value over 4 rows.");
}

TEST_F(WatchRun, RefusesParametersAndRunsAgain) {
    LoadForStart();
    Run();
    constexpr const char* improper = "Parameters are not properly input.";
    constexpr const char* negative = "Parameters should be positive values.";
    const struct {
        const char *Box, *Text, *Message;
    } rows[] = {{"txtKvalue", "", improper},   {"txtKvalue", "-0.1", negative},
                {"txtHvalue", "x", improper},  {"txtHvalue", "-1", negative},
                {"txtSigma", "0,1", improper}, {"txtSigma", "-1e-9", negative}};
    for (const auto& [box, text, message] : rows) {
        const std::string before = Text(Screen, box);
        Type(Screen, box, text);
        Script.ExpectMessage(message);
        Run();
        EXPECT_EQ(Periods()->ListCount(), 0) << box << text;
        EXPECT_EQ(Regions()->ListCount(), 0) << box << text;
        EXPECT_FALSE(Script.BusyPointer());
        EXPECT_EQ(ws.HValue, 2.2); // of the last run
        ExpectChain(AtLoad + NewZ + Names{"cmdRun", "cmdSaveCusum", "cmdSaveResult"});
        Type(Screen, box, before);
    }
    Run();
    EXPECT_EQ(Periods()->ListCount(), 7);
}

TEST_F(WatchRun, StopsAtMoreZScoreLinesThanIdsWithThePointerBusyAndRunsAgain) {
    Load("cmdFileOpenIDXY", IDs());
    Load("cmdNewZScore", Folder.Write("long.txt", "1\n1\n1\n1\n"));
    Script.ExpectRunTimeError(9);
    Run();
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(Rows(Periods()), (Names{Title, Dashes}));
    EXPECT_EQ(Regions()->ListCount(), 0);
    EXPECT_EQ(Script.YieldCalls(), 0);
    ExpectChain(AtLoad + NewZ + Names{"cmdRun"});
    Load("cmdNewZScore", Z());
    Run();
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(Periods()->ListCount(), 7);
}

TEST_F(WatchRun, StopsAtASavedTableOfAnotherSizeWithThePointerBusy) {
    for (const char* table : {"0,0\n0,0\n", "0,0\n0,0\n0,0\n0,0\n"}) {
        Press(Screen, "optZero");
        Press(Screen, "optPre");
        Load("cmdFileOpenIDXY", IDs());
        Load("cmdOldCusum", Folder.Write("other.txt", table));
        Load("cmdNewZScore", Z());
        Script.ExpectRunTimeError(9);
        Run();
        EXPECT_TRUE(Script.BusyPointer()) << table;
        EXPECT_EQ(Rows(Periods()), (Names{Title, Dashes})) << table;
        EXPECT_FALSE(IsEnabled(Screen, "cmdSaveResult"));
    }
}

TEST_F(WatchRun, RunsASinglePeriodAndAPeriodWithoutAnySum) {
    Load("cmdFileOpenIDXY", IDs());
    Load("cmdNewZScore", Folder.Write("one.txt", "-1\n-2\n-3\n"));
    Run();
    EXPECT_EQ(Rows(Periods()), (Names{Title, Dashes, "    1     0.00                     ", Dashes}));
    EXPECT_EQ(Regions()->ListCount(), 0);
    EXPECT_EQ(Caption(), "Period: 1");
}

TEST_F(WatchRun, PlaysTheSampleForAPersonToLookAt) {
    Load("cmdFileOpenIDXY", Samples + "watch_xy.txt");
    Load("cmdNewZScore", Samples + "watch_z.txt");
    Script.AtYield(20, [this] { Shot(Frame, "watch-playing"); });
    Run();
    EXPECT_EQ(Periods()->ListCount(), 2 + 24 + 1);
    ASSERT_GT(Regions()->ListCount(), 2);
    Regions()->SetListIndex(2);
    Shot(Frame, "watch-region");
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "sums.csm");
    Press(Screen, "cmdSaveCusum");

    Press(Screen, "optPre"); // a saved table carries on without its header and the commas at its ends
    std::string table = ReadFile(Folder / "sums.csm");
    table.erase(0, table.find('\n') + 1);
    for (size_t comma = 0; (comma = table.find(",\n", comma)) != std::string::npos;)
        table.erase(comma, 1);
    Load("cmdFileOpenIDXY", Samples + "watch_xy.txt");
    Load("cmdOldCusum", Folder.Write("table.txt", table));
    Load("cmdNewZScore", Samples + "watch_z.txt");
    Run();
    EXPECT_EQ(Periods()->ListCount(), 2 + 48 + 1);
    EXPECT_EQ(Caption(), "Period: 24");
    Shot(Frame, "watch-continued");
}
