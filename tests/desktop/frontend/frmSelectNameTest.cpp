#include "desktop/frontend/frmSelectName.h"

#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "support/screens/PolygonScreenTest.h"
#include "support/screens/ScreenChecks.h"

#include <QCheckBox>

using namespace vastrel;

namespace {

class SelectNameTest : public PolygonScreenTest {
protected:
    SelectNameTest() { OpenPro(WriteThree()); }
    void OK() { Press(SelectName, "cmdOK"); }
    void Tick(const char* box) { The_<QCheckBox>(SelectName, box)->click(); }
    static std::string Fields() { return ws.CusumPrimaryField + "|" + ws.CusumSecondaryField; }
};

} // namespace

TEST_F(SelectNameTest, StandsAsDesigned) {
    ExpectCaptions(SelectName, {{"frmSelectName", "Select Name Fields"},
                                {"Frame1", "Select ID"},
                                {"chkPrimaryID", "Primary ID  ---> e.g. county name"},
                                {"chkSecondary", "Secondary ID  ---> e.g. state name"},
                                {"cmdOK", "OK"},
                                {"cmbName1", "KEY"},
                                {"cmbName2", "KEY"}});
    const Names all{"KEY", "POP", "CASES", "EXPECTED", "BAD", "DAY"};
    EXPECT_EQ(Entries(SelectName, "cmbName1"), all);
    EXPECT_EQ(Entries(SelectName, "cmbName2"), all);
    EXPECT_TRUE(The_<QCheckBox>(SelectName, "chkPrimaryID")->isChecked());
    EXPECT_FALSE(The_<QCheckBox>(SelectName, "chkSecondary")->isChecked());
    ExpectEnabled(SelectName, {"cmbName1", "cmbName2"}, {"cmbName1"});
    ExpectAccessibleNames(SelectName);
    EXPECT_FALSE(SelectName.isWindow());
    const QSize rest = screens().FrameSize() - SelectName.Frame()->size();
    EXPECT_EQ(SelectName.Frame()->pos(), QPoint(rest.width() / 2, rest.height() / 2));
    Shot(SelectName, "select-name");
}

TEST_F(SelectNameTest, EnablesTheListsByTheirBoxes) {
    Tick("chkSecondary");
    ExpectEnabled(SelectName, {"cmbName1", "cmbName2"}, {"cmbName1", "cmbName2"});
    Tick("chkPrimaryID");
    ExpectEnabled(SelectName, {"cmbName1", "cmbName2"}, {"cmbName2"});
    Tick("chkSecondary");
    ExpectEnabled(SelectName, {"cmbName1", "cmbName2"}, {});
    EXPECT_EQ(Shown(SelectName, "cmbName1"), "KEY"); // the entry stays
}

TEST_F(SelectNameTest, TakesThePrimaryId) {
    ws.CusumSecondaryField = "OLD";
    Pick(SelectName, "cmbName1", "POP");
    OK();
    EXPECT_EQ(Fields(), "POP|");
    EXPECT_EQ(ws.CusumRegionIDs(2), "300");
    EXPECT_EQ(CurrentText("KEY"), "a");
    EXPECT_FALSE(SelectName.IsLoaded());
}

TEST_F(SelectNameTest, TakesBothIds) {
    Tick("chkSecondary");
    Pick(SelectName, "cmbName2", "DAY");
    OK();
    EXPECT_EQ(Fields(), "KEY|DAY");
    EXPECT_EQ(ws.CusumRegionIDs(3), "c");
}

TEST_F(SelectNameTest, RefusesNeither) {
    Tick("chkPrimaryID");
    Script.ExpectMessage("At least Primary ID should be specified!");
    OK();
    EXPECT_TRUE(SelectName.IsLoaded());
    EXPECT_EQ(Fields(), "|");
    EXPECT_FALSE(ws.CusumRegionIDs.IsAllocated());
}

TEST_F(SelectNameTest, GoesOnWithTheOldNamesForASecondaryIdAlone) {
    ws.CusumPrimaryField = "POP";
    Tick("chkPrimaryID");
    Tick("chkSecondary");
    OK();
    EXPECT_EQ(Fields(), "POP|");
    EXPECT_EQ(ws.CusumRegionIDs(1), "100");
    EXPECT_FALSE(SelectName.IsLoaded());
}

TEST_F(SelectNameTest, StopsAtANullId) {
    Pick(SelectName, "cmbName1", "BAD");
    Script.ExpectRunTimeError(94);
    OK();
    EXPECT_TRUE(SelectName.IsLoaded());
    EXPECT_EQ(Fields(), "BAD|");
    EXPECT_EQ(ws.CusumRegionIDs(1), "5");
}
