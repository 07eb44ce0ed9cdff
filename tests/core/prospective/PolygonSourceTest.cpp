#include "core/prospective/PolygonSource.h"

#include "core/platform/RunTimeError.h"
#include "core/prospective/PolygonCusum.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// Three Regions; GAP lacks a number in its second row, and NAME holds none at all.
class PolygonSource : public testing::Test {
protected:
    PolygonSource() { Open(3); }

    void Open(int regions) {
        OpenTable(Folder,
                  {{"NAME", 'C', 6},
                   {"DIGITS", 'C', 6},
                   {"Z1", 'N', 6, 1},
                   {"Z2", 'N', 6, 1},
                   {"GAP", 'N', 6, 1},
                   {"Z3", 'N', 6, 1}},
                  {{"A", "1", "   1.5", "   2.0", "   0.0", "   3.0"},
                   {"B", " 2.5", "   6.0", "  -6.0", "      ", "   6.5"},
                   {"C", "-3e1", "  -1.0", "   2.0", "   0.0", "   9.0"}},
                  regions);
    }

    void Choose(std::ptrdiff_t first, std::ptrdiff_t last) {
        ws.StartFieldIndex = static_cast<double>(first);
        ws.EndFieldIndex = static_cast<double>(last);
    }
    std::string RowsOfZ() {
        std::string text;
        for (std::ptrdiff_t i = 1; i <= Z.UpperBound1(); ++i)
            for (std::ptrdiff_t t = 1; t <= Z.UpperBound2(); ++t)
                text += std::to_string(static_cast<int>(Z(i, t) * 10)) + (t == Z.UpperBound2() ? ";" : " ");
        return text;
    }
    static std::string Labels(const Array1<std::string>& labels) {
        std::string text;
        for (std::ptrdiff_t i = 1; i <= labels.UpperBound(); ++i)
            text += labels(i) + ";";
        return text;
    }

    static constexpr const char* NoNumbers = "Data should be numerical values!";
    static constexpr const char* WrongOrder = "Start and end priods were not set improperly!";

    TemporaryFolder Folder;
    ScriptedPlatform Script;
    Table<double> Z;
};

} // namespace

TEST_F(PolygonSource, TakesColumnsOfNumbers) {
    EXPECT_TRUE(TakeStartField(2, "Z1"));
    EXPECT_TRUE(TakeEndField(3, "Z2"));
    EXPECT_EQ(ws.StartFieldIndex, 2);
    EXPECT_EQ(ws.EndFieldIndex, 3);
    EXPECT_TRUE(TakeStartField(1, "DIGITS")); // texts that are numbers
    EXPECT_EQ(CurrentText("NAME"), "A");      // the table stands on its first row again
}

TEST_F(PolygonSource, RefusesTextsAndNullsWithTheSameMessageAndTakesTheNumberAllTheSame) {
    for (const auto& [number, name] : {std::pair{0, "NAME"}, std::pair{4, "GAP"}}) {
        Script.ExpectMessage(NoNumbers);
        EXPECT_FALSE(TakeStartField(number, name));
        EXPECT_EQ(ws.StartFieldIndex, number);
        Script.ExpectMessage(NoNumbers);
        EXPECT_FALSE(TakeEndField(number, name));
        EXPECT_EQ(ws.EndFieldIndex, number);
        EXPECT_EQ(CurrentText("NAME"), "A");
    }
}

TEST_F(PolygonSource, RefusesALastColumnBeforeTheFirstWithoutLookingThroughIt) {
    TakeStartField(3, "Z2");
    Script.ExpectMessage(WrongOrder);
    EXPECT_FALSE(TakeEndField(0, "NAME"));
    EXPECT_EQ(ws.EndFieldIndex, 0);
    EXPECT_TRUE(TakeEndField(3, "Z2")); // one period
    EXPECT_EQ(SourcePeriodCount(ZSource::Fields), 1);
}

TEST_F(PolygonSource, LooksThroughTheNamedColumnWhateverTheNumber) {
    EXPECT_TRUE(TakeStartField(8, "Z1"));
    EXPECT_EQ(ws.StartFieldIndex, 8);
}

TEST_F(PolygonSource, NeedsATable) {
    ws.AttributeRecordset.reset();
    EXPECT_EQ(ErrorNumberOf([] { TakeStartField(2, "Z1"); }), ObjectNotSet);
}

TEST_F(PolygonSource, CountsThePeriodsOfTheSourceAlone) {
    Choose(2, 5);
    ws.TextPeriodCount = 24;
    EXPECT_EQ(SourcePeriodCount(ZSource::Fields), 4);
    EXPECT_EQ(SourcePeriodCount(ZSource::Text), 24);
}

