#pragma once

#include "core/workspace/Workspace.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/TemporaryFolder.h"
#include "support/screens/ScreenChecks.h"
#include "support/screens/ScreenTest.h"

namespace vastrel {

/// The controls of the chain of files, and those of them that each of its steps enables.
namespace WatchChain {
using Names = std::vector<std::string>;

inline const std::vector<const char*> All{"cmdFileOpenIDXY", "cmdOldCusum",  "lblOldCusum",  "txtOldCusum",
                                          "cmdNewZScore",    "lblNewZ",      "txtNewZScore", "cmdRun",
                                          "cmdSaveCusum",    "cmdSaveResult"};
inline const Names OldCusum{"cmdOldCusum", "lblOldCusum", "txtOldCusum"};
// What stands beside the button of the saved table is not disabled at load, as the button itself is.
inline const Names AtLoad{"cmdFileOpenIDXY", "lblOldCusum", "txtOldCusum"};
inline const Names NewZ{"cmdNewZScore", "lblNewZ", "txtNewZScore"};

inline Names operator+(Names left, const Names& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}
} // namespace WatchChain

/// The screen of the watch on points, opened through the menu. The small dataset has three Regions and four
/// periods; with sigma 0 nothing is smoothed, and with k = 0.5 the sums can be followed on paper:
///
///     z  A  1.5  2.0  0.0  3.0      sums from 0   1.0  2.5  2.0  4.5
///        B  0.5  0.5  0.5  0.5                    0    0    0    0
///        C -1.0  4.0 -4.0  0.75                   0    3.5  0    0.25
///
/// Saved sums of two periods, 0.5 1 / 0 0 / 3 2, continue to
///
///        A  2.0  3.5  3.0  5.5
///        B  0    0    0    0
///        C  0.5  4.0  0    0.25
class WatchScreenTest : public ScreenTest {
protected:
    WatchScreenTest() { Command("mnuOpenTextPro"); }

    static constexpr const char* OpenFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";
    static constexpr const char* ReportFilter = "Text File (*.txt)|*.txt";
    static constexpr const char* CusumFilter = "cusum files (*.csm)|*.csm";

    std::string IDs() { return Folder.Write("ids.txt", "A,0,0\nB,4,0\nC,0,3\n"); }
    std::string Z() { return Folder.Write("z.txt", "1.5,2,0,3\n0.5,0.5,0.5,0.5\n-1,4,-4,0.75\n"); }
    std::string Saved() { return Folder.Write("saved.txt", "0.5,1\n0,0\n3,2\n"); }

    void Load(const char* button, const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        Press(Screen, button);
    }
    void LoadForStart() {
        Load("cmdFileOpenIDXY", IDs());
        Load("cmdNewZScore", Z());
        Type(Screen, "txtHvalue", "2.2");
    }
    void LoadForContinuation() {
        Press(Screen, "optPre");
        Load("cmdFileOpenIDXY", IDs());
        Load("cmdOldCusum", Saved());
        Load("cmdNewZScore", Z());
        Type(Screen, "txtHvalue", "2.2");
    }
    void Run() { Press(Screen, "cmdRun"); }

    ListBox* Periods() { return The_<ListBox>(Screen, "lstPeriod"); }
    ListBox* Regions() { return The_<ListBox>(Screen, "lstRegion"); }
    std::string Caption() { return Text(Screen, "lblY"); }
    QImage Map() { return The_<PlotWidget>(Screen, "picPoint")->Picture(); }
    void ExpectChain(const WatchChain::Names& enabled) { ExpectEnabled(Screen, WatchChain::All, enabled); }

    TemporaryFolder Folder;
    frmUnivariateCusumTextfile& Screen = The<frmUnivariateCusumTextfile>();
};

} // namespace vastrel
