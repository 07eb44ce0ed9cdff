#include "desktop/display/frmGraph.h"

#include "core/display/PlotSurface.h"
#include "core/prospective/CusumChart.h"
#include "core/workspace/Workspace.h"
#include "ui_frmGraph.h"

namespace vastrel {

frmGraph::frmGraph() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmGraph>()) {
    ui_->setupUi(this);
    ui_->MSChart1->SetSeriesNames(CusumSeriesCaption, ThresholdSeriesCaption);
    ui_->MSChart1->SetTitleBeside(PeriodAxisTitle);
    TakeDesign();
}

frmGraph::~frmGraph() = default;

void frmGraph::Form_Load() {
    constexpr double width = 8025, height = 4910, top = 5055; // just below the map
    Frame()->resize(static_cast<int>(width / LayoutUnit), static_cast<int>(height / LayoutUnit));
    Frame()->move(0, static_cast<int>(top / LayoutUnit));
}

void frmGraph::Fill(const std::string& text) {
    Load();
    ui_->MSChart1->SetRows(ws.CusumChartData, ws.CusumChartLabels);
    ui_->Text1->setText(QString::fromStdString(text));
}

} // namespace vastrel
