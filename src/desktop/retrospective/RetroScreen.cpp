#include "desktop/retrospective/RetroScreen.h"

#include "core/display/LegendClasses.h"
#include "core/display/PointMap.h"
#include "core/layer/RetroLayer.h"
#include "core/platform/Computation.h"
#include "core/platform/Platform.h"
#include "core/retrospective/RangeReport.h"
#include "core/retrospective/ResultLists.h"
#include "core/retrospective/RetroProcedures.h"
#include "core/retrospective/SingleReport.h"
#include "core/retrospective/Sweep.h"
#include "core/text/Numbers.h"
#include "core/text/TextFile.h"
#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/LayerEntry.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/OptionButton.h"
#include "desktop/toolkit/PictureBox.h"

#include <QLineEdit>
#include <QPushButton>

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

} // namespace

void RetroScreen::FindControls() {
    const auto find = [this](auto*& control, const char* name) {
        control = findChild<std::remove_reference_t<decltype(control)>>(name);
        Q_ASSERT(control != nullptr);
    };
    find(optUnadjusted, "optUnadjusted");
    find(optAdjusted_Generic, "optAdjusted_Generic");
    find(optStandard, "optStandard");
    find(optRossi, "optRossi");
    find(optSpatialSingleSigma, "optSpatialSingleSigma");
    find(optSpatialSigmaRange, "optSpatialSigmaRange");
    find(txtSingleSigma, "txtSingleSigma");
    find(txtFromSigma, "txtFromSigma");
    find(txtToSigma, "txtToSigma");
    find(txtStep, "txtStep");
    find(cboAlpha, "cboAlpha");
    find(picEquation, "picEquation");
    find(lstGlobalPatternSummary, "lstGlobalPatternSummary");
    find(lstLocalPatternSummary, "lstLocalPatternSummary");
    find(cmdRun, "cmdRun");
    find(cmdSave, "cmdSave");
    find(cmdExit, "cmdExit");
}

