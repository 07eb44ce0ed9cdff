#pragma once

#include "display/PointMap.h"
#include "platform/qt/Screen.h"

#include <memory>

namespace Ui {
class frmClusterDetectionTextfile;
}

namespace vastrel {

struct SweepTexts;

/// The screen of the retrospective test on points, with its map and its chart. It reads the parameters, calls
/// the procedures, fills its two lists and hands the local values to the map.
class frmClusterDetectionTextfile : public Screen {
    Q_OBJECT

public:
    frmClusterDetectionTextfile();
    ~frmClusterDetectionTextfile() override;

    /// A point dataset has been loaded.
    void EnableRun();

protected:
    void Form_Load() override;

private:
    void ConnectControls();

    void VariableOption_Click();
    void optSpatialSingleSigma_Click();
    void cboAlpha_Click();
    void cmdLoadData_Click();
    void cmdRun_Click();
    void cmdSave_Click();
    void lstGlobalPatternSummary_Click();
    void lstLocalPatternSummary_Click();

    RetroVariable Variable() const;
    SweepTexts RangeTexts() const;
    bool RunSingle();
    bool RunRange();
    void ShowSweepChart();
    void ShowRetroMap(Array1<double>& classValues, const Array1<double>& drawValues);
    void ShowMLegend();
    void HideChart();
    void RedrawMap();

    std::unique_ptr<Ui::frmClusterDetectionTextfile> ui_;
    PointMap map_{RetroPointZoom};
};

} // namespace vastrel
