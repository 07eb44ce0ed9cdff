#include "core/binding/ColumnBinding.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

using namespace vastrel;

namespace {

const std::vector<TableColumn> Columns = {
    {"KEY", 'C', 4}, {"POP", 'F', 20, 2}, {"CASES", 'N', 20, 2}, {"EXPECTED", 'N', 20, 2}};

/// The columns of both formats; only those of the chosen one are used.
CountColumns Chosen() {
    return {"POP", "CASES", "CASES", "EXPECTED", "KEY", ""};
}

using Values = std::vector<double>;

Values Of(const Array1<double>& array) {
    Values values;
    for (std::ptrdiff_t i = 1; i <= array.UpperBound(); ++i)
        values.push_back(array(i));
    return values;
}

std::vector<Values> AllDeviations() {
    return {Of(ws.DevRaw), Of(ws.DevPearson), Of(ws.DevFreemanTukey), Of(ws.DevRossi)};
}

class ColumnBinding : public testing::Test {
protected:
    using Rows = std::vector<std::vector<std::string>>;

    void Open(const Rows& rows, int regions = 0) {
        OpenTable(Folder, Columns, rows, regions > 0 ? regions : static_cast<int>(rows.size()));
    }
    /// Puts a mark into all arrays that a binding fills.
    static void MarkArrays() {
        for (auto* array : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio, &ws.DevRaw, &ws.DevPearson,
                            &ws.DevFreemanTukey, &ws.DevRossi}) {
            array->ReDim(1);
            (*array)(1) = 77;
        }
        ws.TotalPop = ws.TotalObs = 77;
    }
    static bool AreArraysMarked() {
        const Values mark{77};
        return Of(ws.PopBase) == mark && Of(ws.ObsCount) == mark && Of(ws.ExpCount) == mark &&
               Of(ws.ExpRatio) == mark && AllDeviations() == std::vector<Values>(4, mark) &&
               ws.TotalPop == 77 && ws.TotalObs == 77;
    }

    TemporaryFolder Folder;
    ScriptedPlatform Script;
};

} // namespace

// ---- Completeness

TEST_F(ColumnBinding, TellsWhatIsMissing) {
    const auto popCase = CountFormat::PopCase, obsExp = CountFormat::ObsExp;
    EXPECT_STREQ(MissingColumns(popCase, false, {}), "You should set 'Pop-Case' and 'ID'.");
    EXPECT_STREQ(MissingColumns(obsExp, false, {}), "You should set 'Obs-Exp' and 'ID'.");
    // One text for both formats.
    EXPECT_STREQ(MissingColumns(popCase, true, {}),
                 "You should set 'Pop-Case', 'Primary ID' and 'Secondary ID'.");
    EXPECT_STREQ(MissingColumns(obsExp, true, {}),
                 "You should set 'Pop-Case', 'Primary ID' and 'Secondary ID'.");
}

TEST_F(ColumnBinding, LooksAtTheListsOfTheChosenFormatAlone) {
    const CountColumns popCase{"P", "C", "", "", "ID", ""};
    const CountColumns obsExp{"", "", "O", "E", "ID", ""};
    EXPECT_EQ(MissingColumns(CountFormat::PopCase, false, popCase), nullptr);
    EXPECT_EQ(MissingColumns(CountFormat::ObsExp, false, obsExp), nullptr);
    EXPECT_NE(MissingColumns(CountFormat::PopCase, false, obsExp), nullptr);
    EXPECT_NE(MissingColumns(CountFormat::ObsExp, false, popCase), nullptr);
    EXPECT_NE(MissingColumns(CountFormat::PopCase, true, popCase), nullptr);
    EXPECT_EQ(MissingColumns(CountFormat::PopCase, true, {"P", "C", "", "", "ID", "ID2"}), nullptr);
    EXPECT_EQ(MissingColumns(CountFormat::ObsExp, true, {"", "", "O", "E", "ID", "ID2"}), nullptr);
}

TEST_F(ColumnBinding, MissesEachSingleList) {
    const CountColumns whole{"P", "C", "O", "E", "ID", "ID2"};
    struct Case {
        std::string CountColumns::*List;
        bool NeededInPopCase, NeededInObsExp;
    };
    for (const auto& [list, popCase, obsExp] :
         {Case{&CountColumns::Pop, true, false}, Case{&CountColumns::Case, true, false},
          Case{&CountColumns::Obs, false, true}, Case{&CountColumns::Exp, false, true},
          Case{&CountColumns::PrimaryID, true, true}, Case{&CountColumns::SecondaryID, true, true}}) {
        CountColumns columns = whole;
        (columns.*list).clear();
        EXPECT_EQ(MissingColumns(CountFormat::PopCase, true, columns) != nullptr, popCase);
        EXPECT_EQ(MissingColumns(CountFormat::ObsExp, true, columns) != nullptr, obsExp);
        EXPECT_EQ(columns.LacksOne(), list != &CountColumns::SecondaryID);
    }
    EXPECT_FALSE(whole.LacksOne());
}

