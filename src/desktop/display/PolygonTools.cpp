#include "desktop/display/PolygonTools.h"

#include "core/display/HitTest.h"
#include "core/display/Pan.h"
#include "core/display/PolygonMap.h"
#include "core/display/PolygonPainter.h"
#include "core/display/PolygonView.h"
#include "core/platform/Platform.h"
#include "core/retrospective/RetroRules.h"
#include "desktop/display/RegionChart.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/spatial/frmInfo.h"
#include "desktop/toolkit/Screens.h"

namespace vastrel {

namespace {

constexpr long IdentifyWait = 2501; // counts from 0 to 2500
constexpr long GraphWait = 50001;   // counts from 0 to 50000
constexpr int Flashes = 3;

bool HasView() {
    return ws.PolygonView.MapScaleX != 0 && ws.PolygonView.MapScaleY != 0;
}

/// Highlights the selected Region and waits, three times. False where the window is gone, or plays another
/// command, after a wait.
template <typename AfterWait>
bool Flash(frmPolygonSHP& window, long yields, AfterWait afterWait) {
    const int run = window.Generation();
    for (int i = 0; i < Flashes; ++i) {
        DrawHighlight(window.Map().picSHP, ws.SelectedRegion);
        platform().Yield(yields);
        if (run != window.Generation()) return false;
        afterWait();
    }
    return true;
}

void Identify(frmPolygonSHP& window, double x, double y) {
    ClearPrint(window.Map());
    DrawPlainMap(window.Map().picSHP);
    HitTestRegion(x, y);
    auto& info = The<frmInfo>();
    info.Show();
    info.FillInfoList(ws.SelectedRegion);
    if (!Flash(window, IdentifyWait, [] {})) return;
    ClearPrint(window.Map());
    RedrawByMode(window.Map());
    if (info.IsLoaded()) info.Show();
}

void Find(frmPolygonSHP& window, double x, double y) {
    HitTestRegion(x, y);
    window.Test.PickLocalRow(ws.SelectedRegion + PolygonRules().FirstRegionRow);
    DrawHighlight(window.Map().picSHP, ws.SelectedRegion);
    window.EnableButton("Find", true);
    window.PressTool("Find", true);
}

void Graph(frmPolygonSHP& window, double x, double y) {
    const PolygonMap map = window.Map();
    DrawPlainMap(map.picSHP);
    HitTestRegion(x, y);
    ShowRegionChartFor(ws.SelectedRegion);
    Flash(window, GraphWait, [&map] { DrawPlainMap(map.picSHP); });
}

void PressPanAndRedraw(frmPolygonSHP& window, double x, double y) {
    PressPan(ws.PolygonView, x, y);
    RedrawByMode(window.Map());
}

struct Tool {
    const char* Key;
    void (*Press)(frmPolygonSHP& window, double x, double y);
};

/// In the order in which they are looked at; the first that is down acts.
constexpr Tool Tools[] = {
    {"ID", Identify},
    {"Find", Find},
    {"Graph", Graph},
    {"ZoomIn", [](frmPolygonSHP& window, double, double) { ZoomIn(window.Map()); }},
    {"ZoomOut", [](frmPolygonSHP& window, double, double) { ZoomOut(window.Map()); }},
    {"Pan", PressPanAndRedraw},
};

} // namespace

void PressOnPolygons(frmPolygonSHP& window, double x, double y) {
    for (const Tool& tool : Tools)
        if (window.IsToolPressed(tool.Key)) return tool.Press(window, x, y);
}

void MoveOnPolygons(frmPolygonSHP& window, double x, double y) {
    if (window.IsToolPressed("Pan") && ws.PolygonView.bPanning) {
        MovePan(ws.PolygonView, x, y);
        DrawPlainMap(window.Map().picSHP);
    }
    if (HasView()) screens().ShowStatus(StatusText(x, y));
}

void ReleaseOnPolygons(frmPolygonSHP& window, double x, double y) {
    if (window.IsToolPressed("Pan")) PressPanAndRedraw(window, x, y);
    ReleasePan(ws.PolygonView);
}

void DoubleClickOnPolygons() {
    DropPanOffset(ws.PolygonView);
}

} // namespace vastrel
