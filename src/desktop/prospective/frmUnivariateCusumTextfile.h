#pragma once

#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "core/prospective/PointCusum.h"
#include "desktop/prospective/CusumScreen.h"
#include "desktop/prospective/WatchTools.h"
#include "desktop/toolkit/LayerEntry.h"

#include <memory>

namespace Ui {
class frmUnivariateCusumTextfile;
}

namespace vastrel {

/// The screen of the prospective test on points, with its map and its two charts. The dataset, its results
/// and the period on show are its own, not the store's.
class frmUnivariateCusumTextfile : public CusumScreen {
    Q_OBJECT

public:
    frmUnivariateCusumTextfile();
    ~frmUnivariateCusumTextfile() override;

    void FillWindowMenu(QMenu& menu) override;

protected:
    void Form_Load() override;
    void Form_Unload() override { runLayer_.Drop(); }

    CusumOutputs Results() override { return watch_.Outputs(Start()); }
    std::ptrdiff_t RegionCount() const override { return watch_.N; }
    std::ptrdiff_t ListedPeriods() const override { return SavedPeriods() + watch_.NewPeriodCount; }
    void SelectPeriod(std::ptrdiff_t period) override { selectedPointPeriod_ = period; }
    void ForgetPeriodOnShow() override { currentPeriod_ = NoPeriod; }
    void PeriodSelected() override;
    std::vector<std::ptrdiff_t>& Signaled() override { return signaledRegions_; }
    std::ptrdiff_t SignalCount() const override { return watch_.N; }
    Array1<std::string> SignalLabels() override { return Results().RegionLabel; }
    void RegionPicked(std::ptrdiff_t region) override;
    std::ptrdiff_t ResultPeriods() const override { return watch_.PeriodCount(Start()); }
    std::vector<std::string> CusumLines() override;
    LayerEntry& RunLayer() override { return runLayer_; }

private:
    void ConnectControls();

    void StartOption_Click();
    void optFIR_Click();
    void cmdFileOpenIDXY_Click();
    void cmdNewZScore_Click();
    void cmdOldCusum_Click();
    void cmdRun_Click();

    std::ptrdiff_t SavedPeriods() const;

    bool RunFromStart(int run);
    bool RunFromSaved(int run);
    bool Play(int run, std::ptrdiff_t saved);

    void KeepLayer();
    void DisableSave();
    void EnableNewZScore(bool enabled);
    void EnableOldCusum(bool enabled);
    void AddPeriodRowTextfile(std::ptrdiff_t t);
    void TakePoints();
    void DrawCusumPoints(std::ptrdiff_t period);
    void Redraw();
    void ShowRegion(std::ptrdiff_t region, std::ptrdiff_t period);
    void IdentifyRegion(std::ptrdiff_t region);

    static constexpr std::ptrdiff_t NoPeriod = -1; // behind a run that ended in a fault

    std::unique_ptr<Ui::frmUnivariateCusumTextfile> ui_;

    PointCusum watch_;
    LayerEntry runLayer_;
    PointMap map_{ProspectivePointMapZoom.Start};
    WatchTools tools_{map_,
                      {[this] { Redraw(); }, [this](std::ptrdiff_t region) { IdentifyRegion(region); }}};
    std::vector<std::ptrdiff_t> signaledRegions_;
    std::ptrdiff_t selectedPointPeriod_ = 0;
    std::ptrdiff_t selectedPointRegion_ = 0; // from 0
    std::ptrdiff_t currentPeriod_ = 0;       // on show
};

} // namespace vastrel