// ---- Row check

TEST_F(ColumnBinding, DecidesOnEachRow) {
    struct Case {
        const char *Base, *Count, *Message; // "*" is a null
    };
    for (const auto& [base, count, message] :
         {Case{"10", "3", nullptr}, Case{"10", "0", nullptr}, Case{"0.01", "0", nullptr},
          Case{"0", "3", InvalidData}, Case{"-1", "3", InvalidData}, Case{"10", "-0.01", InvalidData},
          Case{"*", "-1", InvalidData}, Case{"*", "3", NullData}, Case{"*", "0", NullData},
          Case{"10", "*", NullData}, Case{"0", "*", InvalidData}, Case{"-1", "*", InvalidData},
          Case{"*", "*", NullData}}) {
        const std::string where = std::string(base) + " and " + count;
        Open({{"good", "5", "1", "5"}, {"this", base, count, base}, {"bad", "0", "0", "0"}});
        MarkArrays();
        const char* expected = message == nullptr ? InvalidData : message; // the last row is bad at any rate
        for (const auto format : {CountFormat::PopCase, CountFormat::ObsExp}) {
            Script.ExpectMessage(expected);
            EXPECT_FALSE(BindCounts(format, Chosen())) << where;
            EXPECT_EQ(CurrentText("KEY"), message == nullptr ? "bad" : "this") << where;
            EXPECT_TRUE(AreArraysMarked()) << where;
        }
    }
}

TEST_F(ColumnBinding, HasTheWordsOfARefusal) {
    EXPECT_STREQ(InvalidData, "Data include invalid values. Check data and try again!");
    EXPECT_STREQ(NullData, "Data include null values. Check data and try again!");
}

TEST_F(ColumnBinding, BeginsTheNextCheckOnTheFirstRow) {
    Open({{"one", "5", "1", "0"}, {"two", "0", "1", "5"}});
    Script.ExpectMessage(InvalidData);
    EXPECT_FALSE(CheckRows(CountFormat::PopCase, Chosen()));
    EXPECT_EQ(CurrentText("KEY"), "two");
    Script.ExpectMessage(InvalidData);
    EXPECT_FALSE(CheckRows(CountFormat::ObsExp, Chosen()));
    EXPECT_EQ(CurrentText("KEY"), "one");
}

TEST_F(ColumnBinding, LeavesTheTableOnItsFirstRowAfterAGoodCheck) {
    Open({{"one", "1", "1", "1"}, {"two", "2", "0", "2"}});
    EXPECT_TRUE(CheckRows(CountFormat::PopCase, Chosen()));
    EXPECT_EQ(CurrentText("KEY"), "one");
}

// ---- Filling

// Cases 10 of 1000 people: (10 * 100) / 1000 = 1, and so on.
TEST_F(ColumnBinding, FillsFromPopulationsAndCases) {
    Open({{"a", "100", "1", ""}, {"b", "300", "2", ""}, {"c", "600", "7", ""}});
    ws.TotalObs = ws.TotalPop = 99;
    AttributeTable().MoveNext();
    EXPECT_TRUE(BindCounts(CountFormat::PopCase, Chosen()));
    EXPECT_EQ(Of(ws.PopBase), (Values{100, 300, 600}));
    EXPECT_EQ(Of(ws.ObsCount), (Values{1, 2, 7}));
    EXPECT_EQ(Of(ws.ExpCount), (Values{1, 3, 6}));
    EXPECT_EQ(Of(ws.ExpRatio), (Values{0.1, 0.3, 0.6}));
    EXPECT_EQ(ws.TotalPop, 1000);
    EXPECT_EQ(ws.TotalObs, 10);
    EXPECT_EQ(Of(ws.DevRaw), (Values{0, -1, 1}));
    EXPECT_DOUBLE_EQ(ws.DevPearson(2), -1 / std::sqrt(3.0));
    EXPECT_DOUBLE_EQ(ws.DevFreemanTukey(3), std::sqrt(7.0) + std::sqrt(8.0) - 5);
    EXPECT_DOUBLE_EQ(ws.DevRossi(3), (7 - 18 + 2 * std::sqrt(42.0)) / (2 * std::sqrt(6.0)));
    EXPECT_EQ(CurrentText("KEY"), "a");
}

