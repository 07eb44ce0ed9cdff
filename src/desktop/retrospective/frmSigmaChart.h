#pragma once

#include "core/retrospective/RetroVariable.h"
#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmSigmaChart;
}

namespace vastrel {

/// The chart window of a sweep on polygons: the statistic against its critical value.
class frmSigmaChart : public Screen {
    Q_OBJECT

public:
    frmSigmaChart();
    ~frmSigmaChart() override;

    /// Fills the chart from the last sweep and shows it.
    void ShowSweep(RetroVariable variable);

protected:
    void Form_Load() override;

private:
    std::unique_ptr<Ui::frmSigmaChart> ui_;
};

} // namespace vastrel
