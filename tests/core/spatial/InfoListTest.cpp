#include "core/spatial/InfoList.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/Recordset.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using List = std::vector<std::string>;

void OpenTable(const TemporaryFolder& folder) {
    ws = Workspace{};
    ws.AttributeRecordset = std::make_shared<Recordset>(folder.Write(
        "t.dbf",
        TableBytes({{"ID", 'N', 5}, {"NAME", 'C', 24}, {"RATE", 'N', 8, 3}},
                   {{"    1", "Ashe", "   2.500"}, {"    2", "Alexander and Alleghany", "********"}})));
}

} // namespace

TEST(InfoList, ShowsNameAndValueOfEachColumn) {
    const TemporaryFolder folder;
    OpenTable(folder);
    EXPECT_EQ(InfoListRows(0), (List{"             ID >               1", "           NAME >            Ashe",
                                     "           RATE >             2.5"}));
}

TEST(InfoList, NeverCutsAValueAndPrintsANullAsBlanks) {
    const TemporaryFolder folder;
    OpenTable(folder);
    EXPECT_EQ(InfoListRows(1),
              (List{"             ID >               2", "           NAME >Alexander and Alleghany",
                    "           RATE >                "}));
    EXPECT_EQ(ws.AttributeRecordset->Fields(0).Value().Number(), 2); // it stays on that row
}

TEST(InfoList, IsEmptyAtAndPastTheRowCount) {
    const TemporaryFolder folder;
    OpenTable(folder);
    EXPECT_EQ(InfoListRows(2), List{});
    EXPECT_EQ(InfoListRows(1000000000), List{});
}

TEST(InfoList, NeedsATable) {
    ws = Workspace{};
    EXPECT_EQ(ErrorNumberOf([] { InfoListRows(0); }), ObjectNotSet);
}
