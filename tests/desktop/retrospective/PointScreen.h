#pragma once

#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSelectDataFormat.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/TemporaryFolder.h"
#include "support/screens/ScreenTest.h"

namespace vastrel {

/// The point screen, opened through the menu, with its dialog for the data.
class PointScreenTest : public ScreenTest {
protected:
    PointScreenTest() { Command("mnuOpenTextRetro"); }
    ~PointScreenTest() override { Dialog.Unload(); }

    static constexpr const char* OpenFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";
    static constexpr const char* SaveFilter = "Text File (*.txt)|*.txt";

    void Load(const std::string& path, const char* format = "optPopCase") {
        Press(Screen, "cmdLoadData");
        Press(Dialog, format);
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        Press(Dialog, "cmdContinue");
    }

    /// Four points at the corners of a rectangle: observed 20, expected 20.
    void LoadFour() {
        Load(Folder.Write("four.txt", "A,0,0,4,5\nB,4,0,9,6\nC,0,3,2,4\nD,4,3,5,5\n"), "optObsExp");
    }

    void RunSingle(const std::string& sigma) {
        Press(Screen, "optSpatialSingleSigma");
        Type(Screen, "txtSingleSigma", sigma);
        Press(Screen, "cmdRun");
    }
    void RunRange(const std::string& from, const std::string& to, const std::string& step) {
        Press(Screen, "optSpatialSigmaRange");
        Type(Screen, "txtFromSigma", from);
        Type(Screen, "txtToSigma", to);
        Type(Screen, "txtStep", step);
        Press(Screen, "cmdRun");
    }
    void Save(const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Save, SaveFilter, path);
        Press(Screen, "cmdSave");
    }

    ListBox* Global() { return The_<ListBox>(Screen, "lstGlobalPatternSummary"); }
    ListBox* Local() { return The_<ListBox>(Screen, "lstLocalPatternSummary"); }

    QImage Map() { return The_<PlotWidget>(Screen, "picPoint")->Picture(); }

    /// The two buttons of the state table: the run's and the save's.
    using Enabled = std::pair<bool, bool>;
    Enabled Buttons() { return {IsEnabled(Screen, "cmdRun"), IsEnabled(Screen, "cmdSave")}; }
    int ChartPartsShown() {
        int shown = 0;
        for (const char* part : {"MSChart1", "picEachRegionInfo", "picMLegend", "txtXTitle"})
            shown += IsShown(Screen, part) ? 1 : 0;
        return shown;
    }

    TemporaryFolder Folder;
    frmClusterDetectionTextfile& Screen = The<frmClusterDetectionTextfile>();
    frmSelectDataFormat& Dialog = The<frmSelectDataFormat>();
};

} // namespace vastrel
