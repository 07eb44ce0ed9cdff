#include "desktop/spatial/frmInfo.h"

#include "core/spatial/InfoList.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmInfo.h"

namespace vastrel {

namespace {

// The window stands at the left of the screen, below the map; in layout units.
constexpr int Width = 4635, Height = 4000, Top = 5780;
constexpr int UnitsOfPixel = 15;

} // namespace

frmInfo::frmInfo() : Screen(Kind::Window), ui_(std::make_unique<Ui::frmInfo>()) {
    ui_->setupUi(this);
    TakeDesign();
}

frmInfo::~frmInfo() = default;

void frmInfo::Form_Load() {
    resize(Width / UnitsOfPixel, Height / UnitsOfPixel);
    move(0, Top / UnitsOfPixel);
    ui_->lstInfo->Clear();
    ui_->lstInfo->setFont(ListBox::FixedFont());
}

void frmInfo::FillInfoList(long region) {
    ui_->lstInfo->Clear();
    ui_->lstInfo->AddItems(InfoListRows(region));
}

} // namespace vastrel
