#include "desktop/display/frmPolygonSHP.h"

#include "core/display/BandwidthAnimation.h"
#include "core/display/CusumClasses.h"
#include "core/display/HitTest.h"
#include "core/display/PolygonPainter.h"
#include "core/platform/Platform.h"
#include "core/retrospective/Sweep.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/PolygonTools.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/MapPicture.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_frmPolygonSHP.h"

#include <QMdiArea>
#include <QResizeEvent>
#include <QToolBar>
#include <QToolTip>

namespace vastrel {

namespace {

struct ToolbarItem {
    const char* Key;
    const char* ToolTip;
    bool IsTool; // one of the exclusive group; otherwise a plain command
    bool EnabledAtLoad;
};

constexpr ToolbarItem Items[] = {
    {"ID", "Identify", true, true},
    {"ZoomIn", "Zoom in", true, true},
    {"ZoomOut", "Zoom out", true, true},
    {"Pan", "Pan", true, true},
    {"Find", "Pinpoint a subregion", true, false},
    {"Graph", "Show cusum in each subregion", true, false},
    {"FullExt", "Whole extent", false, true},
    {"MapAnimation", "Animation", false, false},
    {"Centroid", "Get centroids", false, true},
};

/// The items that a separator stands before.
bool BeginsGroup(const std::string& key) {
    return key == "FullExt" || key == "Centroid";
}

QString LabelColours(Colour colour) {
    return QString("background-color: #%1%2%3; color: %4; font: italic bold 12pt 'Times New Roman', "
                   "'Liberation Serif';")
        .arg(colour & 0xFF, 2, 16, QChar('0'))
        .arg((colour >> 8) & 0xFF, 2, 16, QChar('0'))
        .arg((colour >> 16) & 0xFF, 2, 16, QChar('0'))
        .arg(colour == 0xC00000 || colour == Colours::Red ? "white" : "black");
}

} // namespace

frmPolygonSHP::frmPolygonSHP() : Screen(Kind::Child), ui_(std::make_unique<Ui::frmPolygonSHP>()) {
    ui_->setupUi(this);
    setPalette(
        QPalette(QColor(239, 239, 239))); // light under a dark desktop too: its legend is printed on white
    ui_->picForm->setFrameStyle(QFrame::NoFrame);
    QLabel* labels[] = {ui_->lblLeg0, ui_->lblLeg1, ui_->lblLeg2, ui_->lblLeg3, ui_->lblLeg4};
    for (int i = 0; i < CusumClassCount; ++i)
        labels[i]->setStyleSheet(LabelColours(CusumSymbol(i).Outline));
    ui_->Label1->setStyleSheet("background-color: white;"); // the head of the legend has no caption
    BuildToolbar();
    TakeDesign();
    ui_->picSHP->MouseDown = [this](int, double x, double y) { PressOnPolygons(*this, x, y); };
    ui_->picSHP->MouseMove = [this](int, double x, double y) { MoveOnPolygons(*this, x, y); };
    ui_->picSHP->MouseUp = [this](int, double x, double y) { ReleaseOnPolygons(*this, x, y); };
    ui_->picSHP->DblClick = DoubleClickOnPolygons;
    ui_->sliderStatsRange->setTracking(false); // the map follows when the slider is let go
    OnEvent(ui_->sliderStatsRange, &QSlider::valueChanged, this, [this] { sliderStatsRange_Change(); });
    for (const auto moved : {&QSlider::sliderMoved, &QSlider::actionTriggered}) // by mouse and by keyboard
        OnEvent(ui_->sliderStatsRange, moved, this, [this] { sliderStatsRange_Scroll(); });
    screens().OnActivate(this, [this] { Form_Activate(); });
}

frmPolygonSHP::~frmPolygonSHP() = default;

void frmPolygonSHP::FillWindowMenu(QMenu& menu) {
    OfferMapPicture(menu, {ui_->picSHP, {ui_->picLegend, ui_->imgM_Legend}, ui_->picForm});
    RunLayer.AddTo(menu);
}

void frmPolygonSHP::BuildToolbar() {
    for (const ToolbarItem& item : Items) {
        const std::string key = item.Key;
        if (BeginsGroup(key)) ui_->Toolbar1->addSeparator();
        auto* button = ui_->Toolbar1->addAction(QIcon(QString(":/icons/%1.svg").arg(item.Key)), item.ToolTip);
        button->setCheckable(item.IsTool);
        button->setObjectName(item.Key);
        buttons_[key] = button;
        OnEvent(button, &QAction::triggered, this, [this, key] { Toolbar1_ButtonClick(key); });
    }
}

void frmPolygonSHP::Form_Load() {
    constexpr float width = 8025;
    constexpr float height = 5055;
    for (const ToolbarItem& item : Items) {
        EnableButton(item.Key, item.EnabledAtLoad);
        buttons_[item.Key]->setChecked(false);
    }
    HideAnimationControls();
    ShowCusumLegend(false);
    ShowMLegend(false);
    setWindowTitle(QString::fromStdString(ws.ShapeFileTitleSaved));
    Frame()->resize(static_cast<int>(width / LayoutUnit), static_cast<int>(height / LayoutUnit));
    resize(Frame()->contentsRect().size()); // a hidden window passes its size on only when it is shown
    Frame()->move(0, 0);
    ui_->picForm->Erase();
    arranged_ = {};
}

void frmPolygonSHP::Form_Unload() {
    RunLayer.Drop();
    for (const char* entry : {"mnuAttTable", "mnuGetCentroid"})
        screens().EnableEntry(entry, false);
}

void frmPolygonSHP::Form_Activate() {
    if (!IsLoaded()) return;
    for (const char* entry : {"mnuAttTable", "mnuGetCentroid"})
        screens().EnableEntry(entry, true);
    RedrawActivated(Map());
}

/// Fits the map to the window. Threshold and subtrahend of the width differ, which is meant.
void frmPolygonSHP::Form_Resize() {
    if (arranged_ == size()) return;
    arranged_ = size();
    const SurfaceSize before = ui_->picSHP->Size();
    const auto inUnits = [](int pixels) { return static_cast<float>(pixels * LayoutUnit); };
    const float newHeight = inUnits(height()) > 700 ? inUnits(height()) - 700 : before.Height;
    const float newWidth = inUnits(width()) > 2150 ? inUnits(width()) - 2100 : before.Width;
    ui_->picSHP->FixSize(newWidth, newHeight);
    ui_->picForm->setGeometry(rect());
    ui_->Toolbar1->setGeometry(0, 0, width(), ui_->Toolbar1->height());
    RedrawResized(Map());
}

void frmPolygonSHP::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    if (IsLoaded()) InBoundary([this] { Form_Resize(); });
}

