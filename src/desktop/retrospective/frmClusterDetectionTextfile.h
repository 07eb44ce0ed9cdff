#pragma once

#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "desktop/display/PointTools.h"
#include "desktop/retrospective/RetroScreen.h"
#include "desktop/toolkit/LayerEntry.h"

#include <memory>

namespace Ui {
class frmClusterDetectionTextfile;
}

namespace vastrel {

/// The screen of the retrospective test on points. It carries its own map and its own chart.
class frmClusterDetectionTextfile : public RetroScreen {
    Q_OBJECT

public:
    frmClusterDetectionTextfile();
    ~frmClusterDetectionTextfile() override;

    /// A point dataset has been loaded from a file: it can be run, and what was run before can no longer be
    /// saved.
    void TakeDataset(const std::string& file);

    void FillWindowMenu(QMenu& menu) override;

protected:
    void Form_Load() override;

    void ClearForRun() override;
    void ShowRetroMap(Array1<double>& classValues, const Array1<double>& drawValues) override;
    void DrawPlain() override;
    void ShowMLegend(bool shown) override;
    void FinishSingleRun() override;
    void FinishSweep() override;
    void CloseChart() override;
    void LocalRow_Click(std::ptrdiff_t row) override;
    LayerEntry& RunLayer() override { return runLayer_; }
    std::vector<std::string> Inputs() const override { return {file_}; }

private:
    void ConnectMouse();
    void picPoint_MouseDown(double x, double y);
    void Identify(double x, double y);
    void RedrawMap();
    std::vector<QWidget*> ChartParts() const;

    std::unique_ptr<Ui::frmClusterDetectionTextfile> ui_;
    PointMap map_{RetroPointMapZoom.Start};
    LayerEntry runLayer_;
    std::string file_; // of the dataset
    PointTools tools_{map_, RetroPointMapZoom, [this] { RedrawMap(); }};
};

} // namespace vastrel
