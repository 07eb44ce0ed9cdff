#include "desktop/prospective/frmCusumTools.h"

#include "core/prospective/HValueCalculator.h"
#include "desktop/toolkit/OnEvent.h"
#include "ui_frmCusumTools.h"

namespace vastrel {

frmCusumTools::frmCusumTools() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmCusumTools>()) {
    ui_->setupUi(this);
    TakeDesign();
    CloseByEscape();
    OnEvent(ui_->cmdGetResult, &QPushButton::clicked, this, [this] { cmdGetResult_Click(); });
}

frmCusumTools::~frmCusumTools() = default;

void frmCusumTools::Form_Load() {
    PlaceInFrame(3, 2);
}

void frmCusumTools::cmdGetResult_Click() {
    struct Choice {
        OptionButton* Option;
        HValueOption Kind;
        QLineEdit* Result;
    };
    const Choice choices[] = {
        {ui_->optOverallRegion, HValueOption::Overall, ui_->txtHvalue_NoAdjustment},
        {ui_->optBonferroniCorrection, HValueOption::Bonferroni, ui_->txtBonferroni_Correction},
        {ui_->optAdjustForLocalStatistics, HValueOption::Spatial, ui_->txtLocalStatistics}};
    const std::pair<QLineEdit*, std::string HValueTexts::*> boxes[] = {
        {ui_->txtKvalue, &HValueTexts::K},
        {ui_->txtARL0, &HValueTexts::ARL0},
        {ui_->txtNumRegion, &HValueTexts::NumRegion},
        {ui_->txtSigma, &HValueTexts::Sigma}};
    for (const auto& [option, kind, result] : choices) {
        if (!option->Value()) continue;
        HValueTexts texts;
        for (const auto& [box, text] : boxes)
            texts.*text = box->text().toStdString();
        const auto h = HValueResult(kind, texts);
        for (const auto& [box, text] : boxes)
            box->setText(QString::fromStdString(texts.*text)); // one may have been emptied
        if (h) result->setText(QString::fromStdString(*h));
        return;
    }
}

} // namespace vastrel
