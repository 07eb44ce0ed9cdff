#include "desktop/toolkit/PictureBox.h"

#include "support/ScriptedPlatform.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

bool IsBlank(PictureBox& box) {
    const QImage shown = box.grab().toImage();
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            if (shown.pixelColor(x, y) != Qt::white) return false;
    return true;
}

} // namespace

TEST(PictureBoxTest, ShowsThePicturesOfTheProgram) {
    ScriptedPlatform script;
    PictureBox box;
    box.resize(300, 110);
    EXPECT_TRUE(IsBlank(box));
    for (const char* name :
         {"unadjusted.jpg", "adjusted.jpg", "standard.jpg", "rossi.jpg", "M_Legend.jpg", "about.jpg"}) {
        box.LoadPicture(name);
        EXPECT_FALSE(IsBlank(box)) << name;
    }
    box.LoadPicture("");
    EXPECT_TRUE(IsBlank(box));
    box.LoadPicture("missing.jpg");
    EXPECT_TRUE(IsBlank(box));
}

TEST(PictureBoxTest, FiresOnTheLeftButton) {
    ScriptedPlatform script;
    PictureBox box;
    int clicks = 0;
    box.Click = [&clicks] { ++clicks; };
    QTest::mouseClick(&box, Qt::RightButton);
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}