TEST_F(ColumnBinding, FillsFromObservedAndExpectedCounts) {
    Open({{"a", "", "4", "1"}, {"b", "", "9", "4"}, {"c", "", "0", "9"}});
    ws.PopBase.ReDim(2);
    ws.PopBase(1) = 5;
    ws.TotalPop = 99;
    EXPECT_TRUE(BindCounts(CountFormat::ObsExp, Chosen()));
    EXPECT_EQ(Of(ws.PopBase), (Values{5, 0})); // left alone
    EXPECT_EQ(ws.TotalPop, 0);
    EXPECT_EQ(ws.TotalObs, 13);
    EXPECT_EQ(Of(ws.ObsCount), (Values{4, 9, 0}));
    EXPECT_EQ(Of(ws.ExpCount), (Values{1, 4, 9}));
    EXPECT_EQ(Of(ws.ExpRatio), (Values{1.0 / 13, 4.0 / 13, 9.0 / 13}));
    EXPECT_EQ(Of(ws.DevRaw), (Values{3, 5, -9}));
    EXPECT_EQ(Of(ws.DevPearson), (Values{3, 2.5, -3}));
    EXPECT_EQ(Of(ws.DevRossi), (Values{(4 - 3 + 4) / 2.0, 2.25, -27 / 6.0}));
    EXPECT_DOUBLE_EQ(ws.DevFreemanTukey(3), 1 - std::sqrt(37.0));
    EXPECT_EQ(CurrentText("KEY"), "a");
}

// 667 births in a hundred counties: the two forms of the expected count differ in their last bits.
TEST_F(ColumnBinding, KeepsBothFormsOfTheExpectedCount) {
    Open({{"a", "1091", "1", ""}, {"b", "328871", "666", ""}});
    EXPECT_TRUE(BindCounts(CountFormat::PopCase, Chosen()));
    EXPECT_EQ(ws.ExpCount(1), 0x1.1a4a6db536225p+1);   // in Python (667 * 1091) / 329962
    EXPECT_EQ(ws.DevRaw(1), 1 - 0x1.1a4a6db536224p+1); // in Python (667 / 329962) * 1091
}

TEST_F(ColumnBinding, ShrinksTheArraysToASecondDataset) {
    Open({{"a", "100", "1", "2"}, {"b", "300", "2", "3"}, {"c", "600", "7", "4"}});
    ASSERT_TRUE(BindCounts(CountFormat::PopCase, Chosen()));
    const Workspace before = ws;
    Open({{"a", "50", "5", "1"}});
    ws.PopBase = before.PopBase;
    ws.DevRossi = before.DevRossi;
    ws.TotalPop = before.TotalPop;
    EXPECT_TRUE(BindCounts(CountFormat::PopCase, Chosen()));
    EXPECT_EQ(Of(ws.PopBase), (Values{50}));
    EXPECT_EQ(Of(ws.DevRossi), (Values{(5 - 15 + 10) / 1.0}));
    EXPECT_EQ(ws.TotalPop, 50);
}

// ---- Faults

TEST_F(ColumnBinding, StopsInTheDeviationsWhereThereIsNoCase) {
    Open({{"a", "100", "0", ""}, {"b", "300", "0", ""}});
    MarkArrays();
    EXPECT_EQ(ErrorNumberOf([] { BindCounts(CountFormat::PopCase, Chosen()); }), DivisionByZero);
    EXPECT_EQ(Of(ws.PopBase), (Values{100, 300}));
    EXPECT_EQ(Of(ws.ObsCount), (Values{0, 0}));
    EXPECT_EQ(Of(ws.ExpCount), (Values{0, 0}));
    EXPECT_EQ(Of(ws.ExpRatio), (Values{0.25, 0.75}));
    EXPECT_EQ(ws.TotalPop, 400);
    EXPECT_EQ(ws.TotalObs, 0);
    EXPECT_EQ(AllDeviations(), std::vector<Values>(4, Values{0, 0}));
    EXPECT_EQ(CurrentText("KEY"), "a");
}

