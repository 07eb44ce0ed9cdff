#pragma once

#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmAttTable;
}

namespace vastrel {

class AttributeModel;

/// The grid of all rows of the open attribute table.
class frmAttTable : public Screen {
    Q_OBJECT

public:
    frmAttTable();
    ~frmAttTable() override;

    /// After a shapefile was opened: fills the grid anew and names the table in the caption. A screen that is
    /// not loaded is loaded for that, without being shown.
    void TakeTable();

    void NameTable();

protected:
    void Form_Load() override;

private:
    void Fill();
    void FitColumns();

    std::unique_ptr<Ui::frmAttTable> ui_;
    AttributeModel* grid_;
};

} // namespace vastrel
