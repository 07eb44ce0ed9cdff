#include "desktop/toolkit/ListBox.h"

#include "core/platform/RunTimeError.h"
#include "support/ScriptedPlatform.h"

#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// A list of five rows on the screen; every Click writes down the row that is selected then.
class ListBoxTest : public testing::Test {
protected:
    ListBoxTest() {
        List.AddItems({"zero", "one", "two", "three", "four"});
        List.Click = [this] { Clicked.push_back(List.ListIndex()); };
        List.resize(200, 200);
        List.show();
        QTest::qWait(0); // the rows take their places
    }

    void Mouse(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(List.viewport(), button, keys,
                          List.visualRect(List.model()->index(row, 0)).center());
    }
    void Key(Qt::Key key) { QTest::keyClick(&List, key); }

    using Rows = std::vector<int>;
    ScriptedPlatform Script;
    ListBox List;
    Rows Clicked;
};

} // namespace

TEST_F(ListBoxTest, FiresOnEveryMouseClickAlsoOnTheSelectedRow) {
    Mouse(2);
    Mouse(2);
    Mouse(4);
    EXPECT_EQ(Clicked, (Rows{2, 2, 4}));
    EXPECT_EQ(List.ListIndex(), 4);
}

TEST_F(ListBoxTest, FiresOnEveryRowSetByCodeAlsoOnTheSelectedRow) {
    List.SetListIndex(3);
    List.SetListIndex(3);
    EXPECT_EQ(Clicked, (Rows{3, 3}));
}

TEST_F(ListBoxTest, TakesNoRowThatDoesNotExist) {
    List.SetListIndex(1);
    List.SetListIndex(5);
    List.SetListIndex(-1);
    EXPECT_EQ(Clicked, (Rows{1}));
    EXPECT_EQ(List.ListIndex(), 1);
}

TEST_F(ListBoxTest, FiresOnTheKeysThatMoveTheSelection) {
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_End);
    Key(Qt::Key_End);
    Key(Qt::Key_Up);
    EXPECT_EQ(Clicked, (Rows{0, 1, 4, 3}));
}

TEST_F(ListBoxTest, ChoosesNoRowWhenTheKeyboardComesHere) {
    QFocusEvent tab(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&List, &tab);
    EXPECT_EQ(Clicked, Rows{});
    EXPECT_EQ(List.ListIndex(), -1);
    Key(Qt::Key_Down);
    EXPECT_EQ(Clicked, (Rows{0}));
}

TEST_F(ListBoxTest, KeepsItsRowWhereTheFocusComesBack) {
    List.SetListIndex(3);
    QFocusEvent tab(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&List, &tab);
    EXPECT_EQ(Clicked, (Rows{3}));
    EXPECT_EQ(List.ListIndex(), 3);
}

TEST_F(ListBoxTest, NeverFiresWithoutARow) {
    Mouse(1);
    Mouse(1, Qt::LeftButton, Qt::ControlModifier); // would take the selection away in a plain list
    EXPECT_EQ(Clicked, (Rows{1, 1}));
    QTest::mouseClick(List.viewport(), Qt::LeftButton, {}, QPoint(50, 190)); // below the last row
    EXPECT_EQ(Clicked, (Rows{1, 1}));
    EXPECT_EQ(List.ListIndex(), 1);
}

TEST_F(ListBoxTest, LeavesTheOtherButtonsAlone) {
    Mouse(1);
    Mouse(3, Qt::RightButton);
    Mouse(4, Qt::MiddleButton);
    EXPECT_EQ(Clicked, (Rows{1}));
    EXPECT_EQ(List.ListIndex(), 1);
}

TEST_F(ListBoxTest, FiresNothingWhileRowsComeAndGo) {
    List.SetListIndex(2);
    List.AddItem("five");
    EXPECT_EQ(List.ListIndex(), 2);
    List.Clear();
    EXPECT_EQ(List.ListIndex(), -1);
    EXPECT_EQ(List.ListCount(), 0);
    List.AddItems({"new", "rows"});
    EXPECT_EQ(List.ListIndex(), -1);
    EXPECT_EQ(List.List(1), "rows");
    EXPECT_EQ(Clicked, (Rows{2}));
}

TEST_F(ListBoxTest, ShowsAFaultOfAUsersClickAndGivesAFaultOfCodesClickToTheCaller) {
    List.Click = [] { RaiseCustomary(SubscriptOutOfRange, "test"); };
    Script.ExpectRunTimeError(9);
    Mouse(2);
    Script.ExpectRunTimeError(9);
    Key(Qt::Key_Down);
    EXPECT_THROW(List.SetListIndex(1), RunTimeError);
}

TEST_F(ListBoxTest, ScrollsToTheEndOfItsWidestRow) {
    EXPECT_EQ(List.horizontalScrollBar()->maximum(), 0);
    List.Clear();
    List.AddItems({"", std::string(82, '-')}); // the first row says nothing about the others
    QTest::qWait(0);
    const int text = List.fontMetrics().horizontalAdvance(QString(82, '-'));
    EXPECT_GE(List.horizontalScrollBar()->maximum(), text - List.viewport()->width());
}

TEST_F(ListBoxTest, KeepsItsColumnsInAFontOfFixedPitch) {
    const QFontMetrics metrics(ListBox::FixedFont());
    EXPECT_EQ(metrics.horizontalAdvance("iiiiiiiiii"), metrics.horizontalAdvance("WWWWWWWWWW"));
    EXPECT_EQ(ListBox::FixedFont().pointSize(), 9);
}

TEST_F(ListBoxTest, StaysAtItsTopWhileRowsAreAddedAndComesBackToItWhenTheyGo) {
    List.resize(200, 60);
    for (int row = 0; row < 50; ++row) {
        List.AddItem("row");
        List.RepaintNow();
    }
    EXPECT_GT(List.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(List.verticalScrollBar()->value(), 0);
    List.scrollToBottom();
    List.Clear();
    List.AddItems(std::vector<std::string>(50, "new"));
    QTest::qWait(0);
    EXPECT_EQ(List.verticalScrollBar()->value(), 0);
}
