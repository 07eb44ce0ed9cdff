#include "desktop/prospective/frmUnivariateCusumTextfile.h"

#include "core/workspace/Workspace.h"
#include "desktop/prospective/WatchScreen.h"
#include "desktop/toolkit/OptionButton.h"
#include "desktop/toolkit/PlotWidget.h"
#include "pictures/LineChart.h"
#include "support/ProjectFolder.h"
#include "support/screens/ScreenChecks.h"

#include <QApplication>
#include <QLabel>

#include <filesystem>

using namespace vastrel;

namespace {

const std::string Samples = InProject("samples/");

using Names = std::vector<std::string>;
const std::vector<const char*> Chain{"cmdFileOpenIDXY", "cmdOldCusum",  "lblOldCusum",  "txtOldCusum",
                                     "cmdNewZScore",    "lblNewZ",      "txtNewZScore", "cmdRun",
                                     "cmdSaveCusum",    "cmdSaveResult"};
const Names OldCusum{"cmdOldCusum", "lblOldCusum", "txtOldCusum"};
// What stands beside the button of the saved table is not disabled at load, as the button itself is.
const Names AtLoad{"cmdFileOpenIDXY", "lblOldCusum", "txtOldCusum"};
const Names NewZ{"cmdNewZScore", "lblNewZ", "txtNewZScore"};

Names operator+(Names left, const Names& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

const std::string Dashes(82, '-');
constexpr const char* Title = "  Year   Cusum     Region of max cusum value";

class WatchScreen : public WatchScreenTest {
protected:
    void ExpectChain(const Names& enabled) { ExpectEnabled(Screen, Chain, enabled); }
    QImage Map() { return The_<PlotWidget>(Screen, "picPoint")->Picture(); }
    bool IsSelected(const char* option) { return The_<QAbstractButton>(Screen, option)->isChecked(); }

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

TEST_F(WatchScreen, StandsAsDesigned) {
    ExpectCaptions(Screen, {{"frmUnivariateCusumTextfile", "Univariate cusum"},
                            {"fraLoad", "Load Data"},
                            {"lblIDXY", "ID, X-Y Coordinates"},
                            {"cmdFileOpenIDXY", "..."},
                            {"txtIDXY", ""},
                            {"lblOldCusum", "Saved cusum file"},
                            {"cmdOldCusum", "..."},
                            {"txtOldCusum", ""},
                            {"lblNewZ", "New z-score file"},
                            {"cmdNewZScore", "..."},
                            {"txtNewZScore", ""},
                            {"fraStart", "Start option"},
                            {"optZero", "Zero"},
                            {"optPre", "Previous"},
                            {"optFIR", "FIR"},
                            {"fraParameters", "Parameters"},
                            {"lblK", "k-value"},
                            {"txtKvalue", "0.5"},
                            {"lblH", "h-value"},
                            {"txtHvalue", "9.3"},
                            {"lblSigma", "Sigma"},
                            {"txtSigma", "0"},
                            {"fraSpeed", "Animation speed"},
                            {"optFast", "H"},
                            {"optMedium", "M"},
                            {"optSlow", "L"},
                            {"fraPeriods", "Maximum cusum value for each year"},
                            {"fraRegions", "Signaled region and cusum for the year "},
                            {"fraMap", "Map Display"},
                            {"fraChart1", "Cusum chart (maximum value of each period)"},
                            {"fraChart2", "Cusum chart (individual region)"},
                            {"optMeasureDistance", "Select"},
                            {"lblY", ""},
                            {"lblDisplay", ""},
                            {"cmdRun", "&Run"},
                            {"cmdSaveCusum", "&Save Cusum"},
                            {"cmdSaveResult", "&Save Result"}});
    EXPECT_FALSE(IsEnabled(Screen, "lblNewZ"));
    ExpectChain(AtLoad + Names{"txtNewZScore"});
    for (const char* option : {"optZero", "optFast"})
        EXPECT_TRUE(IsSelected(option)) << option;
    EXPECT_FALSE(IsEnabled(Screen, "optFIR"));
    for (const char* part : {"MSChart1", "MSChart2", "picEachRegionInfo"})
        EXPECT_FALSE(IsShown(Screen, part)) << part;
    EXPECT_EQ(Periods()->font(), ListBox::FixedFont());
    EXPECT_EQ(Regions()->font(), ListBox::FixedFont());
    ExpectAccessibleNames(Screen);
    ExpectTabOrder(Screen,
                   {"cmdFileOpenIDXY", "txtIDXY",      "cmdOldCusum",   "txtOldCusum",   "cmdNewZScore",
                    "txtNewZScore",    "optZero",      "optPre",        "optFIR",        "txtKvalue",
                    "txtHvalue",       "txtSigma",     "optFast",       "optMedium",     "optSlow",
                    "cmdRun",          "cmdSaveCusum", "cmdSaveResult", "lstPeriod",     "lstRegion",
                    "optZoomIn",       "optZoomOut",   "optPan",        "optFullExtent", "optMeasureDistance",
                    "optIdentify"});
    EXPECT_EQ(The_<PlotWidget>(Screen, "picPoint")->Size(), (SurfaceSize{6400, 4110, 423, 270}));
    EXPECT_LE(Screen.Frame()->height(), screens().FrameSize().height());
    Shot(Frame, "watch-empty");
}

TEST_F(WatchScreen, OpensItsChainOfFilesStepByStep) {
    Load("cmdFileOpenIDXY", IDs());
    ExpectChain(AtLoad + NewZ);
    EXPECT_EQ(Text(Screen, "txtIDXY"), Folder / "ids.txt");
    Load("cmdNewZScore", Z());
    ExpectChain(AtLoad + NewZ + Names{"cmdRun"});
    EXPECT_EQ(Text(Screen, "txtNewZScore"), Folder / "z.txt");
    Run();
    ExpectChain(AtLoad + NewZ + Names{"cmdRun", "cmdSaveCusum", "cmdSaveResult"});

    Press(Screen, "optPre"); // starts the chain anew
    ExpectChain({"cmdFileOpenIDXY"});
    Load("cmdFileOpenIDXY", IDs());
    ExpectChain(Names{"cmdFileOpenIDXY"} + OldCusum);
    Load("cmdOldCusum", Saved());
    ExpectChain(Names{"cmdFileOpenIDXY"} + OldCusum + NewZ);
    EXPECT_EQ(Text(Screen, "txtOldCusum"), Folder / "saved.txt");
    Load("cmdNewZScore", Z());
    ExpectChain(Names{"cmdFileOpenIDXY"} + OldCusum + NewZ + Names{"cmdRun"});

    Press(Screen, "optZero");
    ExpectChain({"cmdFileOpenIDXY"});
}

// What was run on some files is not saved beside another of them.
TEST_F(WatchScreen, EndsSavingWithAnotherFileUntilItIsRun) {
    const auto canSave = [this] {
        return std::pair(IsEnabled(Screen, "cmdSaveResult"), IsEnabled(Screen, "cmdSaveCusum"));
    };
    const std::pair yes(true, true), no(false, false);
    LoadForContinuation();
    for (const auto& [button, path] :
         {std::pair{"cmdFileOpenIDXY", IDs()}, {"cmdOldCusum", Saved()}, {"cmdNewZScore", Z()}}) {
        Run();
        EXPECT_EQ(canSave(), yes) << button;
        Load(button, path);
        EXPECT_EQ(canSave(), no) << button;
        EXPECT_TRUE(IsEnabled(Screen, "cmdRun")) << button;
    }
    Run();
    Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, ""); // a load that is refused changes nothing
    Script.ExpectMessage("File name is not specified.");
    Press(Screen, "cmdNewZScore");
    EXPECT_EQ(canSave(), yes);
}

// Where another ids file is loaded over the results of a run, the map and the lists go by it at once.
TEST_F(WatchScreen, ShowsTheRunOnShowAtThePointsOfANewIdsFile) {
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

TEST_F(WatchScreen, StartsTheChainAnewWithEachStartOption) {
    LoadForStart();
    Run();
    Regions()->SetListIndex(0);
    EXPECT_TRUE(IsShown(Screen, "MSChart2"));
    The_<OptionButton>(Screen, "optIdentify")->Select();
    EXPECT_TRUE(IsShown(Screen, "lblDisplay"));
    Press(Screen, "optPre");
    for (const char* box : {"txtIDXY", "txtOldCusum", "txtNewZScore"})
        EXPECT_EQ(Text(Screen, box), "") << box;
    EXPECT_EQ(Periods()->ListCount(), 0);
    EXPECT_EQ(Regions()->ListCount(), 0);
    for (const char* part : {"MSChart2", "picEachRegionInfo", "lblDisplay"})
        EXPECT_FALSE(IsShown(Screen, part)) << part;
    EXPECT_TRUE(IsShown(Screen, "MSChart1")); // stays on view
    QImage white = Map();
    white.fill(Qt::white);
    EXPECT_EQ(Map(), white);
    Load("cmdFileOpenIDXY", IDs());
    Press(Screen, "optPre"); // selected already: nothing
    EXPECT_EQ(Text(Screen, "txtIDXY"), Folder / "ids.txt");
}

TEST_F(WatchScreen, RunsFromZero) {
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

TEST_F(WatchScreen, RunsFromHalfTheThresholdWhereFIRIsSelected) {
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

TEST_F(WatchScreen, ContinuesSavedSums) {
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

TEST_F(WatchScreen, WaitsByTheSpeedOfTheRun) {
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

TEST_F(WatchScreen, ShowsAPeriodThatIsPicked) {
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

TEST_F(WatchScreen, ShowsARegionThatIsPicked) {
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

TEST_F(WatchScreen, RefusesParametersAndRunsAgain) {
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

// What a reader refuses or stops at leaves the boxes and the chain as they stand, and the next file loads.
TEST_F(WatchScreen, StaysWhereAFileIsRefused) {
    constexpr const char* noName = "File name is not specified.";
    const auto refused = [this](const char* button, const std::string& path, const std::string& message) {
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        Script.ExpectMessage(message);
        Press(Screen, button);
        EXPECT_FALSE(Script.BusyPointer());
    };
    const auto stopped = [this](const char* button, const std::string& bytes, long error) {
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, Folder.Write("bad.txt", bytes));
        Script.ExpectRunTimeError(error);
        Press(Screen, button);
        EXPECT_FALSE(Script.BusyPointer());
    };
    refused("cmdFileOpenIDXY", "", noName);
    refused("cmdFileOpenIDXY", Folder.Write("four.txt", "A,1,2,3\n"),
            "ID, XY Coordinates file was misspecified.");
    stopped("cmdFileOpenIDXY", "", 62);
    stopped("cmdFileOpenIDXY", "id,x,y\nA,1,2\n", 13);
    stopped("cmdFileOpenIDXY", "A,1,2\nB,1\n", 9);
    stopped("cmdFileOpenIDXY", "A,1,2\n\n", 9);
    ExpectChain(AtLoad + Names{"txtNewZScore"});
    EXPECT_EQ(Text(Screen, "txtIDXY"), "");
    Load("cmdFileOpenIDXY", IDs());

    refused("cmdNewZScore", "", noName);
    refused("cmdNewZScore", Folder.Write("gap.txt", "1,,3\n1,2,3\n1,2,3\n"),
            "There is missing value in row 2 and column 2 in the dataset.");
    refused("cmdNewZScore", Folder.Write("comma.txt", "1,2,\n"),
            "There is missing value in row 2 and column 3 in the dataset.");
    stopped("cmdNewZScore", "1,2\n1,x\n", 13);
    stopped("cmdNewZScore", "1,2\n1\n", 9);
    ExpectChain(AtLoad + NewZ);
    EXPECT_EQ(Text(Screen, "txtNewZScore"), "");
    Load("cmdNewZScore", Z());
    Run();
    EXPECT_EQ(Periods()->ListCount(), 7);

    Press(Screen, "optPre");
    Load("cmdFileOpenIDXY", IDs());
    refused("cmdOldCusum", "", noName);
    refused("cmdOldCusum", Folder.Write("gap.txt", "0.5,1\n0,\n3,2\n"),
            "There is missing value in row 3 and column 2 in the dataset.");
    stopped("cmdOldCusum", "period1,period2,\n0.5,1,\n0,0,\n3,2,\n", 13); // a file of Save Cusum
    ExpectChain(Names{"cmdFileOpenIDXY"} + OldCusum);
    Load("cmdOldCusum", Saved());
    Load("cmdNewZScore", Z());
    Run();
    EXPECT_EQ(Periods()->ListCount(), 9);
}

TEST_F(WatchScreen, StopsAtMoreZScoreLinesThanIdsWithThePointerBusyAndRunsAgain) {
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

TEST_F(WatchScreen, StopsAtASavedTableOfAnotherSizeWithThePointerBusy) {
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

TEST_F(WatchScreen, RunsASinglePeriodAndAPeriodWithoutAnySum) {
    Load("cmdFileOpenIDXY", IDs());
    Load("cmdNewZScore", Folder.Write("one.txt", "-1\n-2\n-3\n"));
    Run();
    EXPECT_EQ(Rows(Periods()), (Names{Title, Dashes, "    1     0.00                     ", Dashes}));
    EXPECT_EQ(Regions()->ListCount(), 0);
    EXPECT_EQ(Caption(), "Period: 1");
}

TEST_F(WatchScreen, SavesTheReportOnce) {
    LoadForStart();
    Run();
    Script.ExpectFile(FileQuestion::Kind::Save, ReportFilter, Folder / "report.txt");
    Press(Screen, "cmdSaveResult");
    EXPECT_FALSE(IsEnabled(Screen, "cmdSaveResult"));
    EXPECT_TRUE(IsEnabled(Screen, "cmdSaveCusum"));
    EXPECT_NE(ReadFile(Folder / "report.txt").find("Table of maximum cusum"), std::string::npos);
    Run();
    EXPECT_TRUE(IsEnabled(Screen, "cmdSaveResult"));
}

TEST_F(WatchScreen, TellsThatNoReportFileWasChosenAndReportsOneThatCannotBe) {
    LoadForStart();
    Run();
    std::filesystem::create_directory(Folder / "folder");
    Script.ExpectFile(FileQuestion::Kind::Save, ReportFilter, Folder / "folder");
    Script.ExpectRunTimeError(75);
    Press(Screen, "cmdSaveResult");
    EXPECT_TRUE(IsEnabled(Screen, "cmdSaveResult"));
    Script.ExpectFile(FileQuestion::Kind::Save, ReportFilter, "");
    Script.ExpectMessage("You didn't specify data file.");
    Press(Screen, "cmdSaveResult");
    EXPECT_FALSE(IsEnabled(Screen, "cmdSaveResult"));
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(Periods()->ListCount(), 7);
}

TEST_F(WatchScreen, SavesCusumsAsOftenAsAskedAndIsQuietAboutFaults) {
    LoadForStart();
    Run();
    const auto save = [this](const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, path);
        Press(Screen, "cmdSaveCusum");
        EXPECT_TRUE(IsEnabled(Screen, "cmdSaveCusum"));
    };
    save("");
    std::filesystem::create_directory(Folder / "folder");
    save(Folder / "folder");
    save(Folder / "sums.csm");
    EXPECT_EQ(ReadFile(Folder / "sums.csm"), "period1,period2,period3,period4,\n"
                                             "1,2.5,2,4.5,\n0,0,0,0,\n0,3.5,0,0.25,\n");
    Press(Screen, "optPre");
    LoadForContinuation();
    Run();
    save(Folder / "all.csm");
    EXPECT_EQ(ReadFile(Folder / "all.csm"), "period1,period2,period3,period4,period5,period6,\n"
                                            "0.5,1,2,3.5,3,5.5,\n0,0,0,0,0,0,\n3,2,0.5,4,0,0.25,\n");
}

TEST_F(WatchScreen, ShowsItsLineOfTextWithTheToolsThatUseIt) {
    const QPoint map = The_<PlotWidget>(Screen, "picPoint")->pos();
    const struct {
        const char* Tool;
        bool Shown, Kept;
    } rows[] = {{"optIdentify", true, false},       {"optZoomIn", false, true},
                {"optMeasureDistance", true, true}, {"optZoomOut", false, true},
                {"optMeasureDistance", true, true}, {"optPan", false, true},
                {"optMeasureDistance", true, true}, {"optFullExtent", false, true}};
    for (const auto& [tool, shown, kept] : rows) {
        The_<QLabel>(Screen, "lblDisplay")->setText("Radius: 7");
        Press(Screen, tool);
        QApplication::processEvents();
        EXPECT_EQ(The_<PlotWidget>(Screen, "picPoint")->pos(), map) << tool; // the map does not move
        EXPECT_EQ(IsShown(Screen, "lblDisplay"), shown) << tool;
        EXPECT_EQ(Text(Screen, "lblDisplay"), kept ? "Radius: 7" : "") << tool;
    }
}

TEST_F(WatchScreen, GoesAndComesBackAsNew) {
    LoadForContinuation();
    Run();
    Regions()->SetListIndex(0);
    Screen.Frame()->close();
    EXPECT_FALSE(Screen.IsLoaded());
    Command("mnuOpenTextPro");
    ExpectChain(AtLoad + Names{"txtNewZScore"});
    EXPECT_TRUE(IsSelected("optZero"));
    EXPECT_EQ(Text(Screen, "txtHvalue"), "9.3");
    EXPECT_EQ(Text(Screen, "txtIDXY"), "");
    EXPECT_EQ(Caption(), "");
    EXPECT_EQ(Periods()->ListCount(), 0);
    EXPECT_EQ(Regions()->ListCount(), 0);
    for (const char* part : {"MSChart1", "MSChart2", "picEachRegionInfo"})
        EXPECT_FALSE(IsShown(Screen, part)) << part;
    QImage white = Map();
    white.fill(Qt::white);
    EXPECT_EQ(Map(), white);
    LoadForStart();
    Run();
    EXPECT_EQ(Periods()->ListCount(), 7);
}

TEST_F(WatchScreen, RunsOnEnter) {
    LoadForStart();
    Key(Screen, "txtKvalue", Qt::Key_Return);
    EXPECT_EQ(Periods()->ListCount(), 7);
}

TEST_F(WatchScreen, PlaysTheSampleForAPersonToLookAt) {
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
