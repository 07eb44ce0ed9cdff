#include "desktop/toolkit/ComboBox.h"

#include "core/platform/RunTimeError.h"
#include "support/ScriptedPlatform.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

class ComboBoxTest : public testing::Test {
protected:
    ComboBoxTest() {
        Combo.AddItem("0.05");
        Combo.AddItem("0.01");
        Combo.Click = [this] { Clicked.push_back(Combo.Text()); };
        Combo.show();
    }

    /// Opens the list and presses Enter on an entry.
    void Pick(int entry) {
        Combo.showPopup();
        Combo.view()->setCurrentIndex(Combo.model()->index(entry, 0));
        QTest::keyClick(Combo.view(), Qt::Key_Return);
    }

    using Texts = std::vector<std::string>;
    ScriptedPlatform Script;
    ComboBox Combo;
    Texts Clicked;
};

} // namespace

TEST_F(ComboBoxTest, ShowsNothingUntilAnEntryIsPicked) {
    EXPECT_EQ(Combo.Text(), "");
    EXPECT_EQ(Combo.ListIndex(), -1);
    EXPECT_FALSE(Combo.isEditable());
}

TEST_F(ComboBoxTest, FiresOnTheSameEntryToo) {
    Pick(1);
    Pick(1);
    Pick(0);
    EXPECT_EQ(Clicked, (Texts{"0.01", "0.01", "0.05"}));
}

TEST_F(ComboBoxTest, FiresOnAnEntrySetByCode) {
    Combo.SetListIndex(1);
    Combo.SetListIndex(1);
    Combo.SetListIndex(2); // no such entry
    EXPECT_EQ(Clicked, (Texts{"0.01", "0.01"}));
    Combo.ShowEntry(0);
    Combo.EmptyText();
    EXPECT_EQ(Clicked, (Texts{"0.01", "0.01"}));
}

TEST_F(ComboBoxTest, KeepsWhatItShowsWhenItsListGrows) {
    Combo.ShowEntry(1);
    Combo.AddItem("0.05");
    EXPECT_EQ(Combo.Text(), "0.01");
    EXPECT_EQ(Combo.ListCount(), 3);
    Combo.Clear();
    Combo.AddItem("0.05");
    EXPECT_EQ(Combo.Text(), "");
}

TEST_F(ComboBoxTest, ShowsAFaultOfAUsersClickAndGivesAFaultOfCodesClickToTheCaller) {
    Combo.Click = [] { RaiseCustomary(TypeMismatch, "test"); };
    Script.ExpectRunTimeError(13);
    Pick(0);
    EXPECT_THROW(Combo.SetListIndex(1), RunTimeError);
}

TEST_F(ComboBoxTest, OpensWithFifteenRowsAndAScrollBar) {
    for (int entry = 0; entry < 111; ++entry)
        Combo.AddItem("column");
    Combo.showPopup();
    QTest::qWait(0);
    const int rows = Combo.view()->viewport()->height() / Combo.view()->sizeHintForRow(0);
    EXPECT_GE(rows, 14);
    EXPECT_LE(rows, 16);
    EXPECT_EQ(Combo.view()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    EXPECT_GT(Combo.view()->verticalScrollBar()->maximum(), 90);
    Combo.hidePopup();
}
