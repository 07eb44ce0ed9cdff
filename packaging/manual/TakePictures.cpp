#include "Desk.h"

#include "core/display/PolygonView.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmGraph.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/export/frmExportDataset.h"
#include "desktop/frontend/frmParameter.h"
#include "desktop/frontend/frmSelectName.h"
#include "desktop/prospective/frmCusumTools.h"
#include "desktop/prospective/frmTxtFileOpen.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmCalculatePValue.h"
#include "desktop/retrospective/frmClusterDetection.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSelectDataFormat.h"
#include "desktop/spatial/frmAttTable.h"
#include "desktop/spatial/frmInfo.h"
#include "desktop/toolkit/Screens.h"

#include <QApplication>
#include <QStyleFactory>

#include <cstdlib>
#include <iostream>

using namespace vastrel;

namespace {

/// Where a region of the open shapefile stands on the map.
QPoint OnMap(int region) {
    const RegionPoint& centroid = ws.RegionCentroid(region);
    const PlotPoint at = WorldToPlot(centroid.X, centroid.Y);
    return {at.X, at.Y};
}

constexpr int H0512 = 37; // the middle of the planted cluster, by its line in the samples

void RetrospectivePoints(Desk& desk) {
    auto& screen = The<frmClusterDetectionTextfile>();
    desk.Command("mnuOpenTextRetro");
    desk.Press(screen, "cmdLoadData");
    auto& format = The<frmSelectDataFormat>();
    desk.Press(format, "optPopCase");
    desk.Keep(*format.Frame(), "data-type");
    desk.Answer("country_pop.txt");
    desk.Press(format, "cmdContinue");

    desk.Press(screen, "optStandard");
    desk.Type(screen, "txtSingleSigma", "1");
    desk.Press(screen, "cmdRun");
    desk.Row(screen, "lstLocalPatternSummary", "H0412");
    desk.Keep(desk.Frame(), "retrospective-points");

    desk.Press(screen, "optAdjusted_Generic");
    desk.Press(screen, "optSpatialSigmaRange");
    desk.Press(screen, "cmdRun");
    desk.Row(screen, "lstGlobalPatternSummary", " 1.00");
    desk.Keep(*screen.Frame(), "retrospective-points-range");
    screen.Unload();
}

void ProspectivePoints(Desk& desk) {
    auto& screen = The<frmUnivariateCusumTextfile>();
    desk.Command("mnuOpenTextPro");
    desk.Answer("watch_xy.txt");
    desk.Press(screen, "cmdFileOpenIDXY");
    desk.Answer("watch_z.txt");
    desk.Press(screen, "cmdNewZScore");
    desk.Press(screen, "cmdRun");
    desk.Row(screen, "lstPeriod", "   21  ");
    desk.Row(screen, "lstRegion", "H0311");
    desk.Keep(*screen.Frame(), "prospective-points");

    desk.Press(screen, "optMeasureDistance");
    desk.Drag(screen, "picPoint", {222, 169}, {222, 128});
    desk.Keep(screen, "select-circle", desk.Part(screen, "fraMap"));
    screen.Unload();
}

void RetrospectivePolygons(Desk& desk) {
    auto& screen = The<frmClusterDetection>();
    auto& map = The<frmPolygonSHP>();
    desk.Answer("country.shp");
    desk.InDialog(The<frmParameter>(), [&] {
        auto& columns = The<frmParameter>();
        desk.Pick(columns, "cboBasePopulation", "POP");
        desk.Pick(columns, "cboCase", "CASES");
        desk.Pick(columns, "cboPrimaryID", "NAME");
        desk.Keep(columns, "data-input");
        desk.Press(columns, "cmdOK");
    });
    desk.Command("mnuOpenShapeRetro");
    desk.Press(screen, "optStandard");
    desk.Type(screen, "txtSingleSigma", "1");
    desk.Press(screen, "cmdRun");
    desk.Keep(desk.Frame(), "retrospective-polygons");

    desk.Click(map, "picSHP", OnMap(H0512));
    desk.Keep(*map.Frame(), "map-find");
    desk.Press(map, "Centroid");
    desk.Keep(*map.Frame(), "map-centroids");
    desk.Press(map, "ID");
    desk.Click(map, "picSHP", OnMap(H0512));
    desk.Keep(The<frmInfo>(), "attribute-info");
    The<frmInfo>().Unload();

    desk.Press(screen, "optSpatialSigmaRange");
    desk.Press(screen, "cmdRun");
    desk.Press(map, "MapAnimation");
    desk.Keep(desk.Frame(), "retrospective-polygons-range");

    desk.Command("mnuAttTable");
    desk.Keep(*The<frmAttTable>().Frame(), "attribute-table");
    The<frmAttTable>().Unload();

    auto& exported = The<frmExportDataset>();
    desk.Command("mnuExport");
    desk.Press(exported, "optGeneric");
    desk.Pick(exported, "cboObsFrom", "OBS01");
    desk.Pick(exported, "cboObsTo", "OBS24");
    desk.Pick(exported, "cboExpFrom", "EXP01");
    desk.Pick(exported, "cboExpTo", "EXP24");
    desk.Keep(*exported.Frame(), "export");
    exported.Unload();
    desk.Press(screen, "cmdExit");
}

void ProspectivePolygons(Desk& desk) {
    auto& screen = The<frmUnivariate>();
    auto& map = The<frmPolygonSHP>();
    auto& names = The<frmSelectName>();
    desk.Answer("country.shp");
    desk.Command("mnuOpenShapePro");
    desk.Pick(names, "cmbName1", "NAME");
    desk.Keep(*names.Frame(), "select-name");
    desk.Press(names, "cmdOK");
    desk.Press(screen, "optExistingTextfile");
    desk.Answer("watch_z.txt");
    desk.Press(screen, "cmdCalc");
    desk.Row(screen, "lstPeriod", "   21  ");
    desk.Keep(desk.Frame(), "prospective-polygons");
    desk.Click(map, "picSHP", OnMap(H0512));
    desk.Keep(*The<frmGraph>().Frame(), "graph");

    desk.Press(screen, "optPre");
    desk.Press(screen, "cmdCalc");
    auto& saved = The<frmTxtFileOpen>();
    desk.Answer("watch_previous.csm");
    desk.Press(saved, "cmdOpen");
    desk.Press(saved, "optPreviousCurrent");
    desk.Keep(*saved.Frame(), "open-cusum-file");
    saved.Unload();
    screen.Unload();
    map.Unload();
}

void Calculators(Desk& desk) {
    auto& pValue = The<frmCalculatePValue>();
    desk.Command("mnuGetPValue");
    desk.Type(pValue, "txtInputNormalZScore", "1.96");
    desk.Press(pValue, "cmdCalculate");
    desk.Keep(*pValue.Frame(), "p-value");
    pValue.Unload();

    auto& hValue = The<frmCusumTools>();
    desk.Command("mnuCusumTool");
    desk.Type(hValue, "txtARL0", "100");
    desk.Type(hValue, "txtNumRegion", "207");
    for (const char* option :
         {"optOverallRegion", "optBonferroniCorrection", "optAdjustForLocalStatistics"}) {
        desk.Press(hValue, option);
        desk.Press(hValue, "cmdGetResult");
    }
    desk.Keep(*hValue.Frame(), "h-value");
    hValue.Unload();
}

void Trouble(Desk& desk) {
    auto& screen = The<frmUnivariateCusumTextfile>();
    desk.Command("mnuOpenTextPro");
    desk.Press(screen, "optPre");
    desk.Answer("watch_xy.txt");
    desk.Press(screen, "cmdFileOpenIDXY");
    desk.Answer("watch_previous.csm");
    desk.AwaitMessage("run-time-error");
    desk.Press(screen, "cmdOldCusum");
    screen.Unload();
}

} // namespace

/// Takes the pictures of the user guide from the running screens:
///
///     vastrel-pictures PROJECT PICTURES
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 3) {
        std::cerr << "usage: vastrel-pictures PROJECT PICTURES\n";
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setApplicationName("Vastrel");
    QApplication::setQuitOnLastWindowClosed(false);

    Desk desk(argv[1], "/tmp/samples", argv[2]);
    for (const auto take : {RetrospectivePoints, ProspectivePoints, RetrospectivePolygons,
                            ProspectivePolygons, Calculators, Trouble})
        take(desk);
    desk.EndProcess(EXIT_SUCCESS); // with its screens, as the program ends
}
