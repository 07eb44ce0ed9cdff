#pragma once

#include "display/PointMap.h"
#include "platform/qt/Screen.h"
#include "prospective/CusumParameters.h"
#include "prospective/CusumRules.h"
#include "prospective/PointCusum.h"
#include "prospective/screens/WatchTools.h"

#include <memory>
#include <vector>

namespace Ui {
class frmUnivariateCusumTextfile;
}

namespace vastrel {

/// The screen of the prospective test on points, with its map and its two charts. The dataset, its results
/// and the period on show are its own, not the store's.
class frmUnivariateCusumTextfile : public Screen {
    Q_OBJECT

public:
    frmUnivariateCusumTextfile();
    ~frmUnivariateCusumTextfile() override;

protected:
    void Form_Load() override;

private:
    void ConnectControls();

    void StartOption_Click();
    void optFIR_Click();
    void cmdFileOpenIDXY_Click();
    void cmdNewZScore_Click();
    void cmdOldCusum_Click();
    void cmdRun_Click();
    void cmdSaveResult_Click();
    void cmdSaveCusum_Click();
    void lstPeriod_Click();
    void lstRegion_Click();

    StartOption Start() const;
    long Delay() const;
    CusumTexts Parameters() const;
    std::ptrdiff_t SavedPeriods() const;

    void RunFromStart(int run);
    void RunFromSaved(int run);
    bool Animate(int run, std::ptrdiff_t saved);
    void FinishRun();

    void EnableNewZScore(bool enabled);
    void EnableOldCusum(bool enabled);
    void AddPeriodRowTextfile(std::ptrdiff_t t);
    void DrawCusumPoints(std::ptrdiff_t period);
    void ListSignaledRegion(std::ptrdiff_t period);
    void ShowMaximumChart();
    void ShowRegion(std::ptrdiff_t region, std::ptrdiff_t period);
    void IdentifyRegion(std::ptrdiff_t region);

    std::unique_ptr<Ui::frmUnivariateCusumTextfile> ui_;

    PointCusum watch_;
    PointMap map_{ProspectivePointZoom};
    WatchTools tools_{map_,
                      {[this] { DrawCusumPoints(currentPeriod_); },
                       [this](std::ptrdiff_t region) { IdentifyRegion(region); }}};
    std::vector<std::ptrdiff_t> signaledRegions_;
    std::ptrdiff_t selectedPointPeriod_ = 0;
    std::ptrdiff_t selectedPointRegion_ = 0; // from 0
    std::ptrdiff_t currentPeriod_ = 0;       // on show
};

} // namespace vastrel
