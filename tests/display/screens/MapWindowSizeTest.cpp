#include "support/screens/PolygonScreenTest.h"

#include <QApplication>

using namespace vastrel;

// 8025 by 5055 layout units inside the title bar and the border, 15 units to a pixel; so that the test
// screens, which stand 8000 and 8175 units from the left, leave the map free.
TEST_F(PolygonScreenTest, OpensTheMapInItsDesignSize) {
    for (int open = 0; open < 2; ++open) { // the first one makes the window
        OpenPro(WriteThree());
        QApplication::processEvents();
        EXPECT_EQ(MapWindow.size(), QSize(535, 337));
        SelectName.Unload();
    }
}
