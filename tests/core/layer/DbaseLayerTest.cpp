#include "core/layer/DbaseLayer.h"

#include "core/spatial/Recordset.h"
#include "support/RaisedError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

using namespace vastrel;

namespace {

ResultTable OneText(const std::string& text) {
    ResultTable table;
    table.RowCount = 1;
    table.AddTexts("ID", [text](std::ptrdiff_t) { return text; });
    return table;
}

/// The bytes of the only row, behind the mark of a deleted one.
std::string RowOf(const std::string& table, size_t columns) {
    return table.substr(32 + 32 * columns + 1 + 1);
}

} // namespace

TEST(DbaseLayer, HoldsEveryDoubleInItsField) {
    for (const double value : {0.1, -1.0 / 3, 1e23, -2.2250738585072014e-308, 5e-324,
                               std::numeric_limits<double>::max(), 123456789012345678.0}) {
        ResultTable table;
        table.RowCount = 1;
        table.AddNumbers("X", [value](std::ptrdiff_t) { return value; });
        const std::string field = RowOf(DbaseTableBytes(table).Table, 1).substr(0, 24);
        EXPECT_EQ(std::strtod(field.c_str(), nullptr), value) << field;
    }
}

TEST(DbaseLayer, IsReadByOurOwnReader) {
    ResultTable table = OneText("Süd, Ost");
    table.AddNumbers("Y", [](std::ptrdiff_t) { return 0.1; });
    table.AddWholes("CLASS", [](std::ptrdiff_t) { return 6; });
    const TemporaryFolder folder;
    folder.Write("a.cpg", "UTF-8");
    Recordset read(folder.Write("a.dbf", DbaseTableBytes(table).Table));
    read.MoveFirst();
    EXPECT_EQ(read.Fields("ID").Value().Text(), "Süd, Ost");
    EXPECT_EQ(read.Fields("Y").Value().Number(), 0.1);
    EXPECT_EQ(read.Fields("Y").Type(), FieldType::Double);
    EXPECT_EQ(read.Fields("CLASS").Value().Number(), 6);
    EXPECT_EQ(read.Fields("CLASS").Type(), FieldType::Integer);
    EXPECT_EQ(read.RecordCount(), 1);
}

TEST(DbaseLayer, CutsATextThatIsLongerThanAFieldAtTheEndOfACharacter) {
    const std::string longest(254, 'x');
    EXPECT_EQ(DbaseTableBytes(OneText(longest)).CutTexts, 0);
    const DbaseBytes cut = DbaseTableBytes(OneText(std::string(253, 'x') + "ü"));
    EXPECT_EQ(cut.CutTexts, 1);
    EXPECT_EQ(RowOf(cut.Table, 1).substr(0, 254), std::string(253, 'x') + ' ');
}

TEST(DbaseLayer, HoldsNoMoreThan255Columns) {
    ResultTable table;
    table.RowCount = 1;
    for (int k = 1; k <= 255; ++k)
        table.AddNumbers("S" + std::to_string(k), [k](std::ptrdiff_t) { return k; });
    const std::string bytes = DbaseTableBytes(table).Table;
    EXPECT_EQ(std::stod(RowOf(bytes, 255).substr(254 * 24, 24)), 255);
    table.AddNumbers("S256", [](std::ptrdiff_t) { return 0; });
    EXPECT_EQ(ErrorNumberOf([&] { DbaseTableBytes(table); }), 9);
}