PolygonMap frmPolygonSHP::Map() {
    return {*ui_->picForm, *ui_->picSHP, Test.Variable()};
}

bool frmPolygonSHP::IsShown() {
    return IsLoaded() && !Frame()->isHidden();
}

/// At the first show the order is load, resize, the drawing, activate, all within the call. A window whose
/// first drawing ended in a fault is loaded and waits for one that does not.
void frmPolygonSHP::Draw(const std::function<void(const PolygonMap&)>& drawing) {
    if (!IsLoaded() && ws.ShapeFilePath.empty()) return; // nothing to be drawn
    const bool shown = IsShown();
    if (!shown) {
        Load();
        Form_Resize();
    }
    drawing(Map());
    if (!shown) Show();
}

void frmPolygonSHP::DrawPlainMap() {
    Draw([](const PolygonMap& map) { vastrel::DrawPlainMap(map.picSHP); });
}

void frmPolygonSHP::DrawPlainMapNoPan() {
    Draw([](const PolygonMap& map) { vastrel::DrawPlainMapNoPan(map.picSHP); });
}

void frmPolygonSHP::ShowRetroMap(Array1<double>& classValues, const Array1<double>& drawValues) {
    Draw([&](const PolygonMap& map) { vastrel::ShowRetroMap(map, classValues, drawValues); });
}

