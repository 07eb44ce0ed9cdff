#pragma once

#include "desktop/toolkit/Screen.h"

#include <functional>
#include <memory>

namespace Ui {
class frmSelectDataFormat;
}

namespace vastrel {

/// The dialog that asks what the counts of a point text file mean, and loads it.
class frmSelectDataFormat : public Screen {
    Q_OBJECT

public:
    frmSelectDataFormat();
    ~frmSelectDataFormat() override;

protected:
    void Form_Load() override;

private:
    void cmdContinue_Click();

    std::unique_ptr<Ui::frmSelectDataFormat> ui_;
};

} // namespace vastrel
