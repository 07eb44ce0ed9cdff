#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmTxtFileOpen;
}

namespace vastrel {

/// The dialog that goes on from a cusum file on polygons. OK makes the run and leaves the dialog standing.
class frmTxtFileOpen : public Screen {
    Q_OBJECT

public:
    frmTxtFileOpen();
    ~frmTxtFileOpen() override;

protected:
    void Form_Load() override;

private:
    void cmdOpen_Click();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmTxtFileOpen> ui_;
};

} // namespace vastrel
