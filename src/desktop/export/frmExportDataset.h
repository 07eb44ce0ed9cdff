#pragma once

#include "core/export/ExportColumns.h"
#include "core/export/ExportDataset.h"
#include "desktop/toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmExportDataset;
}

namespace vastrel {

class ComboBox;

/// The screen that exports count columns of a polygon dataset as a file of z-values.
class frmExportDataset : public Screen {
    Q_OBJECT

public:
    frmExportDataset();
    ~frmExportDataset() override;

protected:
    void Form_Load() override;

private:
    /// The next list is enabled once a column has passed.
    void TakeColumn(ExportList list, ComboBox* box, ComboBox* next);
    void cmdExport_Click();

    ExportOption Option() const;

    std::unique_ptr<Ui::frmExportDataset> ui_;
};

} // namespace vastrel