void RetroScreen::TakeControls() {
    FindControls();
    TakeDesign();
    for (auto* option : {optUnadjusted, optAdjusted_Generic, optStandard, optRossi})
        option->Click = [this] { VariableOption_Click(); };
    optSpatialSingleSigma->Click = [this] { optSpatialSingleSigma_Click(); };
    optSpatialSigmaRange->Click = [this] { optSpatialSigmaRange_Click(); };
    cboAlpha->Click = [this] { cboAlpha_Click(); };
    lstGlobalPatternSummary->Click = [this] { lstGlobalPatternSummary_Click(); };
    lstLocalPatternSummary->Click = [this] { LocalRow_Click(lstLocalPatternSummary->ListIndex()); };
    OnEvent(cmdRun, &QPushButton::clicked, this, [this] { cmdRun_Click(); });
    OnEvent(cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
}

void RetroScreen::Form_Load() {
    ForgetMaps();
    picEquation->LoadPicture(FormulaPicture(Variable()));
    ws.AlphaLevel = 0.05;
    cmdSave->setEnabled(false);
    cmdRun->setEnabled(rules_.RunsAtLoad);
    for (const double alpha : {0.05, 0.01})
        if (rules_.FillsAlphaAtLoad) cboAlpha->AddItem(GeneralText(alpha));
    if (rules_.FillsAlphaAtLoad) cboAlpha->ShowEntry(0);
}

void RetroScreen::Form_Unload() {
    RunLayer().Drop();
}

RetroVariable RetroScreen::Variable() const {
    if (optAdjusted_Generic->Value()) return RetroVariable::AdjustedPoisson;
    if (optStandard->Value()) return RetroVariable::FreemanTukey;
    if (optRossi->Value()) return RetroVariable::Rossi;
    return RetroVariable::Unadjusted;
}

bool RetroScreen::IsSingleSigma() const {
    return optSpatialSingleSigma->Value();
}

void RetroScreen::VariableOption_Click() {
    picEquation->LoadPicture(FormulaPicture(Variable()));
    cmdSave->setEnabled(false);
}

void RetroScreen::optSpatialSingleSigma_Click() {
    cmdSave->setEnabled(false);
    CloseChart();
}

void RetroScreen::optSpatialSigmaRange_Click() {
    // On points this click is meant to do nothing at all.
    if (rules_.RangeOptionDisablesSave) cmdSave->setEnabled(false);
}

void RetroScreen::cboAlpha_Click() {
    ws.AlphaLevel = ToNumber(cboAlpha->Text());
}

void RetroScreen::cmdRun_Click() {
    BeginRun();
    RunLayer().Drop();
    ClearForRun();
    try {
        if (!(IsSingleSigma() ? RunSingle() : RunRange())) return;
    } catch (...) { // the fault goes on to its report
        DropResults();
        throw;
    }
    cmdSave->setEnabled(true);
    OfferLayer();
}

/// What a run leaves that ended in a fault: nothing to save, and a map without results.
void RetroScreen::DropResults() {
    cmdSave->setEnabled(false);
    DisableMapTools();
    ForgetMapsOfRun();
    ws.DisplayClassValues.Clear();
    ws.DisplayDrawValues.Clear();
    ws.bRetroMapping = false;
}

void RetroScreen::ShowMap(Array1<double>& classValues, const Array1<double>& drawValues) {
    ShowRetroMap(classValues, drawValues);
    mapped_.insert(&classValues);
}

/// A run begins to fill the values of its variable's maps.
void RetroScreen::ForgetMapsOfRun() {
    mapped_.erase(&ws.DisplayClassValues);
    if (MapsScore(Variable())) mapped_.erase(&ws.MapClassScore);
    if (HasM(Variable())) mapped_.erase(&ws.MapClassM);
}

bool RetroScreen::RunSingle() {
    if (!TakeSingleSigma(txtSingleSigma->text().toStdString())) return false;
    platform().SetBusyPointer(true);
    ForgetMapsOfRun();
    RunSingleProcedures(Variable());
    const ResultLists lists = FillLists(Variable(), rules_);
    lstGlobalPatternSummary->AddItems(lists.Global);
    lstLocalPatternSummary->AddItems(lists.Local);
    ShowMap(MapClassValues(Variable()), MapDrawValues(Variable()));
    platform().SetBusyPointer(false);
    ShowMLegend(!MapsScore(Variable()));
    ws.bRetroMapping = true;
    FinishSingleRun();
    return true;
}

SweepTexts RetroScreen::RangeTexts() const {
    return {txtFromSigma->text().toStdString(), txtToSigma->text().toStdString(),
            txtStep->text().toStdString()};
}

bool RetroScreen::RunRange() {
    const bool ran = RunSweep(Variable(), RangeTexts(), rules_, [this](const std::string& row) {
        ForgetMapsOfRun();
        lstGlobalPatternSummary->AddItem(row);
        lstGlobalPatternSummary->RepaintNow();
    });
    if (!ran) return false;
    ws.bRetroMapping = true;
    FinishSweep();
    platform().SetBusyPointer(false);
    return true;
}

/// The rows are kept as they are now, with the classes of the legend in force.
void RetroScreen::OfferLayer() {
    const ResultTable rows = Kept(IsSingleSigma() ? SingleRows(Variable(), rules_) : RangeRows(rules_));
    RunLayer().Keep([this, rows] { return LayerOfStore(rows, rules_); }, Inputs());
    RunLayer().Offer();
}

void RetroScreen::lstGlobalPatternSummary_Click() {
    // Also after a single run, where this empties the two arrays and nothing else happens; it is meant so.
    ws.DisplayClassValues.ReDim(ws.NumRegion);
    ws.DisplayDrawValues.ReDim(ws.NumRegion);
    mapped_.erase(&ws.DisplayClassValues);
    if (!optSpatialSigmaRange->Value()) return;
    const std::ptrdiff_t step = SweepStepOfRow(lstGlobalPatternSummary->ListIndex());
    if (step >= 0 && ws.StatisticTable.IsAllocated()) {
        SelectSweepStep(step);
        ShowMap(ws.DisplayClassValues, ws.DisplayDrawValues);
    } else {
        DrawPlain();
    }
    ShowMLegend(!MapsScore(Variable()));
}

void RetroScreen::cmdSave_Click() {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", ""});
    if (choice.Path.empty()) return;
    const Computation writing;
    WriteTextFile(choice.Path,
                  IsSingleSigma() ? SingleReport(Variable(), rules_) : RangeReport(Variable(), rules_));
}

} // namespace vastrel
