#include "desktop/retrospective/frmSelectDataFormat.h"

#include "core/workspace/Workspace.h"
#include "desktop/retrospective/PointScreen.h"
#include "support/screens/ScreenChecks.h"

#include <QTest>

using namespace vastrel;

namespace {

class DataFormatTest : public PointScreenTest {
protected:
    DataFormatTest() { Press(Screen, "cmdLoadData"); }

    void Continue(const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        Press(Dialog, "cmdContinue");
    }
    bool CanRun() { return IsEnabled(Screen, "cmdRun"); }
};

constexpr const char* NoFile = "You didn't specify textfile.";
constexpr const char* WrongFile =
    "Data does not fit the required format. Check the data and requirement, please.";

} // namespace

TEST_F(DataFormatTest, StandsAsDesigned) {
    ExpectCaptions(Dialog, {{"frmSelectDataFormat", "Data Type"},
                            {"Frame1", "Data Format"},
                            {"optObsExp", "Obs - Exp"},
                            {"optPopCase", "Population - Case"},
                            {"cmdContinue", "&Continue"},
                            {"cmdCancel", "&Cancel"}});
    EXPECT_FALSE(The_<QAbstractButton>(Dialog, "optObsExp")->isChecked());
    EXPECT_FALSE(The_<QAbstractButton>(Dialog, "optPopCase")->isChecked());
    ExpectAccessibleNames(Dialog);
    ExpectTabOrder(Dialog, {"optObsExp", "optPopCase", "cmdContinue", "cmdCancel"});
    EXPECT_TRUE(Dialog.isWindow());
    EXPECT_FALSE(Dialog.isModal());
    Shot(Dialog, "data-type");
}

TEST_F(DataFormatTest, StandsAThirdDownTheFrame) {
    const QSize rest = screens().FrameSize() - Dialog.size();
    EXPECT_EQ(Dialog.pos() - screens().FramePosition(), QPoint(rest.width() / 2, rest.height() / 3));
}

TEST_F(DataFormatTest, LoadsObservedAndExpectedCounts) {
    Press(Dialog, "optObsExp");
    Continue(Folder.Write("oe.txt", "A,0,0,4,5\nB ,4,1,6,10\n"));
    EXPECT_FALSE(Dialog.IsLoaded());
    EXPECT_TRUE(CanRun());
    EXPECT_FALSE(IsEnabled(Screen, "cmdSave"));
    EXPECT_EQ(ws.NumTextRegion, 2);
    EXPECT_EQ(ws.RegionCentroid(2), (RegionPoint{"B ", 4, 1}));
    EXPECT_EQ(ws.ExpRatio(2), 1.0); // 10 of 10 observed
    EXPECT_EQ(ws.TotalObs, 10);
    EXPECT_EQ(ws.PopBase(1), 0);
}

TEST_F(DataFormatTest, LoadsPopulationsAndCases) {
    Press(Dialog, "optPopCase");
    Continue(Folder.Write("pc.txt", "A,0,0,300,1\nB,4,1,100,3\n"));
    EXPECT_EQ(ws.ExpCount(1), 3.0); // 4 cases in 400, 300 of them here
    EXPECT_EQ(ws.ExpRatio(1), 0.75);
    EXPECT_EQ(ws.ObsCount(2), 3);
    EXPECT_TRUE(CanRun());
}

TEST_F(DataFormatTest, CountsTheLinesAndReadsNothingWithoutAFormat) {
    Continue(Folder.Write("two.txt", "A,0,0,4,5\nB,4,1,6,10\n"));
    EXPECT_FALSE(Dialog.IsLoaded());
    EXPECT_TRUE(CanRun());
    EXPECT_EQ(ws.NumTextRegion, 2);
    EXPECT_EQ(ws.RegionCentroid(1), RegionPoint{});
    EXPECT_EQ(ws.TotalObs, 0);
}

