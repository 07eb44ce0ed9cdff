#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmInfo;
}

namespace vastrel {

/// The window that shows the attributes of one Region.
class frmInfo : public Screen {
    Q_OBJECT

public:
    frmInfo();
    ~frmInfo() override;

    /// Fills the list with the row of a Region, counted from 0, on which the attribute table then stands. The
    /// list stays empty for a Region at or past the row count.
    void FillInfoList(long region);

protected:
    void Form_Load() override;

private:
    std::unique_ptr<Ui::frmInfo> ui_;
};

} // namespace vastrel
