#include "desktop/prospective/frmUnivariateCusumTextfile.h"

#include "desktop/prospective/WatchScreen.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/FullDisk.h"

#include <QApplication>
#include <QLabel>

#include <filesystem>

using namespace vastrel;

namespace {

using namespace WatchChain;

class WatchScreen : public WatchScreenTest {
protected:
    bool IsSelected(const char* option) { return The_<QAbstractButton>(Screen, option)->isChecked(); }
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

TEST_F(WatchScreen, LeavesTheOldFilesOnAFullDisk) {
    LoadForStart();
    Run();
    ExpectOldFileOnAFullDisk(Script, ReportFilter, ".txt", DiskFullError,
                             [this] { Press(Screen, "cmdSaveResult"); });
    ExpectOldFileOnAFullDisk(Script, CusumFilter, ".csm", PassedOver,
                             [this] { Press(Screen, "cmdSaveCusum"); });
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
