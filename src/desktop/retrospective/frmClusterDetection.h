#pragma once

#include "desktop/retrospective/RetroScreen.h"

#include <functional>
#include <memory>

namespace Ui {
class frmClusterDetection;
}

namespace vastrel {

/// The screen of the retrospective test on polygons. It draws on the map window, its chart is a window of its
/// own, and its data come from the columns bound by the column dialog.
class frmClusterDetection : public RetroScreen {
    Q_OBJECT

public:
    frmClusterDetection();
    ~frmClusterDetection() override;

    /// What the column dialog does at its end: adds the two alpha values to the list, which grows, sets alpha
    /// to 0.05 whatever the list shows, and disables Save. Loads the screen.
    void TakeAlphaValues();

    /// What Data Reset shows again: the column dialog, which stands above this screen and hands itself over.
    std::function<void()> ShowDataInput = [] {};

protected:
    void Form_Load() override;
    void Form_Unload() override;

    void ClearForRun() override;
    void ShowRetroMap(Array1<double>& classValues, const Array1<double>& drawValues) override;
    void DrawPlain() override;
    void ShowMLegend(bool shown) override;
    void FinishSingleRun() override;
    void FinishSweep() override;
    void DisableMapTools() override;
    void CloseChart() override;
    void LocalRow_Click(std::ptrdiff_t row) override;
    LayerEntry& RunLayer() override;
    std::vector<std::string> Inputs() const override;

private:
    void cmdExit_Click();

    std::unique_ptr<Ui::frmClusterDetection> ui_;
};

} // namespace vastrel