TEST_F(PolygonSource, ReadsTheColumnsBetweenTheTwoInTableOrder) {
    Choose(1, 3);
    ReadFieldZScores(Z);
    EXPECT_EQ(ws.RunPeriodCount, 3);
    EXPECT_EQ(RowsOfZ(), "10 15 20;25 60 -60;-300 -10 20;");
    Choose(5, 5);
    ReadFieldZScores(Z);
    EXPECT_EQ(RowsOfZ(), "30;65;90;");
}

TEST_F(PolygonSource, FindsAFaultBetweenTheTwoInTheRun) {
    Choose(3, 5);
    EXPECT_EQ(ErrorNumberOf([this] { ReadFieldZScores(Z); }), InvalidUseOfNull);
    Choose(0, 2);
    EXPECT_EQ(ErrorNumberOf([this] { ReadFieldZScores(Z); }), TypeMismatch);
    Choose(5, 6);
    EXPECT_EQ(ErrorNumberOf([this] { ReadFieldZScores(Z); }), ItemNotFound);
    Choose(5, 3);
    EXPECT_EQ(ErrorNumberOf([this] { ReadFieldZScores(Z); }), SubscriptOutOfRange);
    Choose(5, 4); // one before the first: no period
    ReadFieldZScores(Z);
    EXPECT_EQ(ws.RunPeriodCount, 0);
}

// The tables of a run are there, empty, before its columns are read.
TEST_F(PolygonSource, LeavesNothingOfAnEarlierRunWhereAColumnStopsIt) {
    PolygonOutputs().ReDim(3, 2);
    ws.CusumValue(1, 1) = ws.MaxCusum(2) = 7;
    ws.MaxRegion(2) = "A";
    Choose(3, 5);
    EXPECT_EQ(ErrorNumberOf([this] { ReadFieldZScores(Z); }), InvalidUseOfNull);
    EXPECT_EQ(ws.RunPeriodCount, 3);
    EXPECT_EQ(ws.CusumValue, Table<double>(3, 3));
    EXPECT_EQ(ws.MaxCusum, Array1<double>(3));
    EXPECT_EQ(Labels(ws.MaxRegion), ";;;");
    EXPECT_EQ(Labels(ws.RegionLabel), ";;;");
}

TEST_F(PolygonSource, GoesByTheRecordsNotByTheRegions) {
    Open(4); // a Region without a record
    Choose(2, 3);
    ReadFieldZScores(Z);
    EXPECT_EQ(RowsOfZ(), "15 20;60 -60;-10 20;0 0;");
    ws.CusumPrimaryField = "NAME";
    EXPECT_EQ(Labels(RecordLabels()), "A;B;C;");
    EXPECT_EQ(ErrorNumberOf([] { RunLabels(ZSource::Fields); }), NoCurrentRecord);
    ws.CusumRegionIDs.ReDim(4);
    EXPECT_EQ(Labels(RunLabels(ZSource::Text)), ";;;;"); // with a file no record is asked

    Open(2); // a record without a Region
    Choose(2, 3);
    ws.CusumPrimaryField = "NAME";
    EXPECT_EQ(ErrorNumberOf([this] { ReadFieldZScores(Z); }), SubscriptOutOfRange);
    EXPECT_EQ(Labels(RecordLabels()), "A;B;C;");
    EXPECT_EQ(ErrorNumberOf([] { RunLabels(ZSource::Fields); }), SubscriptOutOfRange);
}

TEST_F(PolygonSource, LabelsByTheRecordsWithColumnsAndByThePrimaryIdsWithAFile) {
    ws.CusumRegionIDs.ReDim(3);
    ws.CusumRegionIDs(2) = "b";
    EXPECT_EQ(Labels(RunLabels(ZSource::Fields)), ";;;"); // without a primary column there is none
    ws.CusumSecondaryField = "Z1";
    EXPECT_EQ(Labels(RunLabels(ZSource::Fields)), ";;;");
    ws.CusumPrimaryField = "NAME";
    EXPECT_EQ(Labels(RunLabels(ZSource::Fields)), "A (1.5) ;B (6) ;C (-1) ;");
    EXPECT_EQ(Labels(RunLabels(ZSource::Text)), ";b;;");
    ws.CusumSecondaryField = "";
    EXPECT_EQ(Labels(RunLabels(ZSource::Fields)), "A;B;C;");
    ws.CusumPrimaryField = "GAP";
    EXPECT_EQ(ErrorNumberOf([] { RecordLabels(); }), InvalidUseOfNull);
}
