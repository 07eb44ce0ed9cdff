#include "desktop/retrospective/frmCalculatePValue.h"

#include "core/platform/Platform.h"
#include "core/retrospective/PValueCalculator.h"
#include "desktop/toolkit/OnEvent.h"
#include "ui_frmCalculatePValue.h"

namespace vastrel {

frmCalculatePValue::frmCalculatePValue()
    : Screen(Kind::Child), ui_(std::make_unique<Ui::frmCalculatePValue>()) {
    ui_->setupUi(this);
    TakeDesign();
    CloseByEscape();
    ui_->optChiSquare->Click = [this] { optChiSquare_Click(); };
    OnEvent(ui_->cmdCalculate, &QPushButton::clicked, this, [this] { cmdCalculate_Click(); });
    OnEvent(ui_->cmdExit, &QPushButton::clicked, this, [this] { Unload(); });
}

frmCalculatePValue::~frmCalculatePValue() = default;

void frmCalculatePValue::Form_Load() {
    PlaceInFrame(2, 2);
    ui_->optNormal->Select();
}

QWidget* frmCalculatePValue::FirstControl() {
    return ui_->txtInputNormalZScore;
}

void frmCalculatePValue::optChiSquare_Click() {
    platform().ShowMessage(
        {"This p-value calculator generate an reasonable approximation only for the integer "
         "value of degree of freedom (DF).",
         "Attention!"});
}

void frmCalculatePValue::cmdCalculate_Click() {
    const auto text = [](QLineEdit* box) { return box->text().toStdString(); };
    if (ui_->optNormal->Value()) {
        if (const auto result = NormalResult(text(ui_->txtInputNormalZScore)))
            ui_->txtInputZScore_PValue->setText(QString::fromStdString(*result));
    } else if (ui_->optChiSquare->Value()) {
        if (const auto result = ChiSquareResult(text(ui_->txtInputChiSquare), text(ui_->txtInputDF)))
            ui_->txtChiSquarePValue->setText(QString::fromStdString(*result));
    }
}

} // namespace vastrel
