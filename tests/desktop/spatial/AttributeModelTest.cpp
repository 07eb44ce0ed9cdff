#include "desktop/spatial/AttributeModel.h"

#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"

#include <QTableView>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

std::string Shown(const AttributeModel& model, int row, int column) {
    return model.index(row, column).data().toString().toStdString();
}
std::string Head(const AttributeModel& model, int section, Qt::Orientation orientation) {
    return model.headerData(section, orientation, Qt::DisplayRole).toString().toStdString();
}

/// Counts the texts that a grid asks for.
class CountingModel : public AttributeModel {
public:
    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DisplayRole) ++Reads;
        return AttributeModel::data(index, role);
    }
    mutable int Reads = 0;
};

} // namespace

TEST(AttributeModel, ShowsEveryCell) {
    const TemporaryFolder folder;
    OpenTable(folder, {{"KEY", 'C', 8}, {"RATE", 'N', 8, 2}, {"DAY", 'D', 8}, {"OPEN", 'L', 1}},
              {{"H\xC3\xB6xter", "1.50", "20261120", "T"}, {" b", "****", "", "?"}}, 2);
    AttributeModel model;
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
    model.Show(ws.AttributeRecordset);
    ASSERT_EQ(model.rowCount(), 2);
    ASSERT_EQ(model.columnCount(), 4);
    EXPECT_EQ(Shown(model, 0, 0), "H\xC3\xB6xter");
    EXPECT_EQ(Shown(model, 0, 1), "1.5");
    EXPECT_EQ(Shown(model, 0, 2), "2026-11-20");
    EXPECT_EQ(Shown(model, 0, 3), "True");
    EXPECT_EQ(Shown(model, 1, 0), " b");
    for (const int column : {1, 2, 3})
        EXPECT_EQ(Shown(model, 1, column), "") << column; // nulls
    EXPECT_EQ(Head(model, 1, Qt::Horizontal), "RATE");
    EXPECT_EQ(Head(model, 0, Qt::Vertical), "Polygon");
    EXPECT_EQ(Head(model, 1, Qt::Vertical), "Polygon");
}

TEST(AttributeModel, LeavesTheCurrentRowOfTheTable) {
    const TemporaryFolder folder;
    OpenTable(folder, {{"KEY", 'C', 4}}, {{"a"}, {"b"}, {"c"}}, 3);
    AttributeModel model;
    model.Show(ws.AttributeRecordset);
    AttributeTable().MoveNext();
    EXPECT_EQ(Shown(model, 2, 0), "c");
    EXPECT_EQ(Shown(model, 0, 0), "a");
    EXPECT_EQ(CurrentText("KEY"), "b");
    while (!AttributeTable().EndOfFile())
        AttributeTable().MoveNext();
    EXPECT_EQ(Shown(model, 0, 0), "a");
    EXPECT_TRUE(AttributeTable().EndOfFile());
}

TEST(AttributeModel, ReadsNoMoreOfALargeTableThanIsSeen) {
    const TemporaryFolder folder;
    constexpr int rows = 5000, columnCount = 100;
    std::vector<TableColumn> columns;
    for (int k = 0; k < columnCount; ++k)
        columns.push_back({"C" + std::to_string(k), 'N', 8, 2});
    const std::vector<std::string> row(columnCount, "12345.67");
    OpenTable(folder, columns, std::vector<std::vector<std::string>>(rows, row), rows);
    CountingModel model;
    QTableView grid;
    grid.setModel(&model);
    model.Show(ws.AttributeRecordset);
    grid.resize(640, 340);
    grid.show();
    grid.grab();
    EXPECT_GT(model.Reads, 0);
    EXPECT_LT(model.Reads, rows); // one percent of the cells
    EXPECT_EQ(Shown(model, rows - 1, columnCount - 1), "12345.67");
}
