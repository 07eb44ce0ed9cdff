#include "desktop/prospective/frmUnivariateCusumTextfile.h"

#include "core/display/MapSizes.h"
#include "core/display/PointLegend.h"
#include "core/layer/WatchLayer.h"
#include "core/platform/Computation.h"
#include "core/platform/Platform.h"
#include "core/prospective/CusumChart.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumInput.h"
#include "core/prospective/CusumRows.h"
#include "core/workspace/Workspace.h"
#include "desktop/toolkit/MapPicture.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmUnivariateCusumTextfile.h"

#include <algorithm>

namespace vastrel {

namespace {

constexpr const char* OpenFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";

std::string ChooseTextFile() {
    return platform().ChooseFile({FileQuestion::Kind::Open, OpenFilter, ""}).Path;
}

} // namespace

frmUnivariateCusumTextfile::frmUnivariateCusumTextfile()
    : CusumScreen(Kind::Child, PointCusumRules()), ui_(std::make_unique<Ui::frmUnivariateCusumTextfile>()) {
    ui_->setupUi(this);
    const SurfaceSize map = ProspectivePointSurface();
    ui_->picPoint->FixSize(map.Width, map.Height);
    ui_->picLegend->FixSize(1350, 1650);
    for (auto* chart : {ui_->MSChart1, ui_->MSChart2}) {
        chart->SetSeriesNames(CusumSeriesCaption, ThresholdSeriesCaption);
        chart->SetTitleBeside(PeriodAxisTitle);
    }
    QSizePolicy keepsItsRoom = ui_->lblDisplay->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true); // so that the map stays where it is
    ui_->lblDisplay->setSizePolicy(keepsItsRoom);
    TakeControls();
    ConnectControls();
    tools_.TakeControls(*this, watch_);
}

frmUnivariateCusumTextfile::~frmUnivariateCusumTextfile() = default;

void frmUnivariateCusumTextfile::FillWindowMenu(QMenu& menu) {
    OfferMapPicture(menu, {ui_->picPoint, {ui_->picPeriod, ui_->picLegend}});
    runLayer_.AddTo(menu);
}

