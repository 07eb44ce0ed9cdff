#include "desktop/frontend/frmParameter.h"

#include "core/platform/Platform.h"
#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "desktop/frontend/PolygonScreens.h"
#include "desktop/toolkit/OnEvent.h"
#include "ui_frmParameter.h"

namespace vastrel {

frmParameter::frmParameter() : Screen(Kind::Window), ui_(std::make_unique<Ui::frmParameter>()) {
    ui_->setupUi(this);
    TakeDesign();
    ConnectControls();
    UseForDataReset([this] { Show(); });
}

frmParameter::~frmParameter() = default;

void frmParameter::ConnectControls() {
    const std::pair<ComboBox*, std::string CountColumns::*> lists[] = {
        {ui_->cboBasePopulation, &CountColumns::Pop},
        {ui_->cboCase, &CountColumns::Case},
        {ui_->cboObs, &CountColumns::Obs},
        {ui_->cboExp, &CountColumns::Exp}};
    for (const auto& [list, column] : lists)
        list->Click = [this, list = list, column = column] { picked_.*column = list->Text(); };
    ui_->cboPrimaryID->Click = [this] {
        picked_.PrimaryID = ui_->cboPrimaryID->Text();
        TakePrimaryIDs(picked_.PrimaryID);
    };
    ui_->cboSecondaryID->Click = [this] {
        picked_.SecondaryID = ui_->cboSecondaryID->Text();
        TakeSecondaryIDs(picked_.SecondaryID);
    };
    ui_->optPopCase->Click = [this] { optPopCase_Click(); };
    ui_->optObsExp->Click = [this] { optObsExp_Click(); };
    OnEvent(ui_->chkSecondaryID, &QCheckBox::toggled, this, [this] { chkSecondaryID_Click(); });
    OnEvent(ui_->cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
}

void frmParameter::Form_Load() {
    PlaceInFrame(2, 2);
    picked_ = {};
    for (auto* list : {ui_->cboBasePopulation, ui_->cboCase, ui_->cboObs, ui_->cboExp})
        list->AddItems(NumericFieldNames());
    for (auto* list : {ui_->cboPrimaryID, ui_->cboSecondaryID})
        list->AddItems(FieldNames());
    ui_->cboSecondaryID->setEnabled(false);
    ui_->fraSecondaryID->setEnabled(false);
    ChooseFormat(CountFormat::PopCase);
    ws.bUseSecondaryID = false;
}

void frmParameter::ChooseFormat(CountFormat format) {
    format_ = format;
    const bool popCase = format == CountFormat::PopCase;
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->fraBasePop, ui_->cboBasePopulation, ui_->fraCase, ui_->cboCase})
        control->setEnabled(popCase);
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->fraObs, ui_->cboObs, ui_->fraExp, ui_->cboExp})
        control->setEnabled(!popCase);
}

void frmParameter::optPopCase_Click() {
    ChooseFormat(CountFormat::PopCase);
    ui_->cboObs->EmptyText();
    ui_->cboExp->EmptyText();
}

void frmParameter::optObsExp_Click() {
    ChooseFormat(CountFormat::ObsExp);
    ui_->cboBasePopulation->EmptyText();
    ui_->cboCase->EmptyText();
}

void frmParameter::chkSecondaryID_Click() {
    ws.bUseSecondaryID = ui_->chkSecondaryID->isChecked();
    ui_->cboSecondaryID->setEnabled(ws.bUseSecondaryID);
    ui_->fraSecondaryID->setEnabled(ws.bUseSecondaryID);
    if (!ws.bUseSecondaryID) ui_->cboSecondaryID->EmptyText();
}

/// The texts of the lists decide, not the columns that were picked in them.
const char* frmParameter::Missing() const {
    const CountColumns shown{
        ui_->cboBasePopulation->Text(), ui_->cboCase->Text(),       ui_->cboObs->Text(), ui_->cboExp->Text(),
        ui_->cboPrimaryID->Text(),      ui_->cboSecondaryID->Text()};
    return MissingColumns(format_, ui_->fraSecondaryID->isEnabled(), shown);
}

void frmParameter::cmdOK_Click() {
    if (const char* message = Missing()) return Warn(message);
    if (!BindCounts(format_, picked_)) return;
    Unload();
    ShowRetroScreen();
}

void frmParameter::Form_Unload() {
    if (Missing() != nullptr) return;
    if (picked_.LacksOne()) {
        ws.bRetroMapping = false;
        ws.bCusumMapping = false;
    }
    TakeAlphaValues();
}

} // namespace vastrel
