#pragma once

#include "core/binding/ColumnBinding.h"
#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmParameter;
}

namespace vastrel {

/// The dialog that binds the columns of a polygon dataset for the retrospective test. It is modal behind the
/// opening of a shapefile and modeless behind the button that resets the data.
class frmParameter : public Screen {
    Q_OBJECT

public:
    frmParameter();
    ~frmParameter() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void ConnectControls();

    void optPopCase_Click();
    void optObsExp_Click();
    void chkSecondaryID_Click();
    void cmdOK_Click();

    void ChooseFormat(CountFormat format);
    const char* Missing() const;

    std::unique_ptr<Ui::frmParameter> ui_;
    CountFormat format_ = CountFormat::PopCase;
    CountColumns picked_; // the last column picked in each list, also of the other format
};

} // namespace vastrel
