#include "desktop/prospective/frmUnivariate.h"

#include "core/display/PlotSurface.h"
#include "core/layer/WatchLayer.h"
#include "core/platform/Platform.h"
#include "core/prospective/CusumChart.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumInput.h"
#include "core/prospective/CusumRows.h"
#include "core/prospective/PolygonCusum.h"
#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmGraph.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/prospective/frmTxtFileOpen.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmUnivariate.h"

#include <filesystem>

namespace vastrel {

namespace {

constexpr const char* GraphTool = "Graph";
constexpr long FlashYields = 50001;

void UseGraphTool(bool used) {
    The<frmPolygonSHP>().EnableButton(GraphTool, used);
    The<frmPolygonSHP>().PressTool(GraphTool, used);
}

} // namespace

frmUnivariate::frmUnivariate()
    : CusumScreen(Kind::Child, PolygonCusumRules()), ui_(std::make_unique<Ui::frmUnivariate>()) {
    ui_->setupUi(this);
    ui_->picCusumKey->setStyleSheet("background-color: #008000");
    ui_->picHKey->setStyleSheet("background-color: #d20000");
    ui_->MSChart1->SetSpokenNames(CusumSeriesCaption, ThresholdSeriesCaption);
    ui_->MSChart1->SetTitleBeside(PeriodAxisTitle);
    TakeControls();
    ConnectControls();
}

frmUnivariate::~frmUnivariate() = default;

void frmUnivariate::ConnectControls() {
    ui_->cboStartZ->Click = [this] { cboStartZ_Click(); };
    ui_->cboEndZ->Click = [this] { cboEndZ_Click(); };
    ui_->optFieldSelection->Click = [this] { DataOption_Click(); };
    ui_->optExistingTextfile->Click = [this] { DataOption_Click(); };
    for (auto* option : {ui_->optZero, ui_->optFIR, ui_->optPre})
        option->Click = [this] { StartOption_Click(); };
    OnEvent(ui_->cmdCalc, &QPushButton::clicked, this, [this] { cmdCalc_Click(); });
    The<frmPolygonSHP>().ShowRegionChart = [this] { ShowRegionChart(); };
}

void frmUnivariate::Form_Load() {
    constexpr double left = 8000, top = 1;
    ws.AnimationDelay = SlowDelay;
    Frame()->move(static_cast<int>(left / LayoutUnit), static_cast<int>(top / LayoutUnit));
    ui_->MSChart1->hide();
    for (auto* list : {ui_->cboStartZ, ui_->cboEndZ}) {
        list->Clear();
        list->AddItems(FieldNames());
        list->EmptyText();
    }
}

void frmUnivariate::Form_Unload() {
    RunLayer().Drop();
    auto& map = The<frmPolygonSHP>();
    map.ShowCusumLegend(false);
    The<frmGraph>().Unload();
    UseGraphTool(false);
    map.ClearMapIfOpen(false);
    ws.bCusumMapping = false;
}

ZSource frmUnivariate::Source() const {
    return ui_->optFieldSelection->Value() ? ZSource::Fields : ZSource::Text;
}

void frmUnivariate::cboStartZ_Click() {
    auto* list = ui_->cboStartZ;
    list->AddItems(FieldNames()); // the list grows at every click; it is meant so
    if (TakeStartField(list->ListIndex(), list->Text()))
        ui_->cboEndZ->setEnabled(true);
    else
        list->EmptyText();
}

void frmUnivariate::cboEndZ_Click() {
    auto* list = ui_->cboEndZ;
    list->AddItems(FieldNames()); // as for the first column
    if (!TakeEndField(list->ListIndex(), list->Text())) list->EmptyText();
}

void frmUnivariate::DataOption_Click() {
    The<frmGraph>().Unload();
    ui_->cboStartZ->setEnabled(Source() == ZSource::Fields);
    ui_->cboEndZ->setEnabled(false);
    ui_->cboStartZ->EmptyText();
    ui_->cboEndZ->EmptyText();
}

void frmUnivariate::StartOption_Click() {
    ui_->cmdSaveResult->setEnabled(false);
    ui_->cmdSaveCusum->setEnabled(false);
    if (Start() != StartOption::Previous) The<frmTxtFileOpen>().Unload();
}

void frmUnivariate::DisableSaveCusum() {
    ui_->cmdSaveCusum->setEnabled(false);
}

int frmUnivariate::BeginPlain() {
    The<frmGraph>().Unload();
    inputs_ = {ws.ShapeFilePath};
    return BeginLists();
}

void frmUnivariate::cmdCalc_Click() {
    const int run = BeginPlain();
    if (!TakeCusumParameters(Parameters())) return;
    ws.AnimationDelay = static_cast<std::int32_t>(Delay());
    if (Start() == StartOption::Zero)
        RunFrom(run, StartOption::Zero, ShownPeriods::New);
    else if (Start() == StartOption::Previous)
        The<frmTxtFileOpen>().Show(); // which makes the run; nothing waits for it here
}

void frmUnivariate::Continue(ShownPeriods shown, const std::string& savedFile) {
    Load();
    const int run = BeginPlain();
    inputs_.push_back(savedFile);
    RunFrom(run, StartOption::Previous, shown);
}

void frmUnivariate::RunFrom(int run, StartOption start, ShownPeriods shown) {
    if (!RunOrDropResults([&] { return Play(run, start, shown); })) return;
    FinishRun(start, ResultPeriods());
    UseGraphTool(true);
    ws.bCusumMapping = true;
    OfferLayer();
}

bool frmUnivariate::Play(int run, StartOption start, ShownPeriods shown) {
    BeginRows();
    ws.bCusumRun = true;
    const ZSource source = Source();
    if (!(source == ZSource::Fields ? ReadFields() : ReadText(start))) return false;
    TakeCusumSigma(Parameters().Sigma);
    RunPolygonCusum(source == ZSource::Fields ? fieldZScore_ : ws.TextZScore, start, RunLabels(source));
    BeginPolygonChart(shown);
    ShowMaximumChart();
    return Animate(run, ws.AnimationDelay, ResultPeriods(), [&](std::ptrdiff_t t) { PlayPeriod(shown, t); });
}

void frmUnivariate::OfferLayer() {
    if (ResultPeriods() == 0) return;
    RunLayer().Keep([rows = Kept(WatchRows(PolygonWatchRegions()))] { return PolygonLayer(rows); }, inputs_);
    RunLayer().Offer();
}

bool frmUnivariate::ReadFields() {
    if (ui_->cboStartZ->Text().empty() || ui_->cboEndZ->Text().empty()) {
        Warn("Both start and end period should be determined.");
        platform().SetBusyPointer(false);
        return false;
    }
    ReadFieldZScores(fieldZScore_);
    return true;
}

/// A run from zero ends quietly without a file, the pointer as it stands; a continued one does not look, and
/// then opens the folder. Both are meant.
bool frmUnivariate::ReadText(StartOption start) {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Open, "Text File (*.txt)|*.txt", ""});
    if (choice.Title.empty() && start == StartOption::Zero) return false;
    inputs_.push_back((std::filesystem::current_path() / choice.Title).string());
    ReadTextZScores(inputs_.back());
    return true;
}

