#include "desktop/frontend/frmSelectName.h"

#include "core/binding/CusumNames.h"
#include "core/spatial/AttributeRows.h"
#include "desktop/frontend/PolygonScreens.h"
#include "desktop/toolkit/OnEvent.h"
#include "ui_frmSelectName.h"

namespace vastrel {

frmSelectName::frmSelectName() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmSelectName>()) {
    ui_->setupUi(this);
    TakeDesign();
    CloseByEscape();
    OnEvent(ui_->chkPrimaryID, &QCheckBox::toggled, this,
            [this] { ui_->cmbName1->setEnabled(ui_->chkPrimaryID->isChecked()); });
    OnEvent(ui_->chkSecondary, &QCheckBox::toggled, this,
            [this] { ui_->cmbName2->setEnabled(ui_->chkSecondary->isChecked()); });
    OnEvent(ui_->cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
}

frmSelectName::~frmSelectName() = default;

void frmSelectName::Form_Load() {
    PlaceInFrame(2, 2);
    for (auto* list : {ui_->cmbName1, ui_->cmbName2}) {
        list->Clear();
        list->AddItems(FieldNames());
        list->SetListIndex(0);
    }
}

void frmSelectName::cmdOK_Click() {
    if (!TakeCusumNames({ui_->chkPrimaryID->isChecked(), ui_->cmbName1->Text(),
                         ui_->chkSecondary->isChecked(), ui_->cmbName2->Text()}))
        return;
    Unload();
    ShowWatchScreen();
}

} // namespace vastrel
