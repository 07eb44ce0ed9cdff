#include "retrospective/screens/frmClusterDetectionTextfile.h"

#include "display/LegendClasses.h"
#include "display/PointLegend.h"
#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "platform/TextFile.h"
#include "platform/qt/ErrorBoundary.h"
#include "platform/qt/Screens.h"
#include "retrospective/ResultLists.h"
#include "retrospective/RetroReport.h"
#include "retrospective/Sweep.h"
#include "retrospective/screens/frmSelectDataFormat.h"
#include "ui_frmClusterDetectionTextfile.h"

namespace vastrel {

namespace {

/// The picture of each variable's formula.
const char* FormulaPicture(RetroVariable variable) {
    switch (variable) {
    case RetroVariable::Unadjusted:
        return "unadjusted.jpg";
    case RetroVariable::AdjustedPoisson:
        return "adjusted.jpg";
    case RetroVariable::FreemanTukey:
        return "standard.jpg";
    case RetroVariable::Rossi:
        return "rossi.jpg";
    }
    return "";
}

QString KeyLine(const char* colour, const char* line) {
    return QString("<span style='color:%1'>%2</span>").arg(colour, line);
}

} // namespace

frmClusterDetectionTextfile::frmClusterDetectionTextfile()
    : Screen(Kind::Child), ui_(std::make_unique<Ui::frmClusterDetectionTextfile>()) {
    ui_->setupUi(this);
    const SurfaceSize map = RetroPointSurface();
    ui_->picPoint->FixSize(map.Width, map.Height);
    ui_->picLegend->FixSize(2550, 2250);
    ui_->imgM_Legend->setGeometry(0, 0, ui_->picLegend->width(), ui_->picLegend->height());
    ui_->lblStatsLine->setText(KeyLine("#008000", "&#9473;&#9473;"));
    ui_->lblCriticalStatsLine->setText(KeyLine("#d20000", "&#9473; &#9473;"));
    TakeDesign();
    ConnectControls();
}

frmClusterDetectionTextfile::~frmClusterDetectionTextfile() = default;

void frmClusterDetectionTextfile::ConnectControls() {
    for (auto* option : {ui_->optUnadjusted, ui_->optAdjusted_Generic, ui_->optStandard, ui_->optRossi})
        option->Click = [this] { VariableOption_Click(); };
    ui_->optSpatialSingleSigma->Click = [this] { optSpatialSingleSigma_Click(); };
    // optSpatialSigmaRange has no Click: it is meant to do nothing at all.
    ui_->cboAlpha->Click = [this] { cboAlpha_Click(); };
    ui_->lstGlobalPatternSummary->Click = [this] { lstGlobalPatternSummary_Click(); };
    ui_->lstLocalPatternSummary->Click = [this] { lstLocalPatternSummary_Click(); };
    OnEvent(ui_->cmdLoadData, &QPushButton::clicked, this, [this] { cmdLoadData_Click(); });
    OnEvent(ui_->cmdRun, &QPushButton::clicked, this, [this] { cmdRun_Click(); });
    OnEvent(ui_->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    OnEvent(ui_->cmdExit, &QPushButton::clicked, this, [this] { Unload(); });
}

void frmClusterDetectionTextfile::Form_Load() {
    map_ = PointMap(RetroPointZoom);
    ui_->picPoint->Erase();
    ui_->picLegend->Erase();
    ui_->picEquation->LoadPicture(FormulaPicture(Variable()));
    ws.AlphaLevel = 0.05;
    for (const double alpha : {0.05, 0.01})
        ui_->cboAlpha->AddItem(GeneralText(alpha));
    ui_->cboAlpha->setCurrentIndex(0);
    ui_->cmdSave->setEnabled(false);
    ui_->cmdRun->setEnabled(false); // until data are loaded
    HideChart();
}

void frmClusterDetectionTextfile::EnableRun() {
    Load();
    ui_->cmdRun->setEnabled(true);
}

RetroVariable frmClusterDetectionTextfile::Variable() const {
    if (ui_->optAdjusted_Generic->Value()) return RetroVariable::AdjustedPoisson;
    if (ui_->optStandard->Value()) return RetroVariable::FreemanTukey;
    if (ui_->optRossi->Value()) return RetroVariable::Rossi;
    return RetroVariable::Unadjusted;
}

void frmClusterDetectionTextfile::VariableOption_Click() {
    ui_->picEquation->LoadPicture(FormulaPicture(Variable()));
    ui_->cmdSave->setEnabled(false);
}

void frmClusterDetectionTextfile::optSpatialSingleSigma_Click() {
    ui_->cmdSave->setEnabled(false);
    HideChart();
}

void frmClusterDetectionTextfile::cboAlpha_Click() {
    ws.AlphaLevel = ToNumber(ui_->cboAlpha->Text());
}

void frmClusterDetectionTextfile::cmdLoadData_Click() {
    The<frmSelectDataFormat>().Show();
}

void frmClusterDetectionTextfile::cmdRun_Click() {
    ui_->lstGlobalPatternSummary->Clear();
    ui_->lstLocalPatternSummary->Clear();
    map_.TakeCentroids(static_cast<std::ptrdiff_t>(ws.NumTextRegion));
    map_.DrawPlainPoints(*ui_->picPoint); // the study area is taken from these positions
    if (!(ui_->optSpatialSingleSigma->Value() ? RunSingle() : RunRange())) return;
    ws.bRetroMapping = true;
    platform().SetBusyPointer(false);
    ui_->cmdSave->setEnabled(true);
}

bool frmClusterDetectionTextfile::RunSingle() {
    if (!TakeSingleSigma(ui_->txtSingleSigma->text().toStdString())) return false;
    platform().SetBusyPointer(true);
    RunSingleProcedures(Variable());
    const ResultLists lists = FillLists(Variable(), PointRules());
    ui_->lstGlobalPatternSummary->AddItems(lists.Global);
    ui_->lstLocalPatternSummary->AddItems(lists.Local);
    ShowRetroMap(MapClassValues(Variable()), MapDrawValues(Variable()));
    ShowMLegend();
    ui_->MSChart1->hide();
    ui_->picMLegend->hide();
    return true;
}

SweepTexts frmClusterDetectionTextfile::RangeTexts() const {
    return {ui_->txtFromSigma->text().toStdString(), ui_->txtToSigma->text().toStdString(),
            ui_->txtStep->text().toStdString()};
}

bool frmClusterDetectionTextfile::RunRange() {
    const bool ran = RunSweep(Variable(), RangeTexts(), PointRules(), [this](const std::string& row) {
        ui_->lstGlobalPatternSummary->AddItem(row);
        ui_->lstGlobalPatternSummary->RepaintNow();
    });
    if (ran) ShowSweepChart();
    return ran;
}

void frmClusterDetectionTextfile::ShowSweepChart() {
    ui_->lblStats->setText(SweepStatCaption(Variable()));
    ui_->lblCriticalStats->setText(SweepCriticalCaption(Variable()));
    ui_->MSChart1->SetRows(ws.ChartData, ws.ChartLabels);
    for (QWidget* part : {static_cast<QWidget*>(ui_->MSChart1), ui_->picEachRegionInfo,
                          static_cast<QWidget*>(ui_->txtXTitle), ui_->picMLegend})
        part->show();
}

void frmClusterDetectionTextfile::HideChart() {
    for (QWidget* part : {static_cast<QWidget*>(ui_->MSChart1), ui_->picEachRegionInfo,
                          static_cast<QWidget*>(ui_->txtXTitle), ui_->picMLegend})
        part->hide();
}

void frmClusterDetectionTextfile::ShowRetroMap(Array1<double>& classValues,
                                               const Array1<double>& drawValues) {
    BuildLegend(classValues, Variable());
    PrintPointLegend(*ui_->picLegend, Variable());
    map_.DrawStatisticPointsFrom(*ui_->picPoint, drawValues);
}

void frmClusterDetectionTextfile::ShowMLegend() {
    ui_->imgM_Legend->setVisible(!MapsScore(Variable()));
    ui_->imgM_Legend->LoadPicture("M_Legend.jpg");
}

/// Draws the map anew by the options of the moment; plain points where the values of these options were never
/// computed for the present points.
void frmClusterDetectionTextfile::RedrawMap() {
    map_.TakeCentroids(static_cast<std::ptrdiff_t>(ws.NumTextRegion));
    const bool single = ui_->optSpatialSingleSigma->Value();
    const auto& values = single ? MapDrawValues(Variable()) : ws.DisplayDrawValues;
    if (values.UpperBound() != map_.X.UpperBound()) return map_.DrawPlainPoints(*ui_->picPoint);
    if (single) return map_.DrawStatisticPointsFrom(*ui_->picPoint, values);
    ShowRetroMap(ws.DisplayClassValues, values);
}

void frmClusterDetectionTextfile::lstLocalPatternSummary_Click() {
    const std::ptrdiff_t position = ui_->lstLocalPatternSummary->ListIndex() - PointRules().FirstRegionRow;
    RedrawMap();
    if (position >= 1 && position <= map_.X.UpperBound()) map_.MarkPoint(*ui_->picPoint, position);
}

void frmClusterDetectionTextfile::lstGlobalPatternSummary_Click() {
    // Also after a single run, where this empties the two arrays and nothing else happens; it is meant so.
    ws.DisplayClassValues.ReDim(ws.NumRegion);
    ws.DisplayDrawValues.ReDim(ws.NumRegion);
    if (!ui_->optSpatialSigmaRange->Value()) return;
    const std::ptrdiff_t step = SweepStepOfRow(ui_->lstGlobalPatternSummary->ListIndex());
    if (step >= 0 && ws.StatisticTable.IsAllocated()) {
        SelectSweepStep(step);
        ShowRetroMap(ws.DisplayClassValues, ws.DisplayDrawValues);
    } else {
        map_.DrawPlainPoints(*ui_->picPoint);
    }
    ShowMLegend();
}

void frmClusterDetectionTextfile::cmdSave_Click() {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", ""});
    if (choice.Path.empty()) return;
    const bool single = ui_->optSpatialSingleSigma->Value();
    WriteTextFile(choice.Path,
                  single ? SingleReport(Variable(), PointRules()) : RangeReport(Variable(), PointRules()));
}

} // namespace vastrel