void frmUnivariateCusumTextfile::ConnectControls() {
    for (auto* option : {ui_->optZero, ui_->optPre})
        option->Click = [this] { StartOption_Click(); };
    ui_->optFIR->Click = [this] { optFIR_Click(); };

    const auto connectButton = [this](QPushButton* button, void (frmUnivariateCusumTextfile::*handler)()) {
        OnEvent(button, &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
    };
    connectButton(ui_->cmdFileOpenIDXY, &frmUnivariateCusumTextfile::cmdFileOpenIDXY_Click);
    connectButton(ui_->cmdNewZScore, &frmUnivariateCusumTextfile::cmdNewZScore_Click);
    connectButton(ui_->cmdOldCusum, &frmUnivariateCusumTextfile::cmdOldCusum_Click);
    connectButton(ui_->cmdRun, &frmUnivariateCusumTextfile::cmdRun_Click);
}

void frmUnivariateCusumTextfile::Form_Load() {
    watch_ = PointCusum{};
    map_ = PointMap(ProspectivePointMapZoom.Start);
    signaledRegions_.clear();
    selectedPointPeriod_ = selectedPointRegion_ = currentPeriod_ = 0;
    ui_->picPoint->Erase();
    tools_.Reset();
    PrintCusumLegend(*ui_->picLegend);
    for (QWidget* part :
         {static_cast<QWidget*>(ui_->MSChart1), static_cast<QWidget*>(ui_->MSChart2), ui_->picEachRegionInfo})
        part->hide();
}

std::ptrdiff_t frmUnivariateCusumTextfile::SavedPeriods() const {
    return Start() == StartOption::Previous ? watch_.OldPeriodCount : 0;
}

void frmUnivariateCusumTextfile::EnableNewZScore(bool enabled) {
    for (QWidget* part : {static_cast<QWidget*>(ui_->cmdNewZScore), static_cast<QWidget*>(ui_->lblNewZ),
                          static_cast<QWidget*>(ui_->txtNewZScore)})
        part->setEnabled(enabled);
}

void frmUnivariateCusumTextfile::EnableOldCusum(bool enabled) {
    for (QWidget* part : {static_cast<QWidget*>(ui_->cmdOldCusum), static_cast<QWidget*>(ui_->lblOldCusum),
                          static_cast<QWidget*>(ui_->txtOldCusum)})
        part->setEnabled(enabled);
}

void frmUnivariateCusumTextfile::StartOption_Click() {
    BeginRun(); // the chain of files starts anew: a run that plays at this moment ends
    ui_->picPoint->Erase();
    ui_->picPoint->Refresh();
    for (auto* path : {ui_->txtIDXY, ui_->txtOldCusum, ui_->txtNewZScore})
        path->clear();
    EnableOldCusum(false);
    EnableNewZScore(false);
    ui_->lstPeriod->Clear();
    ui_->lstRegion->Clear();
    for (QWidget* part : {static_cast<QWidget*>(ui_->MSChart2), ui_->picEachRegionInfo,
                          static_cast<QWidget*>(ui_->lblDisplay)})
        part->hide();
    ui_->cmdRun->setEnabled(false);
    DisableSave();
}

/// What was run before belongs to other files than those that are loaded now.
void frmUnivariateCusumTextfile::DisableSave() {
    ui_->cmdSaveResult->setEnabled(false);
    ui_->cmdSaveCusum->setEnabled(false);
    runLayer_.Drop();
}

void frmUnivariateCusumTextfile::optFIR_Click() {
    ui_->cmdOldCusum->setEnabled(false);
}

void frmUnivariateCusumTextfile::cmdFileOpenIDXY_Click() {
    const std::string path = ChooseTextFile();
    const Computation reading;
    if (!LoadIDXY(watch_, path)) return;
    DisableSave();
    ui_->txtIDXY->setText(QString::fromStdString(path));
    screens().ShowDataset(path, watch_.RegionX.UpperBound(), "points");
    if (Start() == StartOption::Previous)
        EnableOldCusum(true);
    else if (Start() != StartOption::None)
        EnableNewZScore(true);
}

void frmUnivariateCusumTextfile::cmdNewZScore_Click() {
    const std::string path = ChooseTextFile();
    const Computation reading;
    if (!LoadNewZScore(watch_, path)) return;
    DisableSave();
    ui_->txtNewZScore->setText(QString::fromStdString(path));
    ui_->cmdRun->setEnabled(true);
}

void frmUnivariateCusumTextfile::cmdOldCusum_Click() {
    const std::string path = ChooseTextFile();
    const Computation reading;
    if (!LoadOldCusum(watch_, path)) return;
    DisableSave();
    ui_->txtOldCusum->setText(QString::fromStdString(path));
    EnableNewZScore(true);
}

void frmUnivariateCusumTextfile::cmdRun_Click() {
    const int run = BeginLists();
    TakePoints();
    map_.DrawPlainPoints(*ui_->picPoint); // the study area is taken from these positions
    if (!TakeCusumParameters(Parameters())) return;
    if (Start() == StartOption::None) return;
    const bool goesOn = Start() == StartOption::Previous;
    const std::ptrdiff_t played = watch_.NewPeriodCount; // another file may come inside a yield
    if (!RunOrDropResults([&] { return goesOn ? RunFromSaved(run) : RunFromStart(run); })) return;
    FinishRun(Start(), watch_.PeriodCount(Start()));
    if (goesOn) ShowPeriodCaption(played); // the caption keeps counting the new periods; it is meant so
    runLayer_.Offer();
}

bool frmUnivariateCusumTextfile::RunFromStart(int run) {
    BeginRows();
    TakeCusumSigma(ui_->txtSigma->text().toStdString());
    RunPointCusum(watch_, Start());
    KeepLayer();
    ChartSet(watch_.NewPeriodCount, ws.HValue);
    ShowMaximumChart();
    return Play(run, 0);
}

bool frmUnivariateCusumTextfile::RunFromSaved(int run) {
    BeginRows();
    TakeCusumSigma(ui_->txtSigma->text().toStdString());
    RunPointCusum(watch_, Start());
    KeepLayer();
    const std::ptrdiff_t saved = watch_.OldPeriodCount;
    ChartSetPrev(saved + watch_.NewPeriodCount, ws.HValue,
                 ColumnMaxima(watch_.OldCusum, watch_.OldRowCount, saved), saved);
    ShowMaximumChart();
    for (std::ptrdiff_t p = 1; p <= watch_.OldColumnCount; ++p) // at once, before the first delay
        AddPeriodRowTextfile(p);
    return Play(run, watch_.OldColumnCount);
}

/// Keeps the rows of this run, as they are before another file may come inside a yield.
void frmUnivariateCusumTextfile::KeepLayer() {
    std::vector<std::string> inputs;
    for (const auto* path : {ui_->txtIDXY, ui_->txtOldCusum, ui_->txtNewZScore})
        inputs.push_back(path->text().toStdString());
    const ResultTable rows = Kept(WatchRows(PointWatchRegions(watch_, Start())));
    runLayer_.Keep([rows] { return PointLayer(rows); }, inputs);
}

/// Plays the new periods behind the saved ones; as many as there are now, another file may come inside a
/// yield.
bool frmUnivariateCusumTextfile::Play(int run, std::ptrdiff_t saved) {
    return Animate(run, Delay(), watch_.NewPeriodCount, [this, saved](std::ptrdiff_t j) {
        const std::ptrdiff_t t = saved + j;
        DrawCusumPoints(t);
        ChartUpdate(t, Results().MaxCusum(t));
        ShowMaximumChart();
        AddPeriodRowTextfile(t);
        ShowPeriodCaption(j);
    });
}

void frmUnivariateCusumTextfile::AddPeriodRowTextfile(std::ptrdiff_t t) {
    const CusumOutputs results = Results();
    AddPeriodRow(PeriodRow(t, results.MaxCusum(t), results.MaxRegion(t)));
}

/// The map has the points of the ids file that is loaded at the moment, whatever was run.
void frmUnivariateCusumTextfile::TakePoints() {
    map_.X = watch_.RegionX;
    map_.Y = watch_.RegionY;
}

void frmUnivariateCusumTextfile::DrawCusumPoints(std::ptrdiff_t period) {
    currentPeriod_ = period;
    TakePoints();
    const std::ptrdiff_t points = Start() == StartOption::None ? 0 : watch_.N; // none without an option
    map_.DrawCusumPoints(*ui_->picPoint, Results().Cusum, points, period, ws.HValue);
}

/// The drawing of the tools.
void frmUnivariateCusumTextfile::Redraw() {
    TakePoints();
    if (currentPeriod_ == NoPeriod)
        map_.DrawPlainPoints(*ui_->picPoint);
    else
        DrawCusumPoints(currentPeriod_);
}

void frmUnivariateCusumTextfile::PeriodSelected() {
    ui_->MSChart2->hide();
    ui_->picEachRegionInfo->hide();
    DrawCusumPoints(selectedPointPeriod_);
}

void frmUnivariateCusumTextfile::RegionPicked(std::ptrdiff_t region) {
    selectedPointRegion_ = region - 1;
    ShowRegion(region, selectedPointPeriod_);
    DrawCusumPoints(selectedPointPeriod_);
    map_.MarkPoint(*ui_->picPoint, region);
}

/// The chart of a Region over all periods, and its cusum in one of them.
void frmUnivariateCusumTextfile::ShowRegion(std::ptrdiff_t region, std::ptrdiff_t period) {
    const CusumOutputs results = Results();
    ChartRegion(results.Cusum, region, ListedPeriods(), ws.HValue);
    ui_->MSChart2->SetRows(ws.CusumChartData, ws.CusumChartLabels);
    ui_->MSChart2->show();
    ui_->lblEachRegionInfo->setText(QString::fromStdString(
        RegionInfo(results.RegionLabel(region), period, results.Cusum(region, period))));
    ui_->picEachRegionInfo->show();
}

std::vector<std::string> frmUnivariateCusumTextfile::CusumLines() {
    return CusumFileLines(Results().Cusum, watch_.N, watch_.PeriodCount(Start()));
}

/// A Region that signals in the period on show is selected in the list, whose click marks it. The chart is
/// shown of another one, and where the list has been emptied or belongs to a period picked before.
void frmUnivariateCusumTextfile::IdentifyRegion(std::ptrdiff_t region) {
    if (currentPeriod_ == NoPeriod) return;
    const auto place = std::find(signaledRegions_.begin(), signaledRegions_.end(), region);
    const auto row = static_cast<int>(place - signaledRegions_.begin());
    if (selectedPointPeriod_ == currentPeriod_ && row < ui_->lstRegion->ListCount())
        ui_->lstRegion->SetListIndex(row);
    else
        ShowRegion(region, currentPeriod_);
}

} // namespace vastrel