TEST_F(ColumnBinding, StopsInTheSharesWhereNothingWasObserved) {
    Open({{"a", "", "0", "2"}, {"b", "", "0", "3"}});
    MarkArrays();
    EXPECT_EQ(ErrorNumberOf([] { BindCounts(CountFormat::ObsExp, Chosen()); }), DivisionByZero);
    EXPECT_EQ(Of(ws.ExpCount), (Values{2, 3})); // read, not derived
    EXPECT_EQ(Of(ws.ExpRatio), (Values{0, 0}));
    EXPECT_EQ(ws.TotalObs, 0);
    EXPECT_EQ(AllDeviations(), std::vector<Values>(4, Values{77})); // not reached
}

TEST_F(ColumnBinding, StopsWhereTotalsOrProductsOverflow) {
    Open({{"a", "1e+308", "1", ""}, {"b", "1e+308", "1", ""}});
    EXPECT_EQ(ErrorNumberOf([] { BindCounts(CountFormat::PopCase, Chosen()); }), Overflow);
    EXPECT_EQ(ws.TotalPop, 1e308);
    EXPECT_EQ(CurrentText("KEY"), "b");
    Open({{"a", "1e+300", "1e+10", ""}});
    EXPECT_EQ(ErrorNumberOf([] { BindCounts(CountFormat::PopCase, Chosen()); }), Overflow);
    EXPECT_EQ(Of(ws.ExpCount), (Values{0}));
    EXPECT_EQ(Of(ws.ExpRatio), (Values{0}));
    EXPECT_EQ(ws.TotalPop, 1e300);
}

TEST_F(ColumnBinding, StopsAtARowBeyondTheShapes) {
    Open({{"a", "100", "1", "1"}, {"b", "300", "2", "1"}, {"c", "600", "7", "1"}}, 2);
    for (const auto format : {CountFormat::PopCase, CountFormat::ObsExp}) {
        const auto error = ErrorOf([&] { BindCounts(format, Chosen()); });
        EXPECT_EQ(error.Number, SubscriptOutOfRange);
        EXPECT_EQ(error.Description,
                  CustomaryText(SubscriptOutOfRange) + "\n" + ws.DbfTableName + " has 3 rows for 2 Regions.");
        EXPECT_EQ(Of(ws.ObsCount), (Values{1, 2}));
        EXPECT_EQ(ws.TotalObs, 3);
        EXPECT_EQ(CurrentText("KEY"), "c");
    }
    EXPECT_EQ(Of(ws.PopBase), (Values{100, 300}));
}

TEST_F(ColumnBinding, LeavesShapesWithoutARowAtZero) {
    Open({{"a", "100", "1", "4"}}, 2);
    for (const auto format : {CountFormat::PopCase, CountFormat::ObsExp})
        EXPECT_EQ(ErrorDescriptionOf([&] { BindCounts(format, Chosen()); }),
                  CustomaryText(DivisionByZero) + "\n" + ws.DbfTableName + " has 1 rows for 2 Regions.");
    EXPECT_EQ(ErrorNumberOf([] { BindCounts(CountFormat::PopCase, Chosen()); }), DivisionByZero);
    EXPECT_EQ(Of(ws.PopBase), (Values{100, 0}));
    EXPECT_EQ(Of(ws.ExpCount), (Values{1, 0}));
    EXPECT_EQ(AllDeviations(), std::vector<Values>(4, Values{0, 0}));
    EXPECT_EQ(ErrorNumberOf([] { BindCounts(CountFormat::ObsExp, Chosen()); }), DivisionByZero);
    EXPECT_EQ(Of(ws.ExpCount), (Values{4, 0}));
    EXPECT_EQ(Of(ws.ExpRatio), (Values{4, 0}));
    EXPECT_EQ(AllDeviations(), std::vector<Values>(4, Values{0, 0}));
}

TEST_F(ColumnBinding, StopsWithoutATableOrColumn) {
    Open({{"a", "100", "1", "4"}});
    EXPECT_EQ(ErrorNumberOf([] {
                  BindCounts(CountFormat::PopCase, {"PEOPLE", "CASES", "", "", "KEY", ""});
              }),
              ItemNotFound);
    ws.AttributeRecordset.reset();
    EXPECT_EQ(ErrorNumberOf([] { BindCounts(CountFormat::PopCase, Chosen()); }), ObjectNotSet);
}

