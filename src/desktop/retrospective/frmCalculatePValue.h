#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmCalculatePValue;
}

namespace vastrel {

/// The p-value calculator of the Tool menu.
class frmCalculatePValue : public Screen {
    Q_OBJECT

public:
    frmCalculatePValue();
    ~frmCalculatePValue() override;

protected:
    void Form_Load() override;
    QWidget* FirstControl() override;

private:
    void optChiSquare_Click();
    void cmdCalculate_Click();

    std::unique_ptr<Ui::frmCalculatePValue> ui_;
};

} // namespace vastrel
