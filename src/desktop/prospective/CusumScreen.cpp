#include "desktop/prospective/CusumScreen.h"

#include "core/platform/Computation.h"
#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/prospective/CusumReport.h"
#include "core/prospective/CusumRows.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "desktop/toolkit/LayerEntry.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/OptionButton.h"
#include "pictures/LineChart.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <filesystem>

namespace vastrel {

void CusumScreen::FindControls() {
    const auto find = [this](auto*& control, const char* name) {
        control = findChild<std::remove_reference_t<decltype(control)>>(name);
        Q_ASSERT(control != nullptr);
    };
    find(optZero, "optZero");
    find(optFIR, "optFIR");
    find(optPre, "optPre");
    find(optFast, "optFast");
    find(optMedium, "optMedium");
    find(txtKvalue, "txtKvalue");
    find(txtHvalue, "txtHvalue");
    find(txtSigma, "txtSigma");
    find(cmdSaveResult, "cmdSaveResult");
    find(cmdSaveCusum, "cmdSaveCusum");
    find(MSChart1, "MSChart1");
    find(lstPeriod, "lstPeriod");
    find(lstRegion, "lstRegion");
    find(lblY, "lblY");
}

void CusumScreen::TakeControls() {
    FindControls();
    TakeDesign();
    lstPeriod->Click = [this] { lstPeriod_Click(); };
    lstRegion->Click = [this] { lstRegion_Click(); };
    OnEvent(cmdSaveResult, &QPushButton::clicked, this, [this] { cmdSaveResult_Click(); });
    OnEvent(cmdSaveCusum, &QPushButton::clicked, this, [this] { cmdSaveCusum_Click(); });
}

StartOption CusumScreen::Start() const {
    if (optZero->Value()) return StartOption::Zero;
    if (optFIR->Value()) return StartOption::FIR;
    return optPre->Value() ? StartOption::Previous : StartOption::None;
}

long CusumScreen::Delay() const {
    if (optFast->Value()) return rules_.FastDelay;
    return optMedium->Value() ? MediumDelay : SlowDelay;
}

CusumTexts CusumScreen::Parameters() const {
    return {txtKvalue->text().toStdString(), txtHvalue->text().toStdString(), txtSigma->text().toStdString()};
}

int CusumScreen::BeginLists() {
    const int run = BeginRun();
    RunLayer().Drop();
    lstPeriod->Clear();
    lstRegion->Clear();
    return run;
}

void CusumScreen::BeginRows() {
    platform().SetBusyPointer(true);
    lstPeriod->AddItems(PeriodTitleRows());
}

bool CusumScreen::RunOrDropResults(const std::function<bool()>& steps) {
    try {
        return steps();
    } catch (...) { // the fault goes on to its report
        cmdSaveResult->setEnabled(false);
        cmdSaveCusum->setEnabled(false);
        ForgetPeriodOnShow();
        throw;
    }
}

bool CusumScreen::Animate(int run, long delay, std::ptrdiff_t count,
                          const std::function<void(std::ptrdiff_t)>& frame) {
    for (std::ptrdiff_t t = 1; t <= count; ++t) {
        platform().Yield(delay + 1);
        if (run != Generation()) {
            platform().SetBusyPointer(false);
            return false;
        }
        frame(t);
    }
    return true;
}

void CusumScreen::FinishRun(StartOption start, std::ptrdiff_t lastPeriod) {
    lstPeriod->AddItem(CusumDashes());
    cmdSaveResult->setEnabled(true);
    cmdSaveCusum->setEnabled(start != StartOption::Previous || rules_.SavesContinuedRun);
    lstPeriod->SetListIndex(static_cast<int>(lastPeriod + 1));
    platform().SetBusyPointer(false);
}

void CusumScreen::AddPeriodRow(const std::string& row) {
    lstPeriod->AddItem(row);
}

void CusumScreen::ShowMaximumChart() {
    MSChart1->SetRows(ws.CusumChartData, ws.CusumChartLabels);
    MSChart1->show();
    MSChart1->Repaint();
}

void CusumScreen::ShowPeriodCaption(std::ptrdiff_t period) {
    lblY->setText(QString::fromStdString(rules_.PeriodCaption) + QString::number(period));
}

void CusumScreen::lstPeriod_Click() {
    const std::ptrdiff_t period = PeriodOfRow(lstPeriod->ListIndex(), ListedPeriods());
    if (period == 0) {
        lblY->clear();
        lstRegion->Clear();
        SelectNoPeriod();
        return;
    }
    SelectPeriod(period);
    ShowPeriodCaption(period);
    lstRegion->Clear();
    const CusumOutputs results = Results();
    Signaled() = SignaledRegions(results.Cusum, SignalCount(), period, ws.HValue);
    lstRegion->AddItems(SignaledRows(results.Cusum, SignalLabels(), period, Signaled()));
    PeriodSelected();
}

void CusumScreen::lstRegion_Click() {
    RegionPicked(Signaled().at(static_cast<size_t>(lstRegion->ListIndex())));
}

void CusumScreen::cmdSaveResult_Click() {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", ""});
    if (choice.Cancelled && !rules_.CancelledReportWarns) return;
    if (choice.Path.empty()) {
        Warn("You didn't specify data file.");
        platform().SetBusyPointer(false);
    } else if (Start() != StartOption::None) {
        const Computation writing;
        WriteTextFile(choice.Path, CusumReport(Results(), RegionCount(), ResultPeriods()));
    }
    cmdSaveResult->setEnabled(false);
}

void CusumScreen::cmdSaveCusum_Click() {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Save, "cusum files (*.csm)|*.csm", ".csm"});
    if (choice.Title.empty() || Start() == StartOption::None) return;
    // The file goes into the current folder, which the dialog has set. Errors pass unreported.
    const auto path = std::filesystem::current_path() / choice.Title;
    const Computation writing;
    try {
        WriteTextFile(path.string(), CusumLines());
    } catch (const RunTimeError&) {
    }
    if (!rules_.SavingCusumEndsSaving) return;
    cmdSaveResult->setEnabled(false);
    cmdSaveCusum->setEnabled(false);
}

} // namespace vastrel
