#include "desktop/frontend/frmAbout.h"

#include "desktop/toolkit/PictureBox.h"
#include "support/screens/ScreenChecks.h"
#include "support/screens/ScreenTest.h"

#include <QTest>

using namespace vastrel;

namespace {

class AboutTest : public ScreenTest {
protected:
    AboutTest() { Command("mnuAbout"); }
    frmAbout& Screen = The<frmAbout>();
};

} // namespace

TEST_F(AboutTest, StandsInTheMiddleOfTheFrame) {
    ExpectCaptions(Screen, {{"frmAbout", "About Vastrel"}});
    const QSize rest = screens().FrameSize() - Screen.Frame()->size();
    EXPECT_EQ(Screen.Frame()->pos(), QPoint(rest.width() / 2, rest.height() / 2));
    EXPECT_FALSE(The_<PictureBox>(Screen, "Image1")->accessibleName().isEmpty());
    Shot(Frame, "about");
}

TEST_F(AboutTest, GoesAtAClickOnThePicture) {
    QTest::mouseClick(The_<PictureBox>(Screen, "Image1"), Qt::LeftButton);
    EXPECT_FALSE(Screen.IsLoaded());
    Command("mnuAbout");
    EXPECT_TRUE(Screen.isVisible());
}

TEST_F(AboutTest, GoesAtEscape) {
    QTest::keyClick(&Screen, Qt::Key_Escape);
    EXPECT_FALSE(Screen.IsLoaded());
}
