#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>
#include <string>

namespace Ui {
class frmGraph;
}

namespace vastrel {

/// The chart window of one Region's cusums on polygons.
class frmGraph : public Screen {
    Q_OBJECT

public:
    frmGraph();
    ~frmGraph() override;

    /// Fills the window from CusumChartData without showing it; the text tells of the Region.
    void Fill(const std::string& text);

protected:
    void Form_Load() override;

private:
    std::unique_ptr<Ui::frmGraph> ui_;
};

} // namespace vastrel
