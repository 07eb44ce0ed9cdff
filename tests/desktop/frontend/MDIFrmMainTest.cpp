#include "desktop/frontend/MDIFrmMain.h"

#include "core/workspace/Workspace.h"
#include "desktop/frontend/frmAbout.h"
#include "desktop/prospective/frmCusumTools.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmCalculatePValue.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSelectDataFormat.h"
#include "support/screens/ScreenTest.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

using namespace vastrel;

namespace {

/// The entries of a menu, a line each: its name and caption, indented by its depth.
std::string TreeOf(const QList<QAction*>& entries, const std::string& indent = "") {
    std::string tree;
    for (const QAction* entry : entries) {
        const QObject* named = entry->menu() != nullptr ? static_cast<QObject*>(entry->menu()) : entry;
        tree += indent +
                (entry->isSeparator()
                     ? named->objectName().toStdString() + " -"
                     : named->objectName().toStdString() + " \"" + entry->text().toStdString() + "\"") +
                "\n";
        if (entry->menu() != nullptr) tree += TreeOf(entry->menu()->actions(), indent + "  ");
    }
    return tree;
}

class FrameTest : public ScreenTest {
protected:
    std::vector<std::string> Disabled() {
        std::vector<std::string> names;
        for (const auto* entry : Frame.findChildren<QAction*>())
            if (entry->objectName().startsWith("mnu") && !entry->isEnabled())
                names.push_back(entry->objectName().toStdString());
        std::sort(names.begin(), names.end());
        return names;
    }

    const std::vector<std::string> AtStart{"mnuAttTable", "mnuExport", "mnuGetCentroid"};
};

} // namespace

TEST_F(FrameTest, HasTheMenuToTheLetter) {
    EXPECT_EQ(TreeOf(Frame.menuBar()->actions()),
              R"tree(mnuFile "&File"
  mnuSepInFile -
  mnuExit "&Exit"
mnuClusterDetecton "&Cluster Detection"
  mnuRetrospectiveTest "&Retrospective Test"
    mnuScore_M "&Score and M Statistic"
      mnuOpenShapeRetro "&Polygon (ESRI Shapefile)"
      mnuOpenTextRetro "&Point (Text File)"
  mnuProspectiveTest "&Prospective Test"
    mnuUnivariateCusumShapefile "&Cusum for Normal Variate (Univariate)"
      mnuOpenShapePro "&Polygon (ESRI Shapefile)"
      mnuOpenTextPro "&Point (Text File)"
mnuTool "&Tool"
  mnuAttTable "&View Attribute of Shapefile"
  mnuCusumTool "&Cusum Tool"
  mnuExport "&Export"
  mnuGetPValue "&Get p-value"
  mnuGetCentroid "&Get Centroid"
mnuHelp "&Help"
  mnuManual "&Manual"
  mnuSepInHelp -
  mnuAbout "& About Vastrel"
)tree");
    EXPECT_EQ(Frame.windowTitle(), "Vastrel (Ver1.1)");
    EXPECT_NE(Frame.findChild<QStatusBar*>("staMain"), nullptr);
}

TEST_F(FrameTest, StartsWithThreeEntriesDisabled) {
    EXPECT_EQ(Disabled(), AtStart);
    EXPECT_EQ(Frame.size(), QSize(1280, 860));
}

TEST_F(FrameTest, ShowsItsToolsAndKeepsThemTogether) {
    Command("mnuCusumTool");
    Command("mnuGetPValue");
    Command("mnuAbout");
    Command("mnuCusumTool"); // once more: comes to the front
    EXPECT_TRUE(The<frmCusumTools>().isVisible());
    EXPECT_TRUE(The<frmCalculatePValue>().isVisible());
    EXPECT_TRUE(The<frmAbout>().isVisible());
    Shot(Frame, "frame-tools");
}

TEST_F(FrameTest, NamesTheManual) {
    Script.ExpectMessage("See the manual (UserManual.pdf) coming together with Vastrel! ", "Manual Info.",
                         Message::Icon::Information);
    Command("mnuManual");
}

TEST_F(FrameTest, ComesBackAsAtTheStartWithAPointScreen) {
    struct Row {
        const char* Entry;
        Screen& Shown;
    };
    const Row rows[] = {{"mnuOpenTextRetro", The<frmClusterDetectionTextfile>()},
                        {"mnuOpenTextPro", The<frmUnivariateCusumTextfile>()}};
    for (const auto& [entry, shown] : rows) {
        ws.bShapefileData = true;
        ws.NumRegion = 7; // the store outlives the screens
        for (const auto& name : AtStart)
            Frame.Entry(name.c_str())->setEnabled(true); // as an open shapefile leaves them
        Command("mnuGetPValue");
        Command(entry);
        EXPECT_TRUE(shown.isVisible()) << entry;
        EXPECT_TRUE(Frame.isVisible());
        EXPECT_FALSE(The<frmCalculatePValue>().IsLoaded());
        EXPECT_EQ(Disabled(), AtStart);
        EXPECT_FALSE(ws.bShapefileData);
        EXPECT_TRUE(ws.bTextfileData);
        EXPECT_EQ(ws.NumRegion, 7);
    }
    EXPECT_FALSE(The<frmClusterDetectionTextfile>().IsLoaded()); // went with the frame
}

TEST_F(FrameTest, ComesBackWithTheScreenThatIsOpenAlreadyAsNew) {
    Command("mnuOpenTextRetro");
    auto& screen = The<frmClusterDetectionTextfile>();
    Type(screen, "txtSingleSigma", "3");
    Command("mnuOpenTextRetro");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(Text(screen, "txtSingleSigma"), "");
}

TEST_F(FrameTest, EndsTheProcessAtTheExitWithNoUnloadSteps) {
    Command("mnuGetPValue");
    Script.ExpectEndOfProcess();
    Command("mnuExit");
    EXPECT_TRUE(The<frmCalculatePValue>().IsLoaded());
}

TEST_F(FrameTest, EndsTheProcessWhenItIsClosed) {
    Command("mnuOpenTextRetro");
    Press(The<frmClusterDetectionTextfile>(), "cmdLoadData"); // a window of its own stands beside
    Script.ExpectEndOfProcess();
    Frame.close();
    EXPECT_FALSE(The<frmClusterDetectionTextfile>().IsLoaded());
    The<frmSelectDataFormat>().Unload();
}

TEST_F(FrameTest, ShowsTheSeparatorBeforeExitInTheOpenMenu) {
    auto* menu = Frame.findChild<QMenu*>("mnuFile");
    menu->popup(QPoint(0, 0));
    EXPECT_GT(menu->actionGeometry(menu->actions().constFirst()).height(), 0);
    menu->close();
}
