#include "spatial/screens/frmAttTable.h"

#include "platform/Platform.h"
#include "platform/RunTimeError.h"
#include "spatial/AttributeRows.h"
#include "spatial/screens/AttributeModel.h"
#include "ui_frmAttTable.h"
#include "workspace/Workspace.h"

namespace vastrel {

frmAttTable::frmAttTable()
    : Screen(Kind::Child), ui_(std::make_unique<Ui::frmAttTable>()), grid_(new AttributeModel(this)) {
    ui_->setupUi(this);
    TakeDesign();
    ui_->MSFlexGrid1->setModel(grid_);
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
    constexpr int rowsToMeasure = 50;
    grid_->Show(nullptr);
    try {
        AttributeTable().MoveFirst();
        if (ws.DbfFilePath.find_first_not_of(' ') == std::string::npos) return;
        grid_->Show(ws.AttributeRecordset);
        ui_->MSFlexGrid1->horizontalHeader()->setResizeContentsPrecision(rowsToMeasure);
        ui_->MSFlexGrid1->resizeColumnsToContents();
    } catch (const RunTimeError& error) {
        Tell(error.Description());
        NameTable();
    }
}

} // namespace vastrel
