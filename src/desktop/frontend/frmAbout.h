#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmAbout;
}

namespace vastrel {

/// The About box: one picture. A click on it closes the box.
class frmAbout : public Screen {
    Q_OBJECT

public:
    frmAbout();
    ~frmAbout() override;

protected:
    void Form_Load() override;

private:
    std::unique_ptr<Ui::frmAbout> ui_;
};

} // namespace vastrel
