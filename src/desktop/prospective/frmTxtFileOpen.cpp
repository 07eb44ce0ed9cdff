#include "desktop/prospective/frmTxtFileOpen.h"

#include "core/platform/Computation.h"
#include "core/platform/RunTimeError.h"
#include "core/prospective/CusumFile.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmTxtFileOpen.h"

#include <filesystem>

namespace vastrel {

frmTxtFileOpen::frmTxtFileOpen() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmTxtFileOpen>()) {
    ui_->setupUi(this);
    TakeDesign();
    CloseByEscape();
    OnEvent(ui_->cmdOpen, &QPushButton::clicked, this, [this] { cmdOpen_Click(); });
    OnEvent(ui_->cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    OnEvent(ui_->cmdExit, &QPushButton::clicked, this, [this] { Unload(); });
}

frmTxtFileOpen::~frmTxtFileOpen() = default;

void frmTxtFileOpen::Form_Load() {
    PlaceInFrame(1.7, 4.7);
    The<frmUnivariate>().DisableSaveCusum();
}

void frmTxtFileOpen::cmdOpen_Click() {
    const FileChoice choice =
        platform().ChooseFile({FileQuestion::Kind::Open, "cusum files (*.csm)|*.csm", ".csm"});
    if (choice.Title.empty()) return; // the table of an earlier choice stays
    const auto path = (std::filesystem::current_path() / choice.Title).string();
    const Computation reading;
    try {
        ReadCusumFile(path);
    } catch (const RunTimeError&) { // errors pass over here
    }
    ui_->txtOpenFilePath->setText(QString::fromStdString(path));
}

void frmTxtFileOpen::cmdOK_Click() {
    // Nothing looks whether a file was opened, or whether it fits.
    The<frmUnivariate>().Continue(ui_->optPreviousCurrent->Value() ? ShownPeriods::SavedAndNew
                                                                   : ShownPeriods::New,
                                  ui_->txtOpenFilePath->text().toStdString());
}

} // namespace vastrel