// What is refused with a message leaves the dialog, the store and the screen as they stand.
TEST_F(DataFormatTest, StaysWhereTheFileIsRefused) {
    LoadFour();
    Press(Screen, "cmdLoadData");
    Press(Dialog, "optPopCase");
    const auto stays = [&](const std::string& path, const char* message) {
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        Script.ExpectMessage(message);
        Press(Dialog, "cmdContinue");
        EXPECT_TRUE(Dialog.IsLoaded());
        EXPECT_TRUE(Dialog.isVisible());
        EXPECT_EQ(ws.NumTextRegion, 4);
        EXPECT_EQ(ws.ObsCount(2), 9);
        EXPECT_TRUE(CanRun());
        EXPECT_FALSE(Script.BusyPointer());
    };
    stays("", NoFile);
    stays(Folder.Write("four-fields.txt", "A,1,2,3\n"), WrongFile);
    stays(Folder.Write("six-fields.txt", "A,B,1,2,3,4\n"), WrongFile);
    stays(Folder.Write("blank-first.txt", "\nA,1,2,3,4\n"), WrongFile);
    Continue(Folder.Write("one.txt", "A,1,2,3,4\n"));
    EXPECT_FALSE(Dialog.IsLoaded());
    EXPECT_EQ(ws.NumTextRegion, 1);
}

TEST_F(DataFormatTest, StopsAtARunTimeErrorAndLoadsTheNextFile) {
    struct Row {
        const char *Bytes, *Format;
        long Error;
    };
    const Row rows[] = {{"", "optObsExp", 62},                            // empty
                        {"id,x,y,obs,exp\nA,1,2,3,4\n", "optObsExp", 13}, // a header
                        {"A,1,2,3,4\nB,1,2,3\n", "optObsExp", 9},         // too few fields
                        {"A,1,2,3,4\n\n", "optPopCase", 9},               // a blank line at the end
                        {"A,1,2,3,4\nB,1,1e999,3,4\n", "optPopCase", 6},  // too large
                        {"A,1,2,0,4\nB,1,2,0,4\n", "optObsExp", 11},      // nothing observed
                        {"A,1,2,0,4\nB,1,2,0,4\n", "optPopCase", 11}};    // no population
    for (const auto& [bytes, format, error] : rows) {
        Press(Dialog, format);
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, Folder.Write("bad.txt", bytes));
        Script.ExpectRunTimeError(error);
        Press(Dialog, "cmdContinue");
        EXPECT_TRUE(Dialog.IsLoaded()) << bytes;
        EXPECT_FALSE(CanRun()) << bytes;
        EXPECT_FALSE(Script.BusyPointer()) << bytes;
    }
    Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, Folder / "missing.txt");
    Script.ExpectRunTimeError(53);
    Press(Dialog, "cmdContinue");
    Continue(Folder.Write("good.txt", "A,1,2,3,4\nB,2,2,3,4\n"));
    EXPECT_TRUE(CanRun());
    EXPECT_EQ(ws.TotalObs, 8);
}

TEST_F(DataFormatTest, LeavesWhatALoadHadFilledBeforeItStopped) {
    Press(Dialog, "optObsExp");
    Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter,
                      Folder.Write("bad.txt", "A,1,2,3,4\nB,1,2,x,4\n"));
    Script.ExpectRunTimeError(13);
    Press(Dialog, "cmdContinue");
    EXPECT_EQ(ws.NumTextRegion, 2);
    EXPECT_EQ(ws.RegionCentroid(1), (RegionPoint{"A", 1, 2}));
    EXPECT_EQ(ws.ObsCount(1), 3);
    EXPECT_EQ(ws.ObsCount(2), 0);
    EXPECT_EQ(ws.ExpRatio(1), 0);
}

TEST_F(DataFormatTest, GoesAtCancelEscapeAndCloseWithNothingChanged) {
    Press(Dialog, "cmdCancel");
    EXPECT_FALSE(Dialog.IsLoaded());
    Press(Screen, "cmdLoadData");
    QTest::keyClick(&Dialog, Qt::Key_Escape);
    EXPECT_FALSE(Dialog.IsLoaded());
    Press(Screen, "cmdLoadData");
    Dialog.close();
    EXPECT_FALSE(Dialog.IsLoaded());
    EXPECT_FALSE(CanRun());
    EXPECT_EQ(ws.NumTextRegion, 0);
}

TEST_F(DataFormatTest, ComesBackWithoutAChoice) {
    Press(Dialog, "optPopCase");
    Press(Dialog, "cmdCancel");
    Press(Screen, "cmdLoadData");
    EXPECT_FALSE(The_<QAbstractButton>(Dialog, "optPopCase")->isChecked());
}

TEST_F(DataFormatTest, ContinuesOnEnter) {
    Press(Dialog, "optObsExp");
    Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, "");
    Script.ExpectMessage(NoFile);
    Key(Dialog, "optObsExp", Qt::Key_Return);
    EXPECT_TRUE(Dialog.IsLoaded());
}
