#include "desktop/export/frmExportDataset.h"

#include "core/workspace/Workspace.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/BatchProgram.h"
#include "support/screens/FullDisk.h"
#include "support/screens/PolygonScreenTest.h"
#include "support/screens/ScreenChecks.h"

#include <filesystem>

using namespace vastrel;

namespace {

constexpr const char* SaveFilter = "Text File (*.txt)|*.txt";
constexpr const char* NotSelected = "Data was not properly selected";
const std::vector<const char*> Lists = {"cboObsFrom", "cboObsTo", "cboExpFrom", "cboExpTo"};

class ExportScreen : public PolygonScreenTest {
protected:
    ExportScreen() {
        OpenPro(WriteDataset(Folder, "counts",
                             {{"KEY", 'C', 4},
                              {"O1", 'N', 4},
                              {"O2", 'N', 4},
                              {"E1", 'N', 4},
                              {"E2", 'N', 4},
                              {"MINUS", 'N', 4}},
                             {{"a", "9", "0", "4", "1", "1"}, {"b", "4", "3", "4", "4", "-1"}}));
        SelectName.Unload();
        Command("mnuExport");
    }

    void Choose(const std::string& obsFrom, const std::string& obsTo, const std::string& expFrom,
                const std::string& expTo) {
        Pick(Screen, "cboObsFrom", obsFrom);
        Pick(Screen, "cboObsTo", obsTo);
        Pick(Screen, "cboExpFrom", expFrom);
        Pick(Screen, "cboExpTo", expTo);
    }
    void ExportTo(const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Save, SaveFilter, path);
        Press(Screen, "cmdExport");
    }
    void Refused(const char* message) {
        Script.ExpectMessage(message);
        Press(Screen, "cmdExport");
        EXPECT_TRUE(Screen.IsLoaded());
    }

    frmExportDataset& Screen = The<frmExportDataset>();
};

} // namespace

TEST_F(ExportScreen, StandsAsDesigned) {
    ExpectCaptions(Screen, {{"frmExportDataset", "Export Dataset"},
                            {"fraOption", "Z-value option"},
                            {"optGeneric", "Poisson"},
                            {"optStandard", "Standard"},
                            {"optRossi", "Rossi"},
                            {"fraObs", "Obs"},
                            {"lblObsFrom", "Start"},
                            {"lblObsTo", "End"},
                            {"fraExp", "Exp"},
                            {"lblExpFrom", "Start"},
                            {"lblExpTo", "End"},
                            {"fraSigma", "Sigma"},
                            {"txtSigma", "0"},
                            {"fraExport", "Export dataset"},
                            {"cmdExport", "&Export"}});
    for (const char* option : {"optGeneric", "optStandard", "optRossi"})
        EXPECT_FALSE(The_<OptionButton>(Screen, option)->Value());
    for (const char* list : Lists)
        EXPECT_EQ(Entries(Screen, list), (Names{"KEY", "O1", "O2", "E1", "E2", "MINUS"}));
    ExpectEnabled(Screen, Lists, {"cboObsFrom"});
    ExpectAccessibleNames(Screen);
    const QSize rest = screens().FrameSize() - Screen.Frame()->size();
    EXPECT_EQ(Screen.Frame()->pos(), QPoint(rest.width() / 2, rest.height() / 2));
    Shot(Screen, "export");
}

TEST_F(ExportScreen, EnablesOneListAfterTheOther) {
    Pick(Screen, "cboObsFrom", "O1");
    ExpectEnabled(Screen, Lists, {"cboObsFrom", "cboObsTo"});
    Pick(Screen, "cboObsTo", "O2");
    ExpectEnabled(Screen, Lists, {"cboObsFrom", "cboObsTo", "cboExpFrom"});
    Pick(Screen, "cboExpFrom", "E1");
    ExpectEnabled(Screen, Lists, {"cboObsFrom", "cboObsTo", "cboExpFrom", "cboExpTo"});
    Pick(Screen, "cboExpTo", "E2");
    Press(Screen, "optRossi");
    Shot(Screen, "export-chosen");
}

