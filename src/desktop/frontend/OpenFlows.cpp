#include "desktop/frontend/OpenFlows.h"

#include "core/display/MapZoom.h"
#include "core/platform/Computation.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"
#include "desktop/frontend/MDIFrmMain.h"
#include "desktop/frontend/PolygonScreens.h"
#include "desktop/frontend/frmParameter.h"
#include "desktop/frontend/frmSelectName.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/spatial/frmAttTable.h"
#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/Screens.h"

namespace vastrel {

namespace {

bool ChooseShapefile() {
    ws.MapZoom = PolygonMapZoom.Start;
    const Computation reading; // from the answer to the file dialog on
    if (!OpenShapeAttributes()) return false;
    The<frmAttTable>().TakeTable();
    return true;
}

void TakeShapes() {
    const Computation reading;
    ReadShapeHeader();
    LoadShapes();
    ws.ShapeFileTitleSaved = ws.ShapeFileTitle;
    screens().ShowDataset(ws.ShapeFilePath, ws.NumRegion, "regions");
}

/// A column dialog that stands from a reset of the data has the lists of the old table, and is filled anew.
/// Its unload step does nothing where its lists are empty.
void EmptyColumnDialog() {
    for (auto* list : The<frmParameter>().findChildren<ComboBox*>())
        list->Clear();
    The<frmParameter>().Unload();
}

void ComputePlaces() {
    const Computation places;
    ComputeShapeAreas();
    ComputeCentroids();
}

void MarkShapefileData() {
    ws.bRetroMapping = false;
    ws.bCusumMapping = false;
    ws.bShapefileData = true;
    ws.bTextfileData = false;
}

} // namespace

void OpenShapeRetro(MDIFrmMain& frame) {
    // The screen of the test itself stays, other than in the prospective flow.
    The<frmClusterDetectionTextfile>().Unload();
    The<frmUnivariateCusumTextfile>().Unload();
    UnloadWatchScreen();
    UnloadGraph();
    UnloadSigmaChart();
    UnloadMap();
    if (!ChooseShapefile()) return;
    TakeShapes();
    EmptyColumnDialog();
    The<frmParameter>().ShowModal();
    ComputePlaces();
    DrawPlainMapNoPan();
    frame.EnableShapeEntries();
    MarkShapefileData();
}

void OpenShapePro(MDIFrmMain& frame) {
    // The screen of the test itself stays here too; what it plays belongs to the map that goes.
    EndWatchRun();
    UnloadRetroScreen();
    The<frmClusterDetectionTextfile>().Unload();
    The<frmUnivariateCusumTextfile>().Unload();
    UnloadGraph();
    UnloadSigmaChart();
    UnloadMap();
    if (!ChooseShapefile()) return;
    MarkShapefileData(); // before the load, other than in the retrospective flow
    TakeShapes();
    ComputePlaces();
    DrawPlainMapNoPan();
    The<frmSelectName>().Show();
    frame.EnableShapeEntries();
}

} // namespace vastrel
