#include "desktop/display/RegionChart.h"

#include "core/workspace/Workspace.h"
#include "desktop/display/frmGraph.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/toolkit/Screens.h"

namespace vastrel {

void ShowRegionChartFor(std::int32_t region) {
    ws.SelectedRegion = region;
    The<frmGraph>().Show();
    if (The<frmPolygonSHP>().ShowRegionChart) The<frmPolygonSHP>().ShowRegionChart();
}

} // namespace vastrel
