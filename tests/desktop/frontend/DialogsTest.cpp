#include "desktop/export/frmExportDataset.h"
#include "desktop/frontend/frmAbout.h"
#include "desktop/prospective/frmCusumTools.h"
#include "desktop/prospective/frmTxtFileOpen.h"
#include "desktop/retrospective/frmCalculatePValue.h"
#include "desktop/retrospective/frmSelectDataFormat.h"
#include "desktop/spatial/frmInfo.h"
#include "support/screens/PolygonScreenTest.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QTest>

using namespace vastrel;

namespace {

/// What all dialogs have in common, in the frame as it is used.
class DialogsTest : public PolygonScreenTest {
protected:
    /// The control of a screen, or the screen itself, that the keyboard reaches.
    static QWidget* Focused(Screen& screen) {
        QApplication::processEvents();
        return screen.window()->focusWidget();
    }
    static std::string FocusedName(Screen& screen) {
        const QWidget* focused = Focused(screen);
        return focused == nullptr ? "" : focused->objectName().toStdString();
    }
};

} // namespace

TEST_F(DialogsTest, GoAtEscapeFromWhereTheKeyboardIs) {
    OpenPro(WriteThree());
    Screen* dialogs[] = {
        &SelectName,           &The<frmTxtFileOpen>(),     &The<frmAbout>(), &The<frmExportDataset>(),
        &The<frmCusumTools>(), &The<frmCalculatePValue>(), &Parameter,       &The<frmSelectDataFormat>()};
    for (Screen* dialog : dialogs) {
        dialog->Show();
        ASSERT_NE(Focused(*dialog), nullptr) << dialog->objectName().toStdString();
        QTest::keyClick(Focused(*dialog), Qt::Key_Escape);
        EXPECT_FALSE(dialog->IsLoaded()) << dialog->objectName().toStdString();
        dialog->Unload();
    }
}

TEST_F(DialogsTest, BeginWithTheirFirstControlEachTime) {
    Command("mnuGetPValue");
    EXPECT_EQ(FocusedName(The<frmCalculatePValue>()), "txtInputNormalZScore");
    auto& tool = The<frmCusumTools>();
    Command("mnuCusumTool");
    EXPECT_EQ(FocusedName(tool), "txtKvalue");
    The_<QWidget>(tool, "txtSigma")->setFocus();
    tool.Unload();
    Command("mnuCusumTool");
    EXPECT_EQ(FocusedName(tool), "txtKvalue");
    The_<QWidget>(tool, "txtSigma")->setFocus();
    Command("mnuCusumTool"); // it stands already
    EXPECT_EQ(FocusedName(tool), "txtSigma");
}

TEST_F(DialogsTest, StandInFrontOfTheFrameWithItsIcon) {
    for (Screen* dialog :
         std::initializer_list<Screen*>{&Parameter, &The<frmSelectDataFormat>(), &The<frmInfo>()}) {
        OpenPro(WriteThree());
        SelectName.Unload();
        dialog->Show();
        EXPECT_EQ(dialog->parentWidget(), &Frame) << dialog->objectName().toStdString();
        EXPECT_TRUE(dialog->isWindow());
        EXPECT_FALSE(dialog->windowIcon().isNull());
        dialog->Unload();
    }
}

TEST_F(DialogsTest, GiveBothIdListsOneWidth) {
    OpenRetro(WriteThree(), [&] {
        QApplication::processEvents();
        EXPECT_EQ(The_<ComboBox>(Parameter, "cboPrimaryID")->width(),
                  The_<ComboBox>(Parameter, "cboSecondaryID")->width());
        Shot(Parameter, "data-input");
        Parameter.Unload();
    });
}
