#pragma once

#include "core/display/PolygonView.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmGraph.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/frontend/frmSelectName.h"
#include "desktop/prospective/frmTxtFileOpen.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/OptionButton.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/ShapefileBytes.h"
#include "support/screens/ScreenTest.h"

namespace vastrel {

/// The screen of the watch on polygons, opened through the menu and the dialog of the ids. The dataset has
/// three squares; with sigma 0 nothing is smoothed, and with k = 0.5 the sums can be followed on paper:
///
///     z  A  1  1  5      sums from 0  0.5  1    5.5     from 1, 0, 4  1.5  2   6.5
///        B  6  6 -2                   5.5 11    8.5                   5.5 11   8.5
///        C -1  2  9                   0    1.5 10                     2.5  4  12.5
class PolygonWatchScreenTest : public ScreenTest {
protected:
    PolygonWatchScreenTest() { Open(); }
    ~PolygonWatchScreenTest() override { Frame.Unload(); } // while the shapefile is still there

    static constexpr const char* ShapeFilter = "SHP Files (*.shp)|*.shp|All Files (*.*)|*.*|";
    static constexpr const char* TextFilter = "Text File (*.txt)|*.txt";
    static constexpr const char* CusumFilter = "cusum files (*.csm)|*.csm";
    static constexpr int FieldCount = 7;

    /// Opens the dataset as a new one, with one id or two; fewer records leave the last squares without one.
    void Open(const char* id = "NAME", const char* id2 = "", size_t records = 3) {
        ShapefileBytes shapes(5);
        for (const double x : {0.0, 1.0, 5.0})
            shapes.Add(PolygonContents({ClockwiseSquare(x, 0, 1)}));
        const std::string path = shapes.WritePair(Folder, "three");
        std::vector<std::vector<std::string>> rows{
            {"  7", "A", "   1.0", "   1.0", "   5.0", "   0.0", "   1.0"},
            {"  8", "B", "   6.0", "   6.0", "  -2.0", "      ", "   1.0"},
            {"  9", "C", "  -1.0", "   2.0", "   9.0", "   0.0", "   1.0"}};
        rows.resize(records);
        Folder.Write("three.dbf", TableBytes({{"KEY", 'N', 3},
                                              {"NAME", 'C', 6},
                                              {"Z1", 'N', 6, 1},
                                              {"Z2", 'N', 6, 1},
                                              {"Z3", 'N', 6, 1},
                                              {"GAP", 'N', 6, 1},
                                              {"Z4", 'N', 6, 1}},
                                             rows));
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
        Command("mnuOpenShapePro");
        TakeIDs(id, id2);
    }

    void TakeIDs(const std::string& id, const std::string& id2) {
        TakeID("chkPrimaryID", "cmbName1", id);
        if (!id2.empty()) TakeID("chkSecondary", "cmbName2", id2);
        Press(Names, "cmdOK");
    }
    void TakeID(const char* box, const char* list, const std::string& column) {
        The_<QAbstractButton>(Names, box)->setChecked(true);
        PickColumn(The_<ComboBox>(Names, list), column);
    }
    void PickColumn(ComboBox* list, const std::string& column) {
        list->SetListIndex(list->findText(QString::fromStdString(column)));
    }

    ComboBox* From() { return The_<ComboBox>(Screen, "cboStartZ"); }
    ComboBox* To() { return The_<ComboBox>(Screen, "cboEndZ"); }
    void Pick(int first, int last) {
        From()->SetListIndex(first);
        To()->SetListIndex(last);
    }
    void Run() { Press(Screen, "cmdCalc"); }
    void RunFields() {
        Pick(2, 4);
        Run();
    }
    void ExpectText() {
        Script.ExpectFile(FileQuestion::Kind::Open, TextFilter,
                          Folder.Write("z.txt", "1,1,5\n6,6,-2\n-1,2,9\n"));
    }
    void OpenSaved() {
        Script.ExpectFile(FileQuestion::Kind::Open, CusumFilter,
                          Folder.Write("saved.csm", "period1,period2,\n0.25,1,\n0,0,\n3,4,\n"));
        Press(Dialog, "cmdOpen");
    }

    ListBox* Periods() { return The_<ListBox>(Screen, "lstPeriod"); }
    ListBox* Regions() { return The_<ListBox>(Screen, "lstRegion"); }
    bool CanSaveResult() { return IsEnabled(Screen, "cmdSaveResult"); }
    bool CanSaveCusum() { return IsEnabled(Screen, "cmdSaveCusum"); }

    /// The colour of the map at a place on the middle line of the squares.
    QColor ColourOf(double x) {
        const PlotPoint at = WorldToPlot(x, 0.5);
        const QImage picture = The_<PlotWidget>(Map, "picSHP")->Picture();
        return picture.pixelColor((QPointF(at.X, at.Y) * picture.devicePixelRatio()).toPoint());
    }
    static inline const QColor White{255, 255, 255}, Red{255, 0, 0}, Yellow{255, 255, 0};

    TemporaryFolder Folder;
    frmSelectName& Names = The<frmSelectName>();
    frmUnivariate& Screen = The<frmUnivariate>();
    frmTxtFileOpen& Dialog = The<frmTxtFileOpen>();
    frmPolygonSHP& Map = The<frmPolygonSHP>();
    frmGraph& Graph = The<frmGraph>();
};

} // namespace vastrel