void frmPolygonSHP::DrawCusumMap(std::ptrdiff_t period) {
    Draw([period](const PolygonMap& map) { vastrel::DrawCusumMap(map.picSHP, period); });
}

void frmPolygonSHP::DrawHighlight(std::ptrdiff_t region) {
    Draw([region](const PolygonMap& map) { vastrel::DrawHighlight(map.picSHP, region); });
}

void frmPolygonSHP::ClearMap() {
    const bool shown = IsShown();
    const auto clear = [](const PolygonMap& map) {
        ClearPrint(map);
        vastrel::DrawPlainMap(map.picSHP);
    };
    Draw(clear);
    if (!shown) Draw(clear); // coming to the front has painted the statistic of an earlier run
}

void frmPolygonSHP::ClearMapIfOpen(bool withSettledPan) {
    if (!IsLoaded()) return;
    if (withSettledPan) return ClearMap();
    DrawPlainMapNoPan();
}

void frmPolygonSHP::EnableButton(const std::string& key, bool enabled) {
    buttons_.at(key)->setEnabled(enabled);
}

void frmPolygonSHP::PressTool(const std::string& key, bool pressed) {
    for (const ToolbarItem& item : Items)
        if (pressed && item.IsTool) buttons_.at(item.Key)->setChecked(false); // one tool at a time
    buttons_.at(key)->setChecked(pressed);
}

bool frmPolygonSHP::IsToolPressed(const std::string& key) const {
    return buttons_.at(key)->isChecked();
}

void frmPolygonSHP::ShowMLegend(bool shown) {
    if (shown) ui_->imgM_Legend->LoadPicture("M_Legend.jpg");
    ui_->imgM_Legend->setVisible(shown);
}

void frmPolygonSHP::ShowCusumLegend(bool shown) {
    ui_->picLegend->setVisible(shown);
}

void frmPolygonSHP::HideAnimationControls() {
    ui_->sliderStatsRange->hide();
    ui_->lblAni->hide();
}

void frmPolygonSHP::Toolbar1_ButtonClick(const std::string& key) {
    if (key == "FullExt")
        ShowWholeExtent(Map());
    else if (key == "Centroid")
        ShowCentroids(*ui_->picSHP);
    else if (key == "MapAnimation")
        Animate();
    else
        PressTool(key, true); // the tools act on the mouse
}

void frmPolygonSHP::Animate() {
    const int run = BeginRun();
    const int testRun = Test.Generation(); // another run, and the end of the test, end the animation too
    const bool ended = AnimateBandwidths({[&] { return run == Generation() && testRun == Test.Generation(); },
                                          [this] { return Map(); }, Test.PickGlobalRow});
    if (!ended) return;
    ui_->sliderStatsRange->show();
    ui_->lblAni->show();
    const QSignalBlocker silent(ui_->sliderStatsRange); // a new maximum fires nothing
    ui_->sliderStatsRange->setMaximum(ws.BandwidthCount - 1);
}

void frmPolygonSHP::sliderStatsRange_Scroll() {
    const int k = ui_->sliderStatsRange->sliderPosition();
    const QString tip = QString::fromStdString(BandwidthTip(k));
    ui_->sliderStatsRange->setToolTip(tip);
    // Seen while the slider moves, too: the toolkit shows a tip only to a pointer that rests.
    QToolTip::showText(ui_->sliderStatsRange->mapToGlobal(ui_->sliderStatsRange->rect().bottomLeft()), tip,
                       ui_->sliderStatsRange);
}

void frmPolygonSHP::sliderStatsRange_Change() {
    const int k = ui_->sliderStatsRange->value();
    TakeSweepValues(k);
    ShowRetroMap(ws.DisplayClassValues, ws.DisplayDrawValues);
    Test.PickGlobalRow(RowOfSweepStep(k));
}

} // namespace vastrel
