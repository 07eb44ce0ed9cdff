#include "desktop/retrospective/frmClusterDetectionTextfile.h"

#include "core/display/LegendClasses.h"
#include "core/display/MapSizes.h"
#include "core/display/PointLegend.h"
#include "core/retrospective/Sweep.h"
#include "desktop/retrospective/frmSelectDataFormat.h"
#include "desktop/toolkit/MapPicture.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmClusterDetectionTextfile.h"

namespace vastrel {

namespace {

QString KeyLine(const char* colour, const char* line) {
    return QString("<span style='color:%1'>%2</span>").arg(colour, line);
}

std::ptrdiff_t PointCount() {
    return static_cast<std::ptrdiff_t>(ws.NumTextRegion);
}

} // namespace

frmClusterDetectionTextfile::frmClusterDetectionTextfile()
    : RetroScreen(Kind::Child, PointRules()), ui_(std::make_unique<Ui::frmClusterDetectionTextfile>()) {
    ui_->setupUi(this);
    const SurfaceSize map = RetroPointSurface();
    ui_->picPoint->FixSize(map.Width, map.Height);
    ui_->picLegend->FixSize(2550, 2250);
    ui_->imgM_Legend->setGeometry(26, 24, 93, 113); // the texts beside the circles of the legend
    ui_->lblStatsLine->setText(KeyLine("#008000", "&#9473;&#9473;"));
    ui_->lblCriticalStatsLine->setText(KeyLine("#d20000", "&#9473; &#9473;"));
    TakeControls();
    ConnectMouse();
    OnEvent(ui_->cmdLoadData, &QPushButton::clicked, this, [] { The<frmSelectDataFormat>().Show(); });
    OnEvent(ui_->cmdExit, &QPushButton::clicked, this, [this] { Unload(); });
}

frmClusterDetectionTextfile::~frmClusterDetectionTextfile() = default;

void frmClusterDetectionTextfile::FillWindowMenu(QMenu& menu) {
    OfferMapPicture(menu, {ui_->picPoint, {ui_->picLegend}});
    runLayer_.AddTo(menu);
}

void frmClusterDetectionTextfile::ConnectMouse() {
    tools_.TakeOptions(*this);
    ui_->picPoint->MouseDown = [this](int, double x, double y) { picPoint_MouseDown(x, y); };
    ui_->picPoint->MouseMove = [this](int button, double x, double y) { tools_.Move(button, x, y); };
    ui_->picPoint->MouseUp = [this](int, double, double) { tools_.Release(); };
    ui_->picPoint->DblClick = [this] { tools_.DoubleClick(); };
}

void frmClusterDetectionTextfile::Form_Load() {
    RetroScreen::Form_Load();
    map_ = PointMap(RetroPointMapZoom.Start);
    ui_->picPoint->Erase();
    ui_->picPoint->setToolTip("");
    ui_->picLegend->Erase();
    CloseChart();
}

void frmClusterDetectionTextfile::TakeDataset(const std::string& file) {
    Load();
    file_ = file;
    runLayer_.Drop();
    ForgetMaps();
    ui_->cmdRun->setEnabled(true);
    ui_->cmdSave->setEnabled(false);
}

void frmClusterDetectionTextfile::ClearForRun() {
    ui_->lstGlobalPatternSummary->Clear();
    ui_->lstLocalPatternSummary->Clear();
    DrawPlain(); // the study area is taken from these positions
}

void frmClusterDetectionTextfile::DrawPlain() {
    map_.TakeCentroids(PointCount());
    map_.DrawPlainPoints(*ui_->picPoint);
}

void frmClusterDetectionTextfile::ShowRetroMap(Array1<double>& classValues,
                                               const Array1<double>& drawValues) {
    BuildLegend(classValues, Variable());
    PrintPointLegend(*ui_->picLegend, Variable());
    map_.DrawStatisticPointsFrom(*ui_->picPoint, drawValues);
}

void frmClusterDetectionTextfile::ShowMLegend(bool shown) {
    ui_->imgM_Legend->setVisible(shown);
    if (shown) ui_->imgM_Legend->LoadPicture("M_Legend.jpg");
}

void frmClusterDetectionTextfile::FinishSingleRun() {
    ui_->MSChart1->hide();
    ui_->picMLegend->hide();
}

std::vector<QWidget*> frmClusterDetectionTextfile::ChartParts() const {
    return {ui_->MSChart1, ui_->picEachRegionInfo, ui_->txtXTitle, ui_->picMLegend};
}

void frmClusterDetectionTextfile::FinishSweep() {
    ui_->lblStats->setText(SweepStatCaption(Variable()));
    ui_->lblCriticalStats->setText(SweepCriticalCaption(Variable()));
    ui_->MSChart1->SetRows(ws.ChartData, ws.ChartLabels);
    ui_->MSChart1->SetSpokenNames(SweepStatCaption(Variable()), SweepCriticalCaption(Variable()));
    ui_->MSChart1->SetTitleBeside(BandwidthAxisTitle);
    for (QWidget* part : ChartParts())
        part->show();
}

void frmClusterDetectionTextfile::CloseChart() {
    for (QWidget* part : ChartParts())
        part->hide();
}

/// Draws the map anew by the options of the moment; plain points where no map of these options was ever shown
/// of the present points.
void frmClusterDetectionTextfile::RedrawMap() {
    auto& classValues = IsSingleSigma() ? MapClassValues(Variable()) : ws.DisplayClassValues;
    const auto& values = IsSingleSigma() ? MapDrawValues(Variable()) : ws.DisplayDrawValues;
    if (!IsMapped(classValues) || values.UpperBound() != PointCount()) return DrawPlain();
    map_.TakeCentroids(PointCount());
    if (IsSingleSigma()) return map_.DrawStatisticPointsFrom(*ui_->picPoint, values);
    ShowRetroMap(classValues, values);
}

void frmClusterDetectionTextfile::picPoint_MouseDown(double x, double y) {
    if (!tools_.Press(x, y) && ui_->optIdentify->Value()) Identify(x, y);
}

/// Selects the row of the nearest point, whose click marks it. Nothing before a dataset is loaded.
void frmClusterDetectionTextfile::Identify(double x, double y) {
    if (PointCount() == 0) return;
    map_.TakeCentroids(PointCount());
    const std::ptrdiff_t position = NearestPoint(map_.View, x, y, map_.X, map_.Y);
    RedrawMap();
    ui_->lstLocalPatternSummary->SetListIndex(static_cast<int>(position + Rules().FirstRegionRow));
    ui_->picPoint->setToolTip(QString::fromStdString(ws.RegionCentroid(position).ID));
}

void frmClusterDetectionTextfile::LocalRow_Click(std::ptrdiff_t row) {
    const std::ptrdiff_t position = row - Rules().FirstRegionRow;
    RedrawMap();
    if (position >= 1 && position <= PointCount()) map_.MarkPoint(*ui_->picPoint, position);
}

} // namespace vastrel
