#include "prospective/screens/frmUnivariateCusumTextfile.h"

#include "display/PointLegend.h"
#include "platform/Platform.h"
#include "platform/RunTimeError.h"
#include "platform/TextFile.h"
#include "platform/qt/ErrorBoundary.h"
#include "prospective/CusumChart.h"
#include "prospective/CusumFile.h"
#include "prospective/CusumInput.h"
#include "prospective/CusumReport.h"
#include "prospective/CusumRows.h"
#include "ui_frmUnivariateCusumTextfile.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <filesystem>

namespace vastrel {

namespace {

constexpr const char* OpenFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";

std::string ChooseTextFile() {
    return platform().ChooseFile({FileQuestion::Kind::Open, OpenFilter, ""}).Path;
}

QString PeriodCaption(std::ptrdiff_t period) {
    return QString::fromStdString(PointCusumRules().PeriodCaption) + QString::number(period);
}

} // namespace

frmUnivariateCusumTextfile::frmUnivariateCusumTextfile()
    : Screen(Kind::Child), ui_(std::make_unique<Ui::frmUnivariateCusumTextfile>()) {
    ui_->setupUi(this);
    const SurfaceSize map = ProspectivePointSurface();
    ui_->picPoint->FixSize(map.Width, map.Height);
    ui_->picLegend->FixSize(1350, 1650);
    for (auto* chart : {ui_->MSChart1, ui_->MSChart2})
        chart->SetSeriesNames(CusumSeriesCaption, ThresholdSeriesCaption);
    TakeDesign();
    ConnectControls();
    tools_.TakeControls(*this, watch_);
}

frmUnivariateCusumTextfile::~frmUnivariateCusumTextfile() = default;

void frmUnivariateCusumTextfile::ConnectControls() {
    for (auto* option : {ui_->optZero, ui_->optPre})
        option->Click = [this] { StartOption_Click(); };
    ui_->optFIR->Click = [this] { optFIR_Click(); };
    ui_->lstPeriod->Click = [this] { lstPeriod_Click(); };
    ui_->lstRegion->Click = [this] { lstRegion_Click(); };

    const auto connectButton = [this](QPushButton* button, void (frmUnivariateCusumTextfile::*handler)()) {
        OnEvent(button, &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
    };
    connectButton(ui_->cmdFileOpenIDXY, &frmUnivariateCusumTextfile::cmdFileOpenIDXY_Click);
    connectButton(ui_->cmdNewZScore, &frmUnivariateCusumTextfile::cmdNewZScore_Click);
    connectButton(ui_->cmdOldCusum, &frmUnivariateCusumTextfile::cmdOldCusum_Click);
    connectButton(ui_->cmdRun, &frmUnivariateCusumTextfile::cmdRun_Click);
    connectButton(ui_->cmdSaveResult, &frmUnivariateCusumTextfile::cmdSaveResult_Click);
    connectButton(ui_->cmdSaveCusum, &frmUnivariateCusumTextfile::cmdSaveCusum_Click);
}

void frmUnivariateCusumTextfile::Form_Load() {
    watch_ = PointCusum{};
    map_ = PointMap(ProspectivePointZoom);
    signaledRegions_.clear();
    selectedPointPeriod_ = selectedPointRegion_ = currentPeriod_ = 0;
    ui_->picPoint->Erase();
    tools_.Reset();
    PrintCusumLegend(*ui_->picLegend);
    for (QWidget* part :
         {static_cast<QWidget*>(ui_->MSChart1), static_cast<QWidget*>(ui_->MSChart2), ui_->picEachRegionInfo})
        part->hide();
}

StartOption frmUnivariateCusumTextfile::Start() const {
    if (ui_->optZero->Value()) return StartOption::Zero;
    if (ui_->optFIR->Value()) return StartOption::FIR;
    return ui_->optPre->Value() ? StartOption::Previous : StartOption::None;
}

long frmUnivariateCusumTextfile::Delay() const {
    if (ui_->optFast->Value()) return PointCusumRules().FastDelay;
    return ui_->optMedium->Value() ? MediumDelay : SlowDelay;
}

CusumTexts frmUnivariateCusumTextfile::Parameters() const {
    return {ui_->txtKvalue->text().toStdString(), ui_->txtHvalue->text().toStdString(),
            ui_->txtSigma->text().toStdString()};
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
    for (auto* button : {ui_->cmdRun, ui_->cmdSaveResult, ui_->cmdSaveCusum})
        button->setEnabled(false);
}

void frmUnivariateCusumTextfile::optFIR_Click() {
    ui_->cmdOldCusum->setEnabled(false);
}

void frmUnivariateCusumTextfile::cmdFileOpenIDXY_Click() {
    const std::string path = ChooseTextFile();
    if (!LoadIDXY(watch_, path)) return;
    ui_->txtIDXY->setText(QString::fromStdString(path));
    if (Start() == StartOption::Previous)
        EnableOldCusum(true);
    else if (Start() != StartOption::None)
        EnableNewZScore(true);
}

void frmUnivariateCusumTextfile::cmdNewZScore_Click() {
    const std::string path = ChooseTextFile();
    if (!LoadNewZScore(watch_, path)) return;
    ui_->txtNewZScore->setText(QString::fromStdString(path));
    ui_->cmdRun->setEnabled(true);
}

void frmUnivariateCusumTextfile::cmdOldCusum_Click() {
    const std::string path = ChooseTextFile();
    if (!LoadOldCusum(watch_, path)) return;
    ui_->txtOldCusum->setText(QString::fromStdString(path));
    EnableNewZScore(true);
}

void frmUnivariateCusumTextfile::cmdRun_Click() {
    const int run = BeginRun();
    ui_->lstPeriod->Clear();
    ui_->lstRegion->Clear();
    map_.X = watch_.RegionX;
    map_.Y = watch_.RegionY;
    map_.DrawPlainPoints(*ui_->picPoint); // the study area is taken from these positions
    if (!TakeCusumParameters(Parameters())) return;
    if (Start() == StartOption::Previous)
        RunFromSaved(run);
    else if (Start() != StartOption::None)
        RunFromStart(run);
}

void frmUnivariateCusumTextfile::RunFromStart(int run) {
    platform().SetBusyPointer(true);
    ui_->lstPeriod->AddItems(PeriodTitleRows());
    TakeCusumSigma(ui_->txtSigma->text().toStdString());
    RunPointCusum(watch_, Start());
    ChartSet(watch_.NewPeriodCount, ws.HValue);
    ShowMaximumChart();
    if (!Animate(run, 0)) return;
    FinishRun();
}

void frmUnivariateCusumTextfile::RunFromSaved(int run) {
    platform().SetBusyPointer(true);
    ui_->lstPeriod->AddItems(PeriodTitleRows());
    TakeCusumSigma(ui_->txtSigma->text().toStdString());
    RunPointCusum(watch_, Start());
    const std::ptrdiff_t saved = watch_.OldPeriodCount;
    ChartSetPrev(saved + watch_.NewPeriodCount, ws.HValue,
                 ColumnMaxima(watch_.OldCusum, watch_.OldRowCount, saved), saved);
    ShowMaximumChart();
    for (std::ptrdiff_t p = 1; p <= watch_.OldColumnCount; ++p) // at once, before the first delay
        AddPeriodRowTextfile(p);
    const std::ptrdiff_t played = watch_.NewPeriodCount;
    if (!Animate(run, watch_.OldColumnCount)) return;
    FinishRun();
    ui_->lblY->setText(PeriodCaption(played)); // the caption keeps counting the new periods; it is meant so
}

/// Plays the new periods behind the saved ones. False where the screen was unloaded or its run replaced
/// inside a yield: the command ends there, and what that event left stands.
bool frmUnivariateCusumTextfile::Animate(int run, std::ptrdiff_t saved) {
    const long delay = Delay();
    const std::ptrdiff_t periods = watch_.NewPeriodCount; // another file may come inside a yield
    for (std::ptrdiff_t j = 1; j <= periods; ++j) {
        platform().Yield(delay + 1);
        if (run != Generation()) {
            platform().SetBusyPointer(false);
            return false;
        }
        const std::ptrdiff_t t = saved + j;
        DrawCusumPoints(t);
        ChartUpdate(t, watch_.Outputs(Start()).MaxCusum(t));
        ShowMaximumChart();
        AddPeriodRowTextfile(t);
        ui_->lblY->setText(PeriodCaption(j));
    }
    return true;
}

void frmUnivariateCusumTextfile::FinishRun() {
    ui_->lstPeriod->AddItem(CusumDashes());
    ui_->cmdSaveResult->setEnabled(true);
    ui_->cmdSaveCusum->setEnabled(true);
    ui_->lstPeriod->SetListIndex(static_cast<int>(watch_.PeriodCount(Start()) + 1));
    platform().SetBusyPointer(false);
}

void frmUnivariateCusumTextfile::AddPeriodRowTextfile(std::ptrdiff_t t) {
    const CusumOutputs results = watch_.Outputs(Start());
    ui_->lstPeriod->AddItem(PeriodRow(t, results.MaxCusum(t), results.MaxRegion(t)));
    ui_->lstPeriod->scrollToBottom();
}

void frmUnivariateCusumTextfile::DrawCusumPoints(std::ptrdiff_t period) {
    currentPeriod_ = period;
    map_.DrawCusumPoints(*ui_->picPoint, watch_.Outputs(Start()).Cusum, watch_.N, period, ws.HValue);
}

void frmUnivariateCusumTextfile::ShowMaximumChart() {
    ui_->MSChart1->SetRows(ws.CusumChartData, ws.CusumChartLabels);
    ui_->MSChart1->show();
    ui_->MSChart1->Repaint();
}

void frmUnivariateCusumTextfile::lstPeriod_Click() {
    const std::ptrdiff_t period =
        PeriodOfRow(ui_->lstPeriod->ListIndex(), SavedPeriods() + watch_.NewPeriodCount);
    if (period == 0) {
        ui_->lblY->clear();
        ui_->lstRegion->Clear();
        return;
    }
    selectedPointPeriod_ = period;
    ui_->lblY->setText(PeriodCaption(period));
    ListSignaledRegion(period);
    ui_->MSChart2->hide();
    ui_->picEachRegionInfo->hide();
    DrawCusumPoints(period);
}

void frmUnivariateCusumTextfile::ListSignaledRegion(std::ptrdiff_t period) {
    const CusumOutputs results = watch_.Outputs(Start());
    ui_->lstRegion->Clear();
    signaledRegions_ = SignaledRegions(results.Cusum, watch_.N, period, ws.HValue);
    ui_->lstRegion->AddItems(SignaledRows(results.Cusum, results.RegionLabel, period, signaledRegions_));
}

void frmUnivariateCusumTextfile::lstRegion_Click() {
    const auto row = static_cast<size_t>(ui_->lstRegion->ListIndex());
    selectedPointRegion_ = signaledRegions_.at(row) - 1;
    const std::ptrdiff_t region = selectedPointRegion_ + 1;
    ShowRegion(region, selectedPointPeriod_);
    DrawCusumPoints(selectedPointPeriod_);
    map_.MarkPoint(*ui_->picPoint, region);
}

/// The chart of a Region over all periods, and its cusum in one of them.
void frmUnivariateCusumTextfile::ShowRegion(std::ptrdiff_t region, std::ptrdiff_t period) {
    const CusumOutputs results = watch_.Outputs(Start());
    ChartRegion(results.Cusum, region, SavedPeriods() + watch_.NewPeriodCount, ws.HValue);
    ui_->MSChart2->SetRows(ws.CusumChartData, ws.CusumChartLabels);
    ui_->MSChart2->show();
    ui_->lblEachRegionInfo->setText(QString::fromStdString(
        RegionInfo(results.RegionLabel(region), period, results.Cusum(region, period))));
    ui_->picEachRegionInfo->show();
}

/// A Region that signals is selected in the list, whose click marks it; the chart of another one is shown.
void frmUnivariateCusumTextfile::IdentifyRegion(std::ptrdiff_t region) {
    const auto row = std::find(signaledRegions_.begin(), signaledRegions_.end(), region);
    if (row == signaledRegions_.end()) return ShowRegion(region, currentPeriod_);
    ui_->lstRegion->SetListIndex(static_cast<int>(row - signaledRegions_.begin()));
}

void frmUnivariateCusumTextfile::cmdSaveResult_Click() {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", ""});
    if (choice.Path.empty()) { // a cancel is treated like an empty name here
        Warn("You didn't specify data file.");
        platform().SetBusyPointer(false);
    } else if (Start() != StartOption::None) {
        WriteTextFile(choice.Path,
                      CusumReport(watch_.Outputs(Start()), watch_.N, watch_.PeriodCount(Start())));
    }
    ui_->cmdSaveResult->setEnabled(false);
}

void frmUnivariateCusumTextfile::cmdSaveCusum_Click() {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Save, "cusum files (*.csm)|*.csm", ".csm"});
    if (choice.Title.empty() || Start() == StartOption::None) return;
    // The file goes into the current folder, which the dialog has set. Errors pass unreported.
    const auto path = std::filesystem::current_path() / choice.Title;
    try {
        WriteTextFile(path.string(),
                      CusumFileLines(watch_.Outputs(Start()).Cusum, watch_.N, watch_.PeriodCount(Start())));
    } catch (const RunTimeError&) {
    }
}

} // namespace vastrel
