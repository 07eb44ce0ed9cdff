#include "core/prospective/CusumFile.h"

#include "core/prospective/CusumTestTables.h"
#include "core/prospective/PolygonCusum.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

const Table<double> Example = TableOf({{0.31, 0, 1.8}, {0, 0.4, 2.25}});
constexpr const char* ExampleText = "period1,period2,period3,\n0.31,0,1.8,\n0,0.4,2.25,\n";

class CusumFile : public testing::Test {
protected:
    CusumFile() { ws = Workspace{}; }

    void Read(const std::string& bytes, std::int32_t regions = 2) {
        ws.NumRegion = regions;
        ReadCusumFile(folder_.Write("saved.csm", bytes));
    }
    TemporaryFolder folder_;
};

} // namespace

TEST_F(CusumFile, WritesTheExample) {
    EXPECT_EQ(CusumFileLines(Example, 2, 3),
              (Texts{"period1,period2,period3,", "0.31,0,1.8,", "0,0.4,2.25,"}));
}

TEST_F(CusumFile, WritesFifteenDigitsAndExponents) {
    const auto lines = CusumFileLines(TableOf({{2.0 / 3, 1e-5, 2.5e20, -0.5}}), 1, 4);
    EXPECT_EQ(lines.at(1), "0.666666666666667,1E-05,2.5E+20,-0.5,");
}

TEST_F(CusumFile, WritesEmptyLinesWithoutPeriods) {
    EXPECT_EQ(CusumFileLines(Table<double>(2, 0), 2, 0), (Texts{"", "", ""}));
}

TEST_F(CusumFile, ReadsTheExample) {
    Read(ExampleText);
    EXPECT_EQ(ws.PreviousPeriodCount, 3);
    EXPECT_EQ(ws.PreviousCusum, Example);
    findMaxPreviousCusum();
    EXPECT_EQ(FromOne(ws.PreviousMaxCusum), (Numbers{0.31, 0.4, 2.25}));
}

TEST_F(CusumFile, ReadsEveryLineEndAndAByteOrderMark) {
    Read("\xEF\xBB\xBFperiod1,period2,period3,\r\n0.31,0,1.8,\r\n0,0.4,2.25,");
    EXPECT_EQ(ws.PreviousCusum, Example);
}

TEST_F(CusumFile, LooksAtNothingButTheCommasOfTheHeader) {
    Read(",,\n1,2,3,4\n5,6\n");
    EXPECT_EQ(ws.PreviousPeriodCount, 2);
    EXPECT_EQ(ws.PreviousCusum, TableOf({{1, 2}, {5, 6}}));
}

TEST_F(CusumFile, PassesOverEveryFaultOfTheContent) {
    Read("a,b,c,\n1,2\n");
    EXPECT_EQ(ws.PreviousCusum, TableOf({{1, 2, 0}, {0, 0, 0}})) << "short row, and a Region without a row";
    Read("a,b,\nx,1e999,\n,4,\n");
    EXPECT_EQ(ws.PreviousCusum, TableOf({{0, 0}, {0, 4}})) << "no number, too large, empty";
    Read("a,\n1,\n\n3,\n", 3);
    EXPECT_EQ(ws.PreviousCusum, TableOf({{1}, {0}, {3}})) << "blank line";
    Read("a,\n1,\n2,\n3,\n4,\n");
    EXPECT_EQ(ws.PreviousCusum, TableOf({{1}, {2}})) << "rows beyond the Regions";
}

TEST_F(CusumFile, HasNoPeriodWithoutACommaInTheHeader) {
    for (const char* bytes : {"", "period1\n1\n2\n", "\n1,\n"}) {
        Read(bytes);
        EXPECT_EQ(ws.PreviousPeriodCount, 0);
        EXPECT_EQ(ws.PreviousCusum, Table<double>(2, 0));
    }
}

TEST_F(CusumFile, KeepsTheEarlierTableWhereAFileCannotBeOpened) {
    Read(ExampleText);
    EXPECT_EQ(ErrorOf([&] { ReadCusumFile(folder_ / "none.csm"); }), FileNotFound);
    EXPECT_EQ(ErrorOf([&] { ReadCusumFile(folder_.Path()); }), PathFileAccessError);
    EXPECT_EQ(ws.PreviousCusum, Example);
}

TEST_F(CusumFile, StopsAtALineBeyondTheLimit) {
    EXPECT_EQ(ErrorOf([&] { Read("a,\n" + std::string(TextFile::LongestLine + 1, '1')); }), OutOfStringSpace);
}