void frmUnivariate::PlayPeriod(ShownPeriods shown, std::ptrdiff_t t) {
    The<frmPolygonSHP>().DrawCusumMap(t);
    AddPolygonPeriod(shown, t);
    ShowMaximumChart();
    AddPeriodRow(PolygonPeriodRow(shown, t));
    The<frmPolygonSHP>().ShowCusumLegend(true);
}

CusumOutputs frmUnivariate::Results() {
    return PolygonOutputs();
}

std::ptrdiff_t frmUnivariate::RegionCount() const {
    return ws.NumRegion;
}

std::ptrdiff_t frmUnivariate::ListedPeriods() const {
    return SourcePeriodCount(Source());
}

void frmUnivariate::SelectPeriod(std::ptrdiff_t period) {
    ws.SelectedPeriod = static_cast<std::int32_t>(period);
    The<frmPolygonSHP>().DrawCusumMap(period);
    UseGraphTool(true);
}

void frmUnivariate::PeriodSelected() {
    ws.bCusumMapping = true;
}

void frmUnivariate::SelectNoPeriod() {
    UseGraphTool(false);
    The<frmPolygonSHP>().DrawPlainMapNoPan();
    ws.bCusumMapping = false;
}

void frmUnivariate::ForgetPeriodOnShow() {
    UseGraphTool(false);
    ws.bCusumMapping = false;
}

std::vector<std::ptrdiff_t>& frmUnivariate::Signaled() {
    return ws.SignaledRegions;
}

std::ptrdiff_t frmUnivariate::SignalCount() const {
    return AttributeTable().RecordCount();
}

Array1<std::string> frmUnivariate::SignalLabels() {
    return RecordLabels();
}

void frmUnivariate::RegionPicked(std::ptrdiff_t region) {
    const int run = Generation();
    auto& map = The<frmPolygonSHP>();
    ws.SelectedRegion = static_cast<std::int32_t>(region - 1);
    for (int flash = 1; flash <= Rules().RegionFlashes; ++flash) {
        map.DrawHighlight(ws.SelectedRegion);
        platform().Yield(FlashYields);
        if (run != Generation()) return;
        map.DrawPlainMap();
    }
    ShowRegionChart();
    map.DrawCusumMap(ws.SelectedPeriod);
}

void frmUnivariate::ShowRegionChart() {
    const std::ptrdiff_t region = ws.SelectedRegion + 1;
    ChartRegion(ws.CusumValue, region, SourcePeriodCount(Source()), ws.HValue);
    const bool hasRecord = region <= AttributeTable().RecordCount();
    The<frmGraph>().Fill(hasRecord ? RegionInfo(RecordLabels()(region), ws.SelectedPeriod,
                                                ws.CusumValue(region, ws.SelectedPeriod))
                                   : std::to_string(region));
}

std::ptrdiff_t frmUnivariate::ResultPeriods() const {
    return static_cast<std::ptrdiff_t>(ws.RunPeriodCount);
}

std::vector<std::string> frmUnivariate::CusumLines() {
    return CusumFileLines(ws.CusumValue, AttributeTable().RecordCount(), ResultPeriods());
}

LayerEntry& frmUnivariate::RunLayer() {
    return The<frmPolygonSHP>().RunLayer;
}

} // namespace vastrel
