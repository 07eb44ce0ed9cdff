#include "frontend/screens/PolygonScreens.h"

#include "display/screens/frmGraph.h"
#include "display/screens/frmPolygonSHP.h"
#include "platform/qt/Screens.h"
#include "prospective/screens/frmUnivariate.h"
#include "retrospective/screens/frmClusterDetection.h"
#include "retrospective/screens/frmSigmaChart.h"

namespace vastrel {

void UnloadMap() {
    The<frmPolygonSHP>().Unload();
}

void DrawPlainMapNoPan() {
    The<frmPolygonSHP>().DrawPlainMapNoPan();
}

void UnloadRetroScreen() {
    The<frmClusterDetection>().Unload();
}

void ShowRetroScreen() {
    The<frmClusterDetection>().Show();
}

void TakeAlphaValues() {
    The<frmClusterDetection>().TakeAlphaValues();
}

void UnloadSigmaChart() {
    The<frmSigmaChart>().Unload();
}

void UnloadWatchScreen() {
    The<frmUnivariate>().Unload();
}

void EndWatchRun() {
    The<frmUnivariate>().BeginRun();
}

void ShowWatchScreen() {
    The<frmUnivariate>().Show();
}

void UnloadGraph() {
    The<frmGraph>().Unload();
}

} // namespace vastrel
