#include "desktop/prospective/PolygonWatchScreen.h"
#include "support/screens/FullDisk.h"
#include "support/screens/ScreenChecks.h"

#include <filesystem>

using namespace vastrel;

namespace {

/// The report and the cusums that the screen of a watch on polygons saves.
using PolygonWatchFiles = PolygonWatchScreenTest;

} // namespace

TEST_F(PolygonWatchFiles, SavesItsFiles) {
    RunFields();
    Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, "");
    Press(Screen, "cmdSaveResult"); // a cancel ends it
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, "");
    Press(Screen, "cmdSaveCusum");
    EXPECT_TRUE(CanSaveResult() && CanSaveCusum());
    Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, Folder / "r.txt");
    Press(Screen, "cmdSaveResult");
    EXPECT_FALSE(CanSaveResult());
    EXPECT_TRUE(CanSaveCusum());
    EXPECT_NE(ReadFile(Folder / "r.txt").find("C,  0.0000,  1.5000, 10.0000, "), std::string::npos);
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "c.csm");
    Press(Screen, "cmdSaveCusum");
    EXPECT_EQ(ReadFile(Folder / "c.csm"), "period1,period2,period3,\n0.5,1,5.5,\n5.5,11,8.5,\n0,1.5,10,\n");
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
}

TEST_F(PolygonWatchFiles, TellsOfAReportWithoutAName) {
    RunFields();
    Script.SetBusyPointer(true);
    Script.ExpectNoName(FileQuestion::Kind::Save, TextFilter);
    Script.ExpectMessage("You didn't specify data file.");
    Press(Screen, "cmdSaveResult");
    EXPECT_FALSE(CanSaveResult() || Script.BusyPointer());
    EXPECT_TRUE(CanSaveCusum());
}

TEST_F(PolygonWatchFiles, TakesNoInputWhileItSaves) {
    RunFields();
    const int before = Script.DroppedInputs();
    Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, Folder / "r.txt");
    Press(Screen, "cmdSaveResult");
    EXPECT_EQ(Script.DroppedInputs(), before + 1);
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "c.csm");
    Press(Screen, "cmdSaveCusum");
    EXPECT_EQ(Script.DroppedInputs(), before + 2);
}

TEST_F(PolygonWatchFiles, PassesOverAFaultWhileItWritesTheCusums) {
    RunFields();
    std::filesystem::create_directory(Folder / "c.csm");
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "c.csm");
    Press(Screen, "cmdSaveCusum");
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
}

TEST_F(PolygonWatchFiles, LeavesTheOldFilesOnAFullDisk) {
    RunFields();
    ExpectOldFileOnAFullDisk(Script, TextFilter, ".txt", DiskFullError,
                             [this] { Press(Screen, "cmdSaveResult"); });
    ExpectOldFileOnAFullDisk(Script, CusumFilter, ".csm", PassedOver,
                             [this] { Press(Screen, "cmdSaveCusum"); });
}

TEST_F(PolygonWatchFiles, WritesEmptyLinesBeforeAnyRun) {
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "c.csm");
    Press(Screen, "cmdSaveCusum");
    EXPECT_EQ(ReadFile(Folder / "c.csm"), "\n\n\n\n"); // the header and a line for each record
}