TEST_F(ExportScreen, EmptiesAListThatIsRefused) {
    Script.ExpectMessage("Data should be numerical values!");
    Pick(Screen, "cboObsFrom", "KEY");
    EXPECT_EQ(Shown(Screen, "cboObsFrom"), "");
    ExpectEnabled(Screen, Lists, {"cboObsFrom"});
    Script.ExpectMessage("Data include invalid values. Check data and try again!");
    Pick(Screen, "cboObsFrom", "MINUS");
    EXPECT_EQ(Shown(Screen, "cboObsFrom"), "");
    EXPECT_EQ(ws.ObsFromIndex, 5); // stored all the same

    Pick(Screen, "cboObsFrom", "O2");
    Script.ExpectMessage("Start and end priods were not set improperly!");
    Pick(Screen, "cboObsTo", "O1");
    EXPECT_EQ(Shown(Screen, "cboObsTo"), "");
    ExpectEnabled(Screen, Lists, {"cboObsFrom", "cboObsTo"});
    Pick(Screen, "cboObsTo", "O2");
    Pick(Screen, "cboExpFrom", "E1");
    Script.ExpectMessage("Periods for Obs and Exp are not identical. ");
    Pick(Screen, "cboExpTo", "E2");
    EXPECT_EQ(Shown(Screen, "cboExpTo"), "");
    Press(Screen, "optGeneric");
    Refused(NotSelected); // the number is stored, the text is what counts
}

// By hand for sigma 0: (9 - 4) / 2, (0 - 1) / 1; 0, (3 - 4) / 2.
TEST_F(ExportScreen, WritesTheDeviationsForABandwidthOfZero) {
    Choose("O1", "O2", "E1", "E2");
    Press(Screen, "optGeneric");
    ExportTo(Folder / "z.txt");
    EXPECT_EQ(ReadFile(Folder / "z.txt"), "2.5000,-1.0000\n0.0000,-0.5000\n");
    EXPECT_EQ(ws.ExportSigma, 1e-9);
    EXPECT_TRUE(Screen.isVisible());
    EXPECT_EQ(Text(Screen, "txtSigma"), "0");
    EXPECT_EQ(Shown(Screen, "cboExpTo"), "E2"); // nothing is reset
    Type(Screen, "txtSigma", "-1");
    ExportTo(Folder / "z.txt"); // replaced
    EXPECT_NE(ReadFile(Folder / "z.txt"), "2.5000,-1.0000\n0.0000,-0.5000\n");
    EXPECT_EQ(ws.ExportSigma, -1); // read anew
}

TEST_F(ExportScreen, RefusesWhatIsMissing) {
    Refused(NotSelected);
    Choose("O1", "O1", "E1", "E1");
    for (const char* text : {"", "x", "1,5"}) {
        Type(Screen, "txtSigma", text);
        Refused("Bandwidth should be numeric.");
    }
    EXPECT_FALSE(ws.ExportTable.IsAllocated());
    Type(Screen, "txtSigma", "1");
    Press(Screen, "cmdExport"); // no option: nothing, and no message
    EXPECT_EQ(ws.ExportTable.UpperBound2(), 1);
    EXPECT_FALSE(ws.ExportWeights.IsAllocated());
}

// First the columns, then the bandwidth, then the option, then the computing, and the dialog at the end.
TEST_F(ExportScreen, AsksForOneThingAfterTheOther) {
    Type(Screen, "txtSigma", "x");
    Refused(NotSelected);
    Choose("O1", "O1", "O2", "O2");
    ws.ExportSigma = 7;
    Refused("Bandwidth should be numeric.");
    EXPECT_EQ(ws.ExportSigma, 7);
    EXPECT_FALSE(ws.ExportTable.IsAllocated());
    Type(Screen, "txtSigma", "2");
    Press(Screen, "cmdExport"); // no option
    EXPECT_EQ(ws.ExportSigma, 2);
    Press(Screen, "optGeneric");
    Script.ExpectRunTimeError(11); // an expected count of 0: no file is asked for
    Press(Screen, "cmdExport");
}

