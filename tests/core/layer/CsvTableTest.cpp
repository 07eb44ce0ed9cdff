#include "core/layer/CsvTable.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(CsvTable, QuotesWhatWouldBreakALine) {
    const std::vector<std::string> names = {"plain",        "a, b", "say \"x\"", " blank ",
                                            "two\r\nlines", "Süd",  ""};
    ResultTable table;
    table.RowCount = static_cast<std::ptrdiff_t>(names.size());
    table.AddTexts("ID", [&](std::ptrdiff_t row) { return names.at(static_cast<size_t>(row - 1)); });
    table.AddWholes("CLASS", [](std::ptrdiff_t row) { return row; });
    EXPECT_EQ(CsvText(table), "ID,CLASS\n"
                              "plain,1\n"
                              "\"a, b\",2\n"
                              "\"say \"\"x\"\"\",3\n"
                              " blank ,4\n"
                              "\"two\r\nlines\",5\n"
                              "Süd,6\n"
                              ",7\n");
}

TEST(CsvTable, WritesTheFewestDigitsOfANumber) {
    const std::vector<double> values = {2, 0.1, 1.0 / 3, -0.0, 1e-300};
    ResultTable table;
    table.RowCount = static_cast<std::ptrdiff_t>(values.size());
    table.AddNumbers("X", [&](std::ptrdiff_t row) { return values.at(static_cast<size_t>(row - 1)); });
    EXPECT_EQ(CsvText(table), "X\n2\n0.1\n0.3333333333333333\n-0\n1e-300\n");
}

TEST(CsvTable, IsAHeaderWithoutRows) {
    ResultTable table;
    table.AddWholes("A", [](std::ptrdiff_t) { return 0; });
    table.AddWholes("B", [](std::ptrdiff_t) { return 0; });
    EXPECT_EQ(CsvText(table), "A,B\n");
}
