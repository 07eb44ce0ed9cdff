#include "core/spatial/Recordset.h"

#include "core/platform/RunTimeError.h"
#include "support/RaisedError.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace vastrel;

namespace {

const std::vector<TableColumn> Columns = {{"ID", 'N', 5},      {"RATE", 'N', 8, 3}, {"NAME", 'C', 6},
                                          {"DAY", 'D', 8},     {"OPEN", 'L', 1},    {"NOTE", 'M', 10},
                                          {"DENS", 'F', 10, 3}};
const std::vector<std::vector<std::string>> Rows = {
    {"    1", "   2.500", "Ashe", "20261120", "T", "0000000001", "1.500e+02"},
    {"\x01    2", "********", "", "        ", "?", "", ""},
    {"    3", "       0", " Surry", "20260101", "f", "", "-0.25"},
};

std::string SoundTable(const TemporaryFolder& folder) {
    return folder.Write("nc.dbf", TableBytes(Columns, Rows));
}

} // namespace

TEST(Recordset, KnowsItsColumns) {
    const TemporaryFolder folder;
    const Recordset table(SoundTable(folder));
    ASSERT_EQ(table.FieldCount(), 7);
    EXPECT_EQ(table.RecordCount(), 3);
    const FieldType types[] = {FieldType::Integer, FieldType::Double, FieldType::Text,  FieldType::Date,
                               FieldType::Logical, FieldType::Memo,   FieldType::Double};
    for (int k = 0; k < 7; ++k) {
        EXPECT_EQ(table.Fields(k).Name(), Columns[static_cast<size_t>(k)].Name);
        EXPECT_EQ(table.Fields(k).Type(), types[k]) << k;
    }
}

TEST(Recordset, WalksItsRowsWithDeletedOnes) {
    const TemporaryFolder folder;
    Recordset table(SoundTable(folder));
    std::vector<double> ids;
    for (table.MoveFirst(); !table.EndOfFile(); table.MoveNext())
        ids.push_back(table.Fields("ID").Value().Number());
    EXPECT_EQ(ids, (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(ErrorNumberOf([&] { table.MoveNext(); }), NoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { table.Fields(0).Value(); }), NoCurrentRecord);
    table.MoveFirst();
    EXPECT_EQ(table.Fields("NAME").Value().Text(), "Ashe");
}

TEST(Recordset, FindsAColumnByItsExactNameFirst) {
    const TemporaryFolder folder;
    const Recordset table(
        folder.Write("t.dbf", TableBytes({{"pop", 'N', 3}, {"POP", 'N', 3}}, {{"  1", "  2"}})));
    EXPECT_EQ(table.Fields("POP").Value().Number(), 2);
    EXPECT_EQ(table.Fields("pop").Value().Number(), 1);
    EXPECT_EQ(table.Fields("Pop").Value().Number(), 1); // without regard to case, the first
    EXPECT_EQ(ErrorNumberOf([&] { table.Fields("CASES"); }), ItemNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { table.Fields(2); }), ItemNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { table.Fields(-1); }), ItemNotFound);
}

TEST(Recordset, GivesTheWholeTableAsText) {
    const TemporaryFolder folder;
    Recordset table(SoundTable(folder));
    EXPECT_EQ(table.GetString(), "1\t2.5\tAshe\t2026-11-20\tTrue\t\t150\r"
                                 "2\t\t\t\t\t\t\r"
                                 "3\t0\t Surry\t2026-01-01\tFalse\t\t-0.25");
    EXPECT_TRUE(table.EndOfFile());
    EXPECT_EQ(table.GetString(), "");
}

TEST(Recordset, StandsAtItsEndWithoutRows) {
    const TemporaryFolder folder;
    Recordset table(folder.Write("empty.dbf", TableBytes(Columns, {})));
    EXPECT_EQ(table.RecordCount(), 0);
    table.MoveFirst();
    EXPECT_TRUE(table.EndOfFile());
    EXPECT_EQ(table.GetString(), "");
}

TEST(Recordset, TakesTheCodePageOfItsCpgFile) {
    const TemporaryFolder folder;
    const std::string bytes =
        TableBytes({{"NAME", 'C', 6}, {"GR\xD6SSE", 'N', 5}}, {{"K\xF6ln", "    1"}}, 0x57);
    const std::string path = folder.Write("t.dbf", bytes);
    {
        const Recordset table(path);
        EXPECT_EQ(table.Fields(0).Value().Text(), "K\xC3\xB6ln");
        EXPECT_EQ(table.Fields("GR\xC3\x96SSE").Value().Number(), 1);
    }
    folder.Write("T.CPG", "ISO-8859-5");
    EXPECT_EQ(Recordset(path).Fields(0).Value().Text(), "K\xD1\x96ln"); // 0xF6 is the Cyrillic i there
}

TEST(Recordset, FindsItsFileRegardlessOfCase) {
    const TemporaryFolder folder;
    folder.Write("Nc.DbF", TableBytes(Columns, Rows));
    EXPECT_EQ(Recordset(folder / "nc.dbf").RecordCount(), 3);
}

TEST(Recordset, ReadsNamesOfElevenBytesWithoutAnEnd) {
    const TemporaryFolder folder;
    const Recordset table(folder.Write("t.dbf", TableBytes({{"ABCDEFGHIJK", 'N', 3}}, {{" 42"}})));
    EXPECT_EQ(table.Fields(0).Name(), "ABCDEFGHIJK");
    EXPECT_EQ(table.Fields(0).Value().Number(), 42);
}

TEST(Recordset, NamesTheRowOfANumberTooLarge) {
    const TemporaryFolder folder;
    Recordset table(folder.Write("t.dbf", TableBytes({{"POP", 'N', 6, 1}}, {{"     1"}, {" 1e999"}})));
    table.MoveNext();
    const auto error = ErrorOf([&] { table.Fields(0).Value(); });
    EXPECT_EQ(error.Number, Overflow);
    EXPECT_NE(error.Description.find("Row 2, column POP of t.dbf."), std::string::npos) << error;
}

TEST(Recordset, ReadsManyColumnsAndRows) {
    const TemporaryFolder folder;
    std::vector<TableColumn> columns;
    std::vector<std::string> row;
    for (int k = 0; k < 255; ++k) {
        columns.push_back({"C" + std::to_string(k), 'N', 4});
        row.push_back(std::to_string(k));
    }
    constexpr int rows = 2000;
    const std::string many =
        folder.Write("columns.dbf", TableBytes(columns, std::vector<std::vector<std::string>>(rows, row)));
    Recordset wide(many);
    ASSERT_EQ(wide.FieldCount(), 255);
    double sum = 0;
    for (; !wide.EndOfFile(); wide.MoveNext())
        for (int k = 0; k < 255; ++k)
            sum += wide.Fields(k).Value().Number();
    EXPECT_EQ(sum, rows * 254.0 * 255 / 2);

    Recordset tall(folder.Write(
        "rows.dbf", TableBytes({{"N", 'N', 6}}, std::vector<std::vector<std::string>>(100000, {"     7"}))));
    sum = 0;
    for (; !tall.EndOfFile(); tall.MoveNext())
        sum += tall.Fields("N").Value().Number();
    EXPECT_EQ(sum, 700000);
}
