#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmSelectName;
}

namespace vastrel {

/// The dialog that names the id columns of a polygon dataset for the prospective test.
class frmSelectName : public Screen {
    Q_OBJECT

public:
    frmSelectName();
    ~frmSelectName() override;

protected:
    void Form_Load() override;

private:
    void cmdOK_Click();

    std::unique_ptr<Ui::frmSelectName> ui_;
};

} // namespace vastrel
