#include "display/screens/RegionChart.h"

#include "display/screens/frmGraph.h"
#include "display/screens/frmPolygonSHP.h"
#include "platform/qt/Screens.h"
#include "workspace/Workspace.h"

namespace vastrel {

void ShowRegionChartFor(std::int32_t region) {
    ws.SelectedRegion = region;
    The<frmGraph>().Show();
    if (The<frmPolygonSHP>().ShowRegionChart) The<frmPolygonSHP>().ShowRegionChart();
}

} // namespace vastrel
