#include "desktop/frontend/MDIFrmMain.h"

#include "core/platform/Platform.h"
#include "core/spatial/AttributeRows.h"
#include "core/spatial/CentroidFile.h"
#include "core/workspace/Workspace.h"
#include "desktop/export/frmExportDataset.h"
#include "desktop/frontend/OpenFlows.h"
#include "desktop/frontend/frmAbout.h"
#include "desktop/prospective/frmCusumTools.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmCalculatePValue.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/spatial/frmAttTable.h"
#include "desktop/spatial/frmInfo.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screens.h"
#include "ui_MDIFrmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScreen>

/// Resources of a static library have to be asked for, from outside every namespace.
static void UseResources() {
    Q_INIT_RESOURCE(vastrel);
}

namespace vastrel {

MDIFrmMain::MDIFrmMain() : ui_(std::make_unique<Ui::MDIFrmMain>()) {
    ui_->setupUi(this);
    UseResources();
    QApplication::setWindowIcon(QIcon(":/vastrel.svg")); // of the dialogs too
    setWindowIcon(QApplication::windowIcon());
    auto* dataset = new QLabel(ui_->staMain);
    dataset->setObjectName("lblDataset");
    ui_->staMain->addPermanentWidget(dataset);
    screens().UseFrame(
        {ui_->mdiArea, this, [this] { ShowFrame(); },
         [this](const char* entry, bool enabled) { Entry(entry)->setEnabled(enabled); },
         [this](const std::string& text) { ui_->staMain->showMessage(QString::fromStdString(text)); },
         [dataset](const std::string& text) { dataset->setText(QString::fromStdString(text)); }});
    ConnectMenu();
}

MDIFrmMain::~MDIFrmMain() = default;

void MDIFrmMain::ConnectMenu() {
    ui_->mnuFile->insertSeparator(ui_->mnuExit)->setObjectName("mnuSepInFile");
    ui_->mnuHelp->insertSeparator(ui_->mnuAbout)->setObjectName("mnuSepInHelp");
    const auto command = [this](QAction* entry, std::function<void()> handler) {
        OnEvent(entry, &QAction::triggered, this, std::move(handler));
    };
    command(ui_->mnuExit, [] { platform().EndProcess(0); });
    command(ui_->mnuOpenShapeRetro, [this] { OpenShapeRetro(*this); });
    command(ui_->mnuOpenTextRetro, [this] { OpenText(The<frmClusterDetectionTextfile>()); });
    command(ui_->mnuOpenShapePro, [this] { OpenShapePro(*this); });
    command(ui_->mnuOpenTextPro, [this] { OpenText(The<frmUnivariateCusumTextfile>()); });
    command(ui_->mnuAttTable, [this] { mnuAttTable_Click(); });
    command(ui_->mnuCusumTool, [] { The<frmCusumTools>().Show(); });
    command(ui_->mnuExport, [] { The<frmExportDataset>().Show(); });
    command(ui_->mnuGetPValue, [] { The<frmCalculatePValue>().Show(); });
    command(ui_->mnuGetCentroid, [] { mnuGetCentroid(); });
    command(ui_->mnuManual, [this] { mnuManual_Click(); });
    command(ui_->mnuAbout, [] { The<frmAbout>().Show(); });
}

void MDIFrmMain::MDIFrmMain_Load() {
    for (auto* entry : {ui_->mnuAttTable, ui_->mnuGetCentroid, ui_->mnuExport})
        entry->setEnabled(false);
}

void MDIFrmMain::ShowFrame() {
    if (!loaded_) {
        loaded_ = true;
        MDIFrmMain_Load();
    }
    if (isVisible()) return;
    if (FitsDesktop(size(), screen()->availableSize()))
        show();
    else
        showMaximized();
}

bool MDIFrmMain::FitsDesktop(const QSize& frame, const QSize& desktop) {
    constexpr QSize titleAndBorders(16, 48); // as much as window managers take
    const QSize whole = frame + titleAndBorders;
    return whole.width() <= desktop.width() && whole.height() <= desktop.height();
}

void MDIFrmMain::Unload() {
    if (!loaded_) return;
    screens().UnloadChildren();
    The<frmInfo>().Unload();
    findChild<QLabel*>("lblDataset")->clear();
    loaded_ = false;
}

void MDIFrmMain::EnableShapeEntries() {
    for (auto* menu : {ui_->mnuScore_M, ui_->mnuUnivariateCusumShapefile})
        menu->setEnabled(true);
    for (auto* entry : {ui_->mnuGetCentroid, ui_->mnuAttTable, ui_->mnuExport})
        entry->setEnabled(true);
}

QAction* MDIFrmMain::Entry(const char* name) const {
    return findChild<QAction*>(name);
}

void MDIFrmMain::closeEvent(QCloseEvent* event) {
    event->accept();
    InBoundary([this] { Unload(); });
    platform().EndProcess(0);
}

void MDIFrmMain::OpenText(Screen& screen) {
    ws.bShapefileData = false;
    ws.bTextfileData = true;
    Unload();
    screen.Show(); // brings the frame back, as at the start
}

void MDIFrmMain::mnuAttTable_Click() {
    if (AttributeTable().EndOfFile()) AttributeTable().MoveFirst();
    The<frmAttTable>().Show();
    The<frmAttTable>().NameTable();
}

void MDIFrmMain::mnuManual_Click() {
    platform().ShowMessage({"See the manual (UserManual.pdf) coming together with Vastrel! ", "Manual Info.",
                            Message::Icon::Information});
}

} // namespace vastrel