TEST_F(ColumnBinding, TakesIdsAsTheyArePicked) {
    Open({{"x ", "12", "1", "0.5"}, {" y", "7", "2", "3"}});
    TakePrimaryIDs("KEY");
    TakeSecondaryIDs("POP");
    EXPECT_EQ(ws.PrimaryIDs(1) + "|" + ws.PrimaryIDs(2), "x| y");
    EXPECT_EQ(ws.SecondaryIDs(1) + "|" + ws.SecondaryIDs(2), "12|7");
    TakeSecondaryIDs("EXPECTED");
    EXPECT_EQ(ws.SecondaryIDs(1) + "|" + ws.SecondaryIDs(2), "0.5|3");
    EXPECT_EQ(ws.PrimaryIDs(2), " y");
}

// ---- Real datasets; their sums are those of the published sets

TEST_F(ColumnBinding, BindsTheCountiesOfNorthCarolina) {
    if (!OpenRealDataset(Folder, "nc/nc")) GTEST_SKIP() << "no real data";
    EXPECT_TRUE(BindCounts(CountFormat::PopCase, {"BIR74", "SID74", "", "", "NAME", ""}));
    EXPECT_EQ(ws.TotalPop, 329962);
    EXPECT_EQ(ws.TotalObs, 667);
    // Ashe, the first: 1091 births and 1 death; Python gives these.
    EXPECT_EQ(ws.ExpCount(1), 0x1.1a4a6db536225p+1);
    EXPECT_EQ(ws.DevRaw(1), 1 - 0x1.1a4a6db536224p+1);
    const Values expected = Of(ws.ExpCount);
    EXPECT_NEAR(std::accumulate(expected.begin(), expected.end(), 0.0), 667, 1e-9);
}

TEST_F(ColumnBinding, BindsTheDistrictsOfScotlandInBothFormats) {
    if (!OpenRealDataset(Folder, "scotlip/scotlip")) GTEST_SKIP() << "no real data";
    EXPECT_TRUE(BindCounts(CountFormat::ObsExp, {"", "", "CANCER", "CEXP", "NAME", ""}));
    EXPECT_EQ(ws.TotalObs, 536);
    EXPECT_EQ(ws.TotalPop, 0);
    const Values shares = Of(ws.ExpRatio);
    EXPECT_NEAR(std::accumulate(shares.begin(), shares.end(), 0.0), 536.01 / 536, 1e-12);
    EXPECT_TRUE(BindCounts(CountFormat::PopCase, {"POP", "CANCER", "", "", "NAME", ""}));
    EXPECT_EQ(ws.TotalPop, 14979894);
    EXPECT_EQ(ws.TotalObs, 536);
}

TEST_F(ColumnBinding, BindsTheMunicipalitiesOfColombia) {
    if (!OpenRealDataset(Folder, "colmunic/colmunic")) GTEST_SKIP() << "no real data";
    EXPECT_TRUE(BindCounts(CountFormat::PopCase, {"TP1998", "MALARI98", "", "", "ADM2", ""}));
    EXPECT_EQ(ws.TotalPop, 40541272);
    EXPECT_EQ(ws.TotalObs, 185490);
    EXPECT_EQ(ws.DevRossi.UpperBound(), 1068);
    Script.ExpectMessage(InvalidData); // 13 municipalities had no inhabitants in 1993
    EXPECT_FALSE(BindCounts(CountFormat::PopCase, {"TP1993", "MALARI98", "", "", "ADM2", ""}));
    EXPECT_EQ(ws.TotalPop, 40541272);
}

TEST_F(ColumnBinding, RefusesTheNullsOfTheGermanDistricts) {
    if (!OpenRealDataset(Folder, "imd_de/imd_de")) GTEST_SKIP() << "no real data";
    EXPECT_TRUE(BindCounts(CountFormat::PopCase, {"POP", "IMD", "", "", "KEY", ""}));
    EXPECT_EQ(ws.TotalObs, 636);
    EXPECT_EQ(ws.TotalPop, 82217837);
    EXPECT_TRUE(BindCounts(CountFormat::ObsExp, {"", "", "IMD", "EXPECTED", "KEY", ""}));
    Script.ExpectMessage(NullData);
    EXPECT_FALSE(BindCounts(CountFormat::PopCase, {"POP", "DAYS1", "", "", "KEY", ""}));
    EXPECT_TRUE(AttributeTable().Fields("DAYS1").Value().IsNull());
    TakePrimaryIDs("KEY");
    EXPECT_EQ(ws.PrimaryIDs(1).size(), 5u); // leading zeros stay
    TakeSecondaryIDs("NAME");
    EXPECT_EQ(ErrorNumberOf([] { TakeSecondaryIDs("FIRST"); }), InvalidUseOfNull);
}
