#include "desktop/export/frmExportDataset.h"

#include "core/platform/Computation.h"
#include "core/spatial/AttributeRows.h"
#include "core/text/TextFile.h"
#include "desktop/toolkit/OnEvent.h"
#include "ui_frmExportDataset.h"

namespace vastrel {

frmExportDataset::frmExportDataset() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmExportDataset>()) {
    ui_->setupUi(this);
    TakeDesign();
    CloseByEscape();
    const auto connect = [this](ExportList list, ComboBox* box, ComboBox* next) {
        box->Click = [=, this] { TakeColumn(list, box, next); };
    };
    connect(ExportList::ObsFrom, ui_->cboObsFrom, ui_->cboObsTo);
    connect(ExportList::ObsTo, ui_->cboObsTo, ui_->cboExpFrom);
    connect(ExportList::ExpFrom, ui_->cboExpFrom, ui_->cboExpTo);
    connect(ExportList::ExpTo, ui_->cboExpTo, nullptr);
    OnEvent(ui_->cmdExport, &QPushButton::clicked, this, [this] { cmdExport_Click(); });
}

frmExportDataset::~frmExportDataset() = default;

void frmExportDataset::Form_Load() {
    PlaceInFrame(2, 2);
    for (auto* box : {ui_->cboObsFrom, ui_->cboObsTo, ui_->cboExpFrom, ui_->cboExpTo})
        box->AddItems(FieldNames());
}

void frmExportDataset::TakeColumn(ExportList list, ComboBox* box, ComboBox* next) {
    if (!TakeExportColumn(list, box->ListIndex()))
        box->EmptyText();
    else if (next != nullptr)
        next->setEnabled(true);
}

ExportOption frmExportDataset::Option() const {
    return ui_->optGeneric->Value()    ? ExportOption::Poisson
           : ui_->optStandard->Value() ? ExportOption::Standard
           : ui_->optRossi->Value()    ? ExportOption::Rossi
                                       : ExportOption::None;
}

void frmExportDataset::cmdExport_Click() {
    for (const auto* box : {ui_->cboObsFrom, ui_->cboObsTo, ui_->cboExpFrom, ui_->cboExpTo})
        if (box->Text().empty()) return Warn(ExportNotSelected);
    if (!TakeExportSigma(ui_->txtSigma->text().toStdString())) return;
    {
        const Computation periods;
        if (!ComputeExport(Option())) return;
    }
    const FileChoice choice = platform().ChooseFile({FileQuestion::Kind::Save, ExportFilter, ""});
    if (choice.Cancelled || choice.Path.empty()) return;
    WriteTextFile(choice.Path, ExportLines());
}

} // namespace vastrel
