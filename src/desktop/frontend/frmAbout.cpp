#include "desktop/frontend/frmAbout.h"

#include "ui_frmAbout.h"

namespace vastrel {

frmAbout::frmAbout() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmAbout>()) {
    ui_->setupUi(this);
    TakeDesign();
    CloseByEscape();
    setFocusPolicy(Qt::ClickFocus); // it has no control that the keyboard could begin at
    ui_->Image1->Click = [this] { Unload(); };
}

frmAbout::~frmAbout() = default;

void frmAbout::Form_Load() {
    ui_->Image1->LoadPicture("about.jpg");
    PlaceInFrame(2, 2);
}

} // namespace vastrel
