#include "desktop/spatial/frmAttTable.h"

#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "desktop/spatial/AttributeModel.h"
#include "desktop/toolkit/TextCopy.h"
#include "ui_frmAttTable.h"

#include <algorithm>

namespace vastrel {

namespace {

/// Reads every number once; all other values can be read.
void CheckValues(Recordset& table) {
    for (int k = 0; k < table.FieldCount(); ++k)
        for (int row = 0; IsNumberType(table.Fields(k).Type()) && row < table.RecordCount(); ++row)
            table.ValueAt(row, k);
}

} // namespace

frmAttTable::frmAttTable()
    : Screen(Kind::Child), ui_(std::make_unique<Ui::frmAttTable>()), grid_(new AttributeModel(this)) {
    ui_->setupUi(this);
    TakeDesign();
    ui_->MSFlexGrid1->setModel(grid_);
    OfferTextCopy(*ui_->MSFlexGrid1);
}

frmAttTable::~frmAttTable() = default;

void frmAttTable::TakeTable() {
    if (IsLoaded())
        Fill();
    else
        Load();
    NameTable();
}

void frmAttTable::NameTable() {
    setWindowTitle(QString::fromStdString(ws.DbfTableName));
}

void frmAttTable::Form_Load() {
    setWindowTitle("Attribute Table");
    Fill();
}

void frmAttTable::Fill() {
    grid_->Show(nullptr);
    try {
        AttributeTable().MoveFirst();
        if (ws.DbfFilePath.find_first_not_of(' ') == std::string::npos) return;
        CheckValues(AttributeTable());
        grid_->Show(ws.AttributeRecordset);
        FitColumns();
    } catch (const RunTimeError& error) {
        Tell(error.Description());
        NameTable();
    }
}

/// So many cells are measured that all of an ordinary table are, and a large one still shows at once.
void frmAttTable::FitColumns() {
    constexpr int cellsToMeasure = 10000;
    const int rows = cellsToMeasure / std::max(1, grid_->columnCount());
    ui_->MSFlexGrid1->horizontalHeader()->setResizeContentsPrecision(rows);
    ui_->MSFlexGrid1->resizeColumnsToContents();
}

} // namespace vastrel
