#include "desktop/retrospective/frmSelectDataFormat.h"

#include "core/platform/Computation.h"
#include "core/retrospective/PointDataset.h"
#include "core/workspace/Workspace.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmSelectDataFormat.h"

namespace vastrel {

frmSelectDataFormat::frmSelectDataFormat()
    : Screen(Kind::Window), ui_(std::make_unique<Ui::frmSelectDataFormat>()) {
    ui_->setupUi(this);
    TakeDesign();
    OnEvent(ui_->cmdContinue, &QPushButton::clicked, this, [this] { cmdContinue_Click(); });
    OnEvent(ui_->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });
}

frmSelectDataFormat::~frmSelectDataFormat() = default;

void frmSelectDataFormat::Form_Load() {
    PlaceInFrame(2, 3); // a third of the height, where the other dialogs have half; it is meant so
}

void frmSelectDataFormat::cmdContinue_Click() {
    const FileChoice choice = platform().ChooseFile(
        {FileQuestion::Kind::Open, "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|", ""});
    if (choice.Title.empty()) return Warn("You didn't specify textfile.");
    const auto format = ui_->optObsExp->Value()    ? PointFormat::ObsExp
                        : ui_->optPopCase->Value() ? PointFormat::PopCase
                                                   : PointFormat::None;
    const Computation reading;
    if (!LoadPointDataset(choice.Path, format)) return Warn(WrongPointFormat);
    screens().ShowDataset(choice.Path, static_cast<std::ptrdiff_t>(ws.NumTextRegion), "points");
    Unload();
    The<frmClusterDetectionTextfile>().TakeDataset(choice.Path);
}

} // namespace vastrel
