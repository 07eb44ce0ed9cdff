#include "desktop/spatial/frmAttTable.h"

#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/screens/ScreenTest.h"

#include <QTableView>

using namespace vastrel;

namespace {

class AttTableTest : public ScreenTest {
protected:
    void OpenAs(const std::string& table, const std::vector<TableColumn>& columns,
                const std::vector<std::vector<std::string>>& rows) {
        OpenTable(Folder, columns, rows, static_cast<int>(rows.size()));
        ws.DbfFilePath = Folder / table;
        ws.DbfTableName = table;
    }
    QTableView* Cells() { return The_<QTableView>(Grid, "MSFlexGrid1"); }
    std::string Cell(int row, int column) {
        return Cells()->model()->index(row, column).data().toString().toStdString();
    }

    TemporaryFolder Folder;
    frmAttTable& Grid = The<frmAttTable>();
};

} // namespace

TEST_F(AttTableTest, StandsAsDesigned) {
    OpenAs("t.dbf", {{"KEY", 'C', 4}, {"POP", 'N', 6}}, {{"a", "12"}, {"b", ""}});
    Grid.Show();
    EXPECT_EQ(Grid.windowTitle(), "Attribute Table"); // until somebody names the table
    EXPECT_EQ(Cells()->model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, 1), "12");
    EXPECT_EQ(Cell(1, 1), "");
    EXPECT_FALSE(Cells()->accessibleName().isEmpty());
    EXPECT_EQ(Cells()->editTriggers(), QAbstractItemView::NoEditTriggers);
    Shot(Grid, "table");
}

TEST_F(AttTableTest, LoadsInTheBackgroundAndIsFilledAtEachOpen) {
    OpenAs("one.dbf", {{"KEY", 'C', 4}}, {{"a"}, {"b"}});
    AttributeTable().MoveNext();
    Grid.TakeTable();
    EXPECT_TRUE(Grid.IsLoaded());
    EXPECT_FALSE(Grid.isVisible());
    EXPECT_EQ(Grid.windowTitle(), "one.dbf");
    EXPECT_EQ(CurrentText("KEY"), "a"); // rewound
    OpenAs("two.dbf", {{"ID", 'N', 4}}, {{"7"}});
    Grid.TakeTable();
    EXPECT_EQ(Grid.windowTitle(), "two.dbf");
    EXPECT_EQ(Cells()->model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, 0), "7");
}

TEST_F(AttTableTest, StaysEmptyWithoutAPathOfATable) {
    OpenAs("x.dbf", {{"KEY", 'C', 4}}, {{"a"}, {"b"}});
    ws.DbfFilePath = "   ";
    AttributeTable().MoveNext();
    Grid.TakeTable();
    EXPECT_EQ(Cells()->model()->rowCount(), 0);
    EXPECT_EQ(Grid.windowTitle(), "x.dbf");
    EXPECT_EQ(CurrentText("KEY"), "a"); // rewound all the same
}

TEST_F(AttTableTest, TellsWhyItCannotBeFilled) {
    ws.DbfFilePath = "/nowhere/x.dbf";
    ws.DbfTableName = "x.dbf";
    Script.ExpectMessage("Object variable not set\nNo attribute table is open.", "Vastrel",
                         Message::Icon::Plain);
    Grid.Show();
    EXPECT_TRUE(Grid.isVisible());
    EXPECT_EQ(Grid.windowTitle(), "x.dbf");
    EXPECT_EQ(Cells()->model()->rowCount(), 0);
}

TEST_F(AttTableTest, StaysEmptyWhereACellCannotBeReadAndTellsWhy) {
    OpenAs("t.dbf", {{"KEY", 'C', 4}, {"BIG", 'F', 8}}, {{"a", "1"}, {"b", "1e+999"}, {"c", "2"}});
    for (int load = 0; load < 2; ++load) {
        Script.ExpectMessage("Overflow\nthe number is too large.\nRow 2, column BIG of data.dbf.", "Vastrel",
                             Message::Icon::Plain);
        Grid.Show();
        EXPECT_EQ(Grid.windowTitle(), "t.dbf");
        EXPECT_EQ(Cells()->model()->rowCount(), 0);
        Grid.Unload();
    }
    OpenAs("two.dbf", {{"ID", 'N', 4}}, {{"7"}});
    Grid.Show();
    EXPECT_EQ(Cell(0, 0), "7");
}

TEST_F(AttTableTest, ShowsEveryNameOnOneLine) {
    const std::string longName = "Altenkirchen (Westerwald)";
    std::vector<std::vector<std::string>> rows(400, {"Trier", "1"});
    rows[399][0] = longName;
    OpenAs("t.dbf", {{"NAME", 'C', 40}, {"POP", 'N', 6}}, rows);
    Grid.Show();
    const auto* cells = Cells();
    EXPECT_GT(cells->columnWidth(0),
              cells->fontMetrics().horizontalAdvance(QString::fromStdString(longName)));
    EXPECT_FALSE(cells->wordWrap());
}

TEST_F(AttTableTest, FollowsItsWindow) {
    OpenAs("t.dbf", {{"KEY", 'C', 4}}, {{"a"}});
    Grid.Show();
    Grid.Frame()->resize(800, 500);
    EXPECT_EQ(Cells()->size(), Grid.size());
}

TEST_F(AttTableTest, ShowsTheNamesOfTheGermanDistricts) {
    if (!OpenRealDataset(Folder, "imd_de/imd_de")) GTEST_SKIP() << "no real data";
    Grid.TakeTable();
    Grid.Show();
    EXPECT_EQ(Cells()->model()->rowCount(), 413);
    std::set<std::string> names;
    for (int i = 0; i < 413; ++i)
        names.insert(Cell(i, 1));
    EXPECT_TRUE(names.count("M\xC3\xBCnchen") + names.count("LK M\xC3\xBCnchen") +
                names.count("SK M\xC3\xBCnchen"))
        << *names.begin();
    Cells()->scrollTo(Cells()->model()->index(150, 0));
    Shot(Grid, "table-imd");
    Grid.Frame()->resize(1000, 600);
    Shot(Grid, "table-imd-large");
    Cells()->scrollTo(Cells()->model()->index(150, 19)); // the columns with nulls
    Shot(Grid, "table-imd-nulls");
}
