#include "core/binding/CusumNames.h"

#include "core/platform/RunTimeError.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

class CusumNamesTest : public testing::Test {
protected:
    CusumNamesTest() {
        OpenTable(Folder, {{"KEY", 'C', 4}, {"STATE", 'C', 4}, {"ZIP", 'N', 5}},
                  {{" a", "s", "1"}, {"b", "t", ""}}, 2);
    }
    static std::string Fields() { return ws.CusumPrimaryField + "|" + ws.CusumSecondaryField; }
    static std::string IDs() {
        std::string ids;
        for (std::ptrdiff_t i = 1; i <= ws.CusumRegionIDs.UpperBound(); ++i)
            ids += ws.CusumRegionIDs(i) + ";";
        return ids;
    }

    TemporaryFolder Folder;
    ScriptedPlatform Script;
};

} // namespace

TEST_F(CusumNamesTest, TakesThePrimaryColumnAlone) {
    ws.CusumSecondaryField = "OLD";
    EXPECT_TRUE(TakeCusumNames({true, " KEY ", false, "STATE"}));
    EXPECT_EQ(Fields(), "KEY|"); // trimmed, and the other is none
    EXPECT_EQ(IDs(), " a;b;");
    EXPECT_EQ(CurrentText("KEY"), " a");
}

TEST_F(CusumNamesTest, TakesBoth) {
    EXPECT_TRUE(TakeCusumNames({true, "STATE", true, " KEY "}));
    EXPECT_EQ(Fields(), "STATE|KEY");
    EXPECT_EQ(IDs(), "s;t;");
}

TEST_F(CusumNamesTest, RefusesNeither) {
    TakeCusumNames({true, "KEY", true, "STATE"});
    Script.ExpectMessage("At least Primary ID should be specified!");
    EXPECT_FALSE(TakeCusumNames({false, "STATE", false, "ZIP"}));
    EXPECT_EQ(Fields(), "KEY|STATE");
    EXPECT_EQ(IDs(), " a;b;");
}

TEST_F(CusumNamesTest, GoesOnWithTheOldNamesForASecondaryColumnAlone) {
    TakeCusumNames({true, "KEY", false, ""});
    ws.CusumRegionIDs.Clear();
    EXPECT_TRUE(TakeCusumNames({false, "STATE", true, "STATE"}));
    EXPECT_EQ(Fields(), "KEY|");
    EXPECT_EQ(IDs(), " a;b;");
}

TEST_F(CusumNamesTest, StopsForASecondaryColumnAloneWhereNothingWasNamedBefore) {
    EXPECT_EQ(ErrorNumberOf([] { TakeCusumNames({false, "KEY", true, "STATE"}); }), ItemNotFound);
    EXPECT_EQ(Fields(), "|");
}

TEST_F(CusumNamesTest, StopsAtANullId) {
    EXPECT_EQ(ErrorNumberOf([] { TakeCusumNames({true, "ZIP", false, ""}); }), InvalidUseOfNull);
    EXPECT_EQ(Fields(), "ZIP|");
    EXPECT_EQ(IDs(), "1;;");
    EXPECT_EQ(CurrentText("KEY"), "b");
}
