#include "desktop/retrospective/frmSigmaChart.h"

#include "core/display/PlotSurface.h"
#include "core/retrospective/Sweep.h"
#include "core/workspace/Workspace.h"
#include "ui_frmSigmaChart.h"

namespace vastrel {

frmSigmaChart::frmSigmaChart() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmSigmaChart>()) {
    ui_->setupUi(this);
    ui_->Line1->setText("<span style='color:#008000'>&#9473;&#9473;</span>");
    ui_->Line2->setText("<span style='color:#d20000'>&#9473; &#9473;</span>");
    TakeDesign();
}

frmSigmaChart::~frmSigmaChart() = default;

void frmSigmaChart::Form_Load() {
    constexpr double top = 5055; // just below the map
    Frame()->move(0, static_cast<int>(top / LayoutUnit));
    ui_->txtTitle->setEnabled(false);
}

void frmSigmaChart::ShowSweep(RetroVariable variable) {
    Load();
    setWindowTitle("Global spatial statistics");
    ui_->txtTitle->setText(BandwidthAxisTitle);
    ui_->lblStats->setText(SweepStatCaption(variable));
    ui_->lblCriticalStats->setText(SweepCriticalCaption(variable));
    ui_->chartPlotStatistics->SetRows(ws.ChartData, ws.ChartLabels);
    ui_->chartPlotStatistics->SetSpokenNames(SweepStatCaption(variable), SweepCriticalCaption(variable));
    ui_->chartPlotStatistics->SetTitleBeside(BandwidthAxisTitle);
    Show();
}

} // namespace vastrel
