#include "core/export/ExportColumns.h"

#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

constexpr const char* NotNumeric = "Data should be numerical values!";
constexpr const char* Invalid = "Data include invalid values. Check data and try again!";
constexpr const char* WrongOrder = "Start and end priods were not set improperly!";
constexpr const char* NotIdentical = "Periods for Obs and Exp are not identical. ";

/// Columns 0 to 7; the second row of a bad one is bad.
const std::vector<TableColumn> Columns = {{"KEY", 'C', 4},   {"O1", 'N', 4},  {"O2", 'N', 4},
                                          {"E1", 'N', 8, 2}, {"E2", 'C', 8},  {"NULL", 'N', 4},
                                          {"MINUS", 'N', 4}, {"OPEN", 'L', 1}};

class ExportColumns : public testing::Test {
protected:
    ExportColumns() {
        OpenTable(Folder, Columns,
                  {{"a", "1", "0", "1.5", "2.5", "3", "0", "T"},
                   {"b", "0", "2", "0", " 1e1 ", "*", "-1", "T"},
                   {"c", "5", "6", "7", "8", "-9", "x", "T"}},
                  3);
    }
    bool Take(ExportList list, int column) { return TakeExportColumn(list, column); }
    bool Refused(ExportList list, int column, const char* message) {
        Script.ExpectMessage(message);
        return !TakeExportColumn(list, column);
    }

    TemporaryFolder Folder;
    ScriptedPlatform Script;
};

} // namespace

TEST_F(ExportColumns, TakesCountsAndZeros) {
    EXPECT_TRUE(Take(ExportList::ObsFrom, 1));
    EXPECT_TRUE(Take(ExportList::ObsTo, 2));
    EXPECT_TRUE(Take(ExportList::ExpFrom, 3));
    EXPECT_TRUE(Take(ExportList::ExpTo, 4)); // a text of numbers is numeric
    EXPECT_EQ(ws.ObsFromIndex, 1);
    EXPECT_EQ(ws.ObsToIndex, 2);
    EXPECT_EQ(ws.ExpFromIndex, 3);
    EXPECT_EQ(ws.ExpToIndex, 4);
    EXPECT_EQ(CurrentText("KEY"), "a");
}

TEST_F(ExportColumns, RefusesInEachList) {
    for (const auto list : {ExportList::ObsFrom, ExportList::ObsTo, ExportList::ExpFrom, ExportList::ExpTo}) {
        EXPECT_TRUE(Refused(list, 0, NotNumeric));
        EXPECT_EQ(CurrentText("KEY"), "a");
        EXPECT_TRUE(Refused(list, 5, NotNumeric)); // a null is not numeric
        EXPECT_EQ(CurrentText("KEY"), "b");
        EXPECT_TRUE(Refused(list, 6, Invalid)); // the first failure, not the text behind it
        EXPECT_EQ(CurrentText("KEY"), "b");
        EXPECT_TRUE(Refused(list, 7, NotNumeric));
    }
    // The numbers are taken all the same.
    EXPECT_EQ(ws.ObsFromIndex, 7);
    EXPECT_EQ(ws.ObsToIndex, 7);
    EXPECT_EQ(ws.ExpFromIndex, 7);
    EXPECT_EQ(ws.ExpToIndex, 7);
}

TEST_F(ExportColumns, RefusesAnEndBeforeTheStart) {
    Take(ExportList::ObsFrom, 2);
    EXPECT_TRUE(Refused(ExportList::ObsTo, 1, WrongOrder));
    EXPECT_EQ(ws.ObsToIndex, 1);
    EXPECT_TRUE(Take(ExportList::ObsTo, 2)); // one period
    Take(ExportList::ExpFrom, 4);
    EXPECT_TRUE(Refused(ExportList::ExpTo, 3, WrongOrder)); // before the count of periods
}

TEST_F(ExportColumns, RefusesRangesOfDifferentLength) {
    Take(ExportList::ObsFrom, 1);
    Take(ExportList::ObsTo, 2);
    Take(ExportList::ExpFrom, 3);
    EXPECT_TRUE(Refused(ExportList::ExpTo, 3, NotIdentical));
    EXPECT_TRUE(Take(ExportList::ExpTo, 4));
    Take(ExportList::ExpFrom, 1); // the same columns as observed
    EXPECT_TRUE(Take(ExportList::ExpTo, 2));
}

TEST_F(ExportColumns, DoesNotLookAtTheStartAgain) {
    Take(ExportList::ObsFrom, 1);
    Take(ExportList::ObsTo, 2);
    EXPECT_TRUE(Take(ExportList::ObsFrom, 3)); // behind the end
}

TEST_F(ExportColumns, ChecksTheValuesBeforeTheRange) {
    Take(ExportList::ObsFrom, 2);
    EXPECT_TRUE(Refused(ExportList::ObsTo, 0, NotNumeric));
}

TEST_F(ExportColumns, StopsForAColumnThatDoesNotExist) {
    EXPECT_EQ(ErrorNumberOf([&] { Take(ExportList::ObsFrom, 8); }), ItemNotFound);
    ws.AttributeRecordset.reset();
    EXPECT_EQ(ErrorNumberOf([&] { Take(ExportList::ObsFrom, 1); }), ObjectNotSet);
}

TEST_F(ExportColumns, TakesAnyNumericBandwidth) {
    EXPECT_TRUE(TakeExportSigma(" 1.5"));
    EXPECT_EQ(ws.ExportSigma, 1.5);
    EXPECT_TRUE(TakeExportSigma("-2"));
    EXPECT_EQ(ws.ExportSigma, -2);
    for (const char* text : {"", "abc", "1,5"}) {
        Script.ExpectMessage("Bandwidth should be numeric.");
        EXPECT_FALSE(TakeExportSigma(text));
    }
    EXPECT_EQ(ws.ExportSigma, -2);
    EXPECT_EQ(ErrorNumberOf([] { TakeExportSigma("1e999"); }), Overflow);
}
