#include "core/spatial/AttributeRows.h"

#include "core/platform/RunTimeError.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

const std::vector<TableColumn> Columns = {{"KEY", 'C', 4},  {"POP", 'N', 8},     {"BIG", 'N', 11},
                                          {"RATE", 'F', 9}, {"DENS", 'N', 9, 3}, {"DAY", 'D', 8},
                                          {"OPEN", 'L', 1}, {"NOTE", 'M', 10}};

std::vector<std::string> Row(const std::string& key, const std::string& pop) {
    return {key, pop, "", "", "", "", "", ""};
}

} // namespace

TEST(AttributeRows, AreNoneBeforeATableWasOpened) {
    ws = Workspace{};
    EXPECT_EQ(ErrorNumberOf([] { AttributeTable(); }), ObjectNotSet);
    EXPECT_EQ(ErrorNumberOf([] { FieldNames(); }), ObjectNotSet);
    EXPECT_EQ(ErrorNumberOf([] { NumericFieldNames(); }), ObjectNotSet);
}

TEST(AttributeRows, OfferAllColumnsOrThoseOfNumbers) {
    const TemporaryFolder folder;
    OpenTable(folder, Columns, {}, 0);
    EXPECT_EQ(FieldNames(),
              (std::vector<std::string>{"KEY", "POP", "BIG", "RATE", "DENS", "DAY", "OPEN", "NOTE"}));
    EXPECT_EQ(NumericFieldNames(), (std::vector<std::string>{"POP", "BIG", "RATE", "DENS"}));
    OpenTable(folder, {{"KEY", 'C', 4}, {"DAY", 'D', 8}}, {}, 0);
    EXPECT_TRUE(NumericFieldNames().empty());
}

TEST(AttributeRows, AreReadAsTextInTheirOrder) {
    const TemporaryFolder folder;
    OpenTable(folder, Columns, {Row(" a", "12"), Row("", "7"), Row("b", "0")}, 3);
    AttributeTable().MoveNext();
    Array1<std::string> texts(9);
    ReadTexts("KEY", texts);
    ASSERT_EQ(texts.UpperBound(), 3);
    EXPECT_EQ(texts(1) + "|" + texts(2) + "|" + texts(3), " a||b"); // leading blanks stay
    EXPECT_EQ(CurrentText("KEY"), " a");                            // on the first row again
    ReadTexts("POP", texts);
    EXPECT_EQ(texts(1) + "|" + texts(2) + "|" + texts(3), "12|7|0");
}

TEST(AttributeRows, StopAtANullWithTheRowsBeforeIt) {
    const TemporaryFolder folder;
    OpenTable(folder, Columns, {Row("a", "12"), Row("b", "****"), Row("c", "3")}, 3);
    Array1<std::string> texts;
    EXPECT_EQ(ErrorNumberOf([&] { ReadTexts("POP", texts); }), InvalidUseOfNull);
    ASSERT_EQ(texts.UpperBound(), 3);
    EXPECT_EQ(texts(1) + "|" + texts(2) + "|" + texts(3), "12||");
    EXPECT_EQ(CurrentText("KEY"), "b");
}

TEST(AttributeRows, StopAtARowBeyondTheRegions) {
    const TemporaryFolder folder;
    OpenTable(folder, Columns, {Row("a", "1"), Row("b", "2"), Row("c", "3")}, 2);
    Array1<std::string> texts;
    EXPECT_EQ(ErrorNumberOf([&] { ReadTexts("KEY", texts); }), SubscriptOutOfRange);
    EXPECT_EQ(texts(2), "b");
    EXPECT_EQ(CurrentText("KEY"), "c");
    EXPECT_EQ(ErrorNumberOf([&] { ReadTexts("NAME", texts); }), ItemNotFound);
}

TEST(AttributeRows, LeaveTheRestEmptyWhereTheyAreFewer) {
    const TemporaryFolder folder;
    OpenTable(folder, Columns, {Row("a", "1")}, 3);
    Array1<std::string> texts;
    ReadTexts("KEY", texts);
    ASSERT_EQ(texts.UpperBound(), 3);
    EXPECT_EQ(texts(1) + "|" + texts(2) + texts(3), "a|");
}