TEST_F(ExportScreen, LosesTheTableWithACancel) {
    Choose("O1", "O1", "E1", "E1");
    Press(Screen, "optStandard");
    ExportTo("");
    EXPECT_TRUE(ws.ExportWeights.IsAllocated()); // computed by then
    EXPECT_TRUE(Screen.IsLoaded());
}

TEST_F(ExportScreen, StopsAtAnExpectedCountOfZero) {
    Choose("O1", "O1", "O2", "O2");
    Press(Screen, "optRossi");
    Script.ExpectRunTimeError(11);
    Press(Screen, "cmdExport");
    EXPECT_EQ(ws.ExportZ(1), 0);
    EXPECT_TRUE(Screen.IsLoaded());
}

// The input is dropped before the file dialog stands, and by a fault too.
TEST_F(ExportScreen, TakesNoInputWhileItComputes) {
    const int before = Script.DroppedInputs();
    Choose("O1", "O2", "E1", "E2");
    Press(Screen, "optGeneric");
    ExportTo("");
    EXPECT_EQ(Script.DroppedInputs(), before + 1);
    Choose("O1", "O1", "O2", "O2"); // with an expected count of 0
    Script.ExpectRunTimeError(11);
    Press(Screen, "cmdExport");
    EXPECT_EQ(Script.DroppedInputs(), before + 2);
}

TEST_F(ExportScreen, LeavesTheOldFileOnAFullDisk) {
    Choose("O1", "O1", "E1", "E1");
    Press(Screen, "optGeneric");
    ExpectOldFileOnAFullDisk(Script, SaveFilter, ".txt", DiskFullError,
                             [this] { Press(Screen, "cmdExport"); });
    EXPECT_TRUE(Screen.IsLoaded());
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(ExportScreen, StopsWhereTheFileCannotBeWritten) {
    Choose("O1", "O1", "E1", "E1");
    Press(Screen, "optGeneric");
    std::filesystem::create_directory(Folder / "taken");
    Script.ExpectFile(FileQuestion::Kind::Save, SaveFilter, Folder / "taken");
    Script.ExpectRunTimeError(75);
    Press(Screen, "cmdExport");
    EXPECT_TRUE(Screen.IsLoaded());
}

TEST_F(ExportScreen, KeepsWhatWasChosenUntilItIsClosed) {
    Choose("O1", "O2", "E1", "E2");
    Command("mnuExport");
    EXPECT_EQ(Shown(Screen, "cboExpTo"), "E2");
    Screen.Frame()->close();
    Command("mnuExport");
    EXPECT_EQ(Shown(Screen, "cboObsFrom"), "");
    ExpectEnabled(Screen, Lists, {"cboObsFrom"});
    EXPECT_EQ(Entries(Screen, "cboObsTo").size(), 6u);
}

TEST_F(ExportScreen, WritesWhatTheBatchProgramWrites) {
    const std::string path = CopyOfRealShapefile(Folder, "imd_de/imd_de");
    if (path.empty()) GTEST_SKIP() << "no real data";
    Screen.Unload();
    OpenPro(path);
    Command("mnuExport");
    Choose("IMD", "IMD", "EXPECTED", "EXPECTED");
    Press(Screen, "optRossi");
    Type(Screen, "txtSigma", "1");
    ExportTo(Folder / "screen.txt");
    EXPECT_EQ(RunBatch({"export", path, "--obs", "IMD", "IMD", "--exp", "EXPECTED", "EXPECTED", "--option",
                        "rossi", "--sigma", "1", "--out", Folder / "batch.txt"}),
              (BatchResult{0, "", ""}));
    EXPECT_EQ(ReadFile(Folder / "screen.txt"), ReadFile(Folder / "batch.txt"));
    Shot(Frame, "export-imd");
}
