#include "support/screens/PolygonScreenTest.h"

#include <QApplication>

using namespace vastrel;

// 8025 by 5055 layout units with the title bar and the border, 15 units to a pixel; so that the chart below,
// which stands 5055 units from the top, and the test screens beside it leave the map free.
TEST_F(PolygonScreenTest, OpensTheMapInItsDesignSize) {
    for (int open = 0; open < 2; ++open) { // the first one makes the window
        OpenPro(WriteThree());
        QApplication::processEvents();
        EXPECT_EQ(MapWindow.Frame()->size(), QSize(535, 337));
        EXPECT_EQ(MapWindow.size(), MapWindow.Frame()->contentsRect().size());
        SelectName.Unload();
    }
}
