#include "desktop/toolkit/OptionButton.h"

#include "core/platform/RunTimeError.h"
#include "support/ScriptedPlatform.h"

#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// Two options side by side; the first is selected at design.
class OptionButtonTest : public testing::Test {
protected:
    OptionButtonTest() : First(&Group), Second(&Group) {
        auto* layout = new QVBoxLayout(&Group);
        layout->addWidget(&First);
        layout->addWidget(&Second);
        First.setChecked(true);
        First.Click = [this] { Clicked += "first "; };
        Second.Click = [this] { Clicked += "second "; };
        Group.show();
        Group.activateWindow(); // the keys of a group go to the one that has the focus
    }

    ScriptedPlatform Script;
    QWidget Group;
    OptionButton First, Second;
    std::string Clicked;
};

} // namespace

TEST_F(OptionButtonTest, FiresOnlyWhenItBecomesSelected) {
    QTest::mouseClick(&First, Qt::LeftButton); // selected already
    EXPECT_EQ(Clicked, "");
    QTest::mouseClick(&Second, Qt::LeftButton, {}, QPoint(5, Second.height() / 2));
    QTest::mouseClick(&Second, Qt::LeftButton, {}, QPoint(5, Second.height() / 2));
    QTest::mouseClick(&First, Qt::LeftButton, {}, QPoint(5, First.height() / 2));
    EXPECT_EQ(Clicked, "second first ");
}

TEST_F(OptionButtonTest, FiresByKeyboardAndByCode) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Group));
    First.setFocus();
    QTest::keyClick(&First, Qt::Key_Down);
    EXPECT_EQ(Clicked, "second ");
    EXPECT_TRUE(Second.Value());
    First.Select();
    First.Select();
    EXPECT_EQ(Clicked, "second first ");
    EXPECT_FALSE(Second.Value());
}

TEST_F(OptionButtonTest, ShowsAFaultOfAUsersClickAndGivesAFaultOfCodesClickToTheCaller) {
    First.Click = Second.Click = [] { RaiseCustomary(DivisionByZero, "test"); };
    Script.ExpectRunTimeError(11);
    QTest::mouseClick(&Second, Qt::LeftButton, {}, QPoint(5, Second.height() / 2));
    EXPECT_TRUE(Second.Value()); // the state stays as it stood at the fault
    EXPECT_THROW(First.Select(), RunTimeError);
    EXPECT_TRUE(First.Value());
}
