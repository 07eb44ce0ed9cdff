#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmCusumTools;
}

namespace vastrel {

/// The calculator of a threshold h from a wanted in-control run length.
class frmCusumTools : public Screen {
    Q_OBJECT

public:
    frmCusumTools();
    ~frmCusumTools() override;

protected:
    void Form_Load() override;

private:
    void cmdGetResult_Click();

    std::unique_ptr<Ui::frmCusumTools> ui_;
};

} // namespace vastrel
