#include "desktop/retrospective/frmClusterDetection.h"

#include "core/display/PlotSurface.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/retrospective/frmSigmaChart.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmClusterDetection.h"

namespace vastrel {

namespace {
frmPolygonSHP& MapWindow() {
    return The<frmPolygonSHP>();
}
} // namespace

frmClusterDetection::frmClusterDetection()
    : RetroScreen(Kind::Child, PolygonRules()), ui_(std::make_unique<Ui::frmClusterDetection>()) {
    ui_->setupUi(this);
    TakeControls();
    OnEvent(ui_->cmdDataReset, &QPushButton::clicked, this, [this] { ShowDataInput(); });
    OnEvent(ui_->cmdExit, &QPushButton::clicked, this, [this] { cmdExit_Click(); });
    MapWindow().Test = {
        [this] { return Variable(); }, [this] { return Generation(); },
        [this](std::ptrdiff_t row) { GlobalPatternSummary().SetListIndex(static_cast<int>(row)); },
        [this](std::ptrdiff_t row) { LocalPatternSummary().SetListIndex(static_cast<int>(row)); }};
}

frmClusterDetection::~frmClusterDetection() = default;

void frmClusterDetection::TakeAlphaValues() {
    Load();
    const bool empty = ui_->cboAlpha->ListCount() == 0;
    for (const double alpha : {0.05, 0.01})
        ui_->cboAlpha->AddItem(GeneralText(alpha));
    if (empty) ui_->cboAlpha->ShowEntry(0);
    ws.AlphaLevel = 0.05;
    ui_->cmdSave->setEnabled(false);
    RunLayer().Drop();
}

void frmClusterDetection::Form_Load() {
    constexpr double left = 8175; // beside the map
    RetroScreen::Form_Load();
    Frame()->move(static_cast<int>(left / LayoutUnit), 0);
}

void frmClusterDetection::Form_Unload() {
    RetroScreen::Form_Unload();
    ws.bRetroMapping = false;
    The<frmSigmaChart>().Unload();
    if (!MapWindow().IsLoaded()) return;
    DisableMapTools();
    MapWindow().HideAnimationControls();
    MapWindow().ClearMapIfOpen(true);
}

void frmClusterDetection::DisableMapTools() {
    MapWindow().EnableButton("Find", false);
    MapWindow().PressTool("Find", false);
    MapWindow().EnableButton("MapAnimation", false);
}

void frmClusterDetection::cmdExit_Click() {
    Unload();
    MapWindow().Unload();
}

void frmClusterDetection::ClearForRun() {
    MapWindow().ClearMap();
    MapWindow().HideAnimationControls();
    MapWindow().ShowMLegend(false);
    ui_->lstGlobalPatternSummary->Clear();
    ui_->lstLocalPatternSummary->Clear();
}

void frmClusterDetection::ShowRetroMap(Array1<double>& classValues, const Array1<double>& drawValues) {
    MapWindow().ShowRetroMap(classValues, drawValues);
}

void frmClusterDetection::DrawPlain() {
    MapWindow().DrawPlainMap();
}

void frmClusterDetection::ShowMLegend(bool shown) {
    MapWindow().ShowMLegend(shown);
}

void frmClusterDetection::FinishSingleRun() {
    MapWindow().EnableButton("Find", true);
    MapWindow().PressTool("Find", true);
    MapWindow().EnableButton("MapAnimation", false);
}

void frmClusterDetection::FinishSweep() {
    The<frmSigmaChart>().ShowSweep(Variable());
    MapWindow().EnableButton("Find", false);
    MapWindow().PressTool("Find", false);
    MapWindow().EnableButton("MapAnimation", true);
    MapWindow().ShowMLegend(false);
}

void frmClusterDetection::CloseChart() {
    The<frmSigmaChart>().Unload();
}

void frmClusterDetection::LocalRow_Click(std::ptrdiff_t row) {
    if (row >= 0) MapWindow().DrawHighlight(row - Rules().FirstRegionRow);
}

LayerEntry& frmClusterDetection::RunLayer() {
    return MapWindow().RunLayer;
}

std::vector<std::string> frmClusterDetection::Inputs() const {
    return {ws.ShapeFilePath};
}

} // namespace vastrel
