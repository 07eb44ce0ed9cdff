#include "desktop/prospective/PolygonWatchScreen.h"

#include <QAction>

#include <filesystem>

using namespace vastrel;

namespace {

/// What a run leaves behind that stops on its way.
class PolygonFaultTest : public PolygonWatchScreenTest {
protected:
    /// The title rows alone, the pointer as it was set, and no result.
    void ExpectStopped() {
        EXPECT_TRUE(Script.BusyPointer());
        EXPECT_EQ(Periods()->ListCount(), 2);
        EXPECT_EQ(Regions()->ListCount(), 0);
        EXPECT_TRUE(ws.bCusumRun);
    }
    void ExpectEmptyTables(std::ptrdiff_t periods) {
        EXPECT_EQ(ws.RunPeriodCount, periods);
        EXPECT_EQ(ws.CusumValue, Table<double>(3, periods));
        EXPECT_EQ(ws.MaxCusum, Array1<double>(periods));
    }
    void RunText(const std::string& bytes) {
        Script.ExpectFile(FileQuestion::Kind::Open, TextFilter, Folder.Write("z.txt", bytes));
        Run();
    }
};

} // namespace

TEST_F(PolygonFaultTest, ANullBetweenTheColumnsLeavesNothingOfTheRunBefore) {
    RunFields();
    Pick(2, 6);
    Script.ExpectRunTimeError(94);
    Run();
    ExpectStopped();
    ExpectEmptyTables(5);
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());

    RunFields(); // and the next run works
    EXPECT_EQ(ws.CusumValue(3, 3), 10);
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(PolygonFaultTest, ATextBetweenTheColumns) {
    Pick(0, 2); // NAME stands between KEY and Z1
    Script.ExpectRunTimeError(13);
    Run();
    ExpectStopped();
    ExpectEmptyTables(3);
    EXPECT_FALSE(CanSaveResult());
}

TEST_F(PolygonFaultTest, ATextFileThatDoesNotFit) {
    Press(Screen, "optExistingTextfile");
    for (const auto& [bytes, error] :
         {std::pair{"1\n2\n3\n4\n", 9}, std::pair{"1\nx\n3\n", 13}, std::pair{"1,2\n1,\n3,4\n", 13},
          std::pair{"1,2\n1\n3,4\n", 9}, std::pair{"", 62}}) {
        Script.SetBusyPointer(false);
        Script.ExpectFile(FileQuestion::Kind::Open, TextFilter, Folder.Write("z.txt", bytes));
        Script.ExpectRunTimeError(error);
        Run();
        ExpectStopped();
    }
    RunText("9,9,9\n"); // too few rows leave the rest at 0
    EXPECT_EQ(Periods()->List(4), "    3    25.50                    A");
    EXPECT_EQ(ws.CusumValue(3, 3), 0);
}

TEST_F(PolygonFaultTest, AnAreaOfZero) {
    RunFields();
    ws.TotalShapeArea = 0;
    Script.ExpectRunTimeError(11);
    Run();
    ExpectStopped();
    ExpectEmptyTables(3);
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
}

TEST_F(PolygonFaultTest, TheMapOfTheRunBefore) {
    RunFields();
    const QAction* graph = Map.findChild<QAction*>("Graph");
    EXPECT_TRUE(graph->isChecked() && CanSaveResult() && CanSaveCusum());
    Type(Screen, "txtSigma", "1e200"); // so wide that its square is too large
    Script.ExpectRunTimeError(6);
    Run();
    ExpectStopped();
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
    EXPECT_FALSE(graph->isEnabled() || graph->isChecked());
    Map.Frame()->resize(Map.Frame()->size() + QSize(20, 10));
    const QImage shown = The_<PlotWidget>(Map, "picSHP")->Picture();
    Map.DrawPlainMap();
    EXPECT_EQ(shown, The_<PlotWidget>(Map, "picSHP")->Picture());
    Type(Screen, "txtSigma", "0");
    RunFields();
    EXPECT_TRUE(graph->isChecked() && CanSaveResult() && CanSaveCusum());
}

TEST_F(PolygonFaultTest, AContinuedRunBehindOneFromZero) {
    RunFields();
    Press(Screen, "optPre");
    Run();
    OpenSaved();
    Press(Dialog, "cmdOK");
    EXPECT_TRUE(CanSaveResult());
    Type(Screen, "txtSigma", "1e200");
    Script.ExpectRunTimeError(6);
    Press(Dialog, "cmdOK");
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
}

TEST_F(PolygonFaultTest, AFirstColumnPickedBehindTheLast) {
    Pick(2, 4);
    From()->SetListIndex(6); // the last one is not looked at again
    Script.ExpectRunTimeError(9);
    Run();
    ExpectStopped();
    From()->SetListIndex(3);
    To()->SetListIndex(3);
    From()->SetListIndex(4); // one behind: a run without a period
    Run();
    EXPECT_EQ(Periods()->ListCount(), 3);
    EXPECT_EQ(Periods()->ListIndex(), 1); // the row of the last period, counted from the titles
    EXPECT_EQ(Text(Screen, "lblY"), "");
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(PolygonFaultTest, AClickByMorePeriodsThanTheRunHad) {
    Pick(2, 3);
    Run();
    Pick(2, 4); // three are counted now, and the closing row is the third
    Script.ExpectRunTimeError(9);
    Key(Screen, "lstPeriod", Qt::Key_End);
    EXPECT_EQ(Periods()->ListIndex(), 4);
    EXPECT_EQ(ws.SelectedPeriod, 3);
    EXPECT_EQ(Text(Screen, "lblY"), "2"); // as before: the map comes first
    Pick(2, 2);
    Periods()->SetListIndex(3); // the second is none any more
    EXPECT_EQ(Text(Screen, "lblY"), "");
    EXPECT_FALSE(ws.bCusumMapping);
}

// The map goes on by the period that was picked last, which the shorter run does not have.
TEST_F(PolygonFaultTest, AResizeInsideAShorterRun) {
    RunFields();
    Pick(2, 2);
    Script.ExpectRunTimeError(9);
    Script.AtYield(1, [this] { Map.Frame()->resize(400, 300); });
    Run();
    EXPECT_EQ(Periods()->ListCount(), 4);
    EXPECT_EQ(Text(Screen, "lblY"), "1");
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_TRUE(ws.bCusumMapping && CanSaveResult());
}

TEST_F(PolygonFaultTest, AShapefileRemovedInsideARun) {
    const std::string path = Folder / "three.shp", hidden = Folder / "hidden.shp";
    Script.AtYield(2, [&] { std::filesystem::rename(path, hidden); });
    Script.ExpectRunTimeError(53);
    RunFields();
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(Periods()->ListCount(), 3); // the titles and the first period
    EXPECT_FALSE(CanSaveResult() || ws.bCusumMapping);

    Script.ExpectRunTimeError(53); // of the plain map; the screen is closed all the same
    Screen.Frame()->close();
    EXPECT_FALSE(Screen.IsLoaded() || Graph.IsLoaded());
    std::filesystem::rename(hidden, path);
}

// The labels of a run from columns are those of the records, one for each Region.
TEST_F(PolygonFaultTest, ATableWithFewerRowsThanShapes) {
    Open("NAME", "", 2);
    Pick(2, 4);
    Script.ExpectRunTimeError(3021);
    Run();
    ExpectStopped();
    ExpectEmptyTables(3);
}
