#include "desktop/toolkit/TextCopy.h"

#include "desktop/toolkit/ListBox.h"

#include <QApplication>
#include <QClipboard>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

void Choose(QAbstractItemView& view, const QString& entry) {
    EXPECT_EQ(view.contextMenuPolicy(), Qt::ActionsContextMenu);
    for (auto* action : view.actions())
        if (action->text().remove('&') == entry) return action->trigger();
    ADD_FAILURE() << entry.toStdString() << " is not offered.";
}

std::string Copied() {
    return QApplication::clipboard()->text().toStdString();
}

/// Three rows of a name and a count.
class TextCopyTest : public testing::Test {
protected:
    TextCopyTest() {
        Cells.setHorizontalHeaderLabels({"NAME", "POP"});
        for (const char* name : {"Ada", "Bray", "Cork"})
            Cells.appendRow(
                {new QStandardItem(name), new QStandardItem(QString::number(Cells.rowCount() + 1))});
        Table.setModel(&Cells);
        OfferTextCopy(Table);
        Table.show();
        QApplication::clipboard()->setText("before");
    }

    QStandardItemModel Cells;
    QTableView Table;
};

} // namespace

TEST_F(TextCopyTest, PutsTabsBetweenTheColumnsOfWhatIsSelected) {
    Choose(Table, "Copy");
    EXPECT_EQ(Copied(), "before"); // nothing is selected
    Table.selectionModel()->select({Cells.index(1, 0), Cells.index(2, 1)}, QItemSelectionModel::Select);
    Choose(Table, "Copy");
    EXPECT_EQ(Copied(), "Bray\t2\nCork\t3");
    Table.clearSelection();
    Table.setCurrentIndex(Cells.index(0, 0));
    Table.activateWindow();
    Table.setFocus();
    QTest::keyClick(&Table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "Ada");
}

TEST_F(TextCopyTest, CopiesAWholeTableWithItsHeadings) {
    Choose(Table, "Copy All");
    EXPECT_EQ(Copied(), "NAME\tPOP\nAda\t1\nBray\t2\nCork\t3");
}

TEST_F(TextCopyTest, CopiesTheRowsOfAListAsTheyStand) {
    ListBox list;
    list.AddItems({"  Year   Cusum", "    1     5.50   B ", "    2    11.00   B"});
    Choose(list, "Copy All");
    EXPECT_EQ(Copied(), "  Year   Cusum\n    1     5.50   B \n    2    11.00   B");
    list.SetListIndex(1);
    Choose(list, "Copy");
    EXPECT_EQ(Copied(), "    1     5.50   B ");
}
