#include "desktop/frontend/PolygonScreens.h"

#include "desktop/display/frmGraph.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/retrospective/frmClusterDetection.h"
#include "desktop/retrospective/frmSigmaChart.h"
#include "desktop/toolkit/Screens.h"

#include <utility>

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

void UseForDataReset(std::function<void()> showDataInput) {
    The<frmClusterDetection>().ShowDataInput = std::move(showDataInput);
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
