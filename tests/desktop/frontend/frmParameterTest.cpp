#include "desktop/frontend/frmParameter.h"

#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "support/screens/PolygonScreenTest.h"
#include "support/screens/ScreenChecks.h"

#include <QCheckBox>

using namespace vastrel;

namespace {

constexpr const char* MissingPopCase = "You should set 'Pop-Case' and 'ID'.";
constexpr const char* MissingObsExp = "You should set 'Obs-Exp' and 'ID'.";
constexpr const char* MissingBoth = "You should set 'Pop-Case', 'Primary ID' and 'Secondary ID'.";

const std::vector<const char*> Switched = {
    "fraBasePop", "cboBasePopulation", "fraCase",      "cboCase",        "fraObs",        "cboObs", "fraExp",
    "cboExp",     "fraPrimaryID",      "cboPrimaryID", "fraSecondaryID", "cboSecondaryID"};
const std::vector<std::string> PopCaseEnabled = {"fraBasePop", "cboBasePopulation", "fraCase",
                                                 "cboCase",    "fraPrimaryID",      "cboPrimaryID"};
const std::vector<std::string> ObsExpEnabled = {"fraObs", "cboObs",       "fraExp",
                                                "cboExp", "fraPrimaryID", "cboPrimaryID"};

/// The dialog over the three squares, shown as the reset of the data shows it.
class ParameterTest : public PolygonScreenTest {
protected:
    ParameterTest() {
        OpenPro(WriteThree());
        SelectName.Unload();
        Parameter.Show();
    }
    void OK() { Press(Parameter, "cmdOK"); }
    void TickSecondary() { The_<QCheckBox>(Parameter, "chkSecondaryID")->click(); }
    void Refused(const char* message) {
        Script.ExpectMessage(message);
        OK();
        EXPECT_TRUE(Parameter.IsLoaded());
    }
    int AlphaEntries() { return The_<ComboBox>(Retro, "cboAlpha")->count(); }
};

} // namespace

TEST_F(ParameterTest, StandsAsDesigned) {
    ExpectCaptions(Parameter, {{"frmParameter", "Data Input"},
                               {"fraDataFormat", "Data Format"},
                               {"optObsExp", "Obs - Exp"},
                               {"optPopCase", "Pop - Case"},
                               {"fraBasePop", "Pop"},
                               {"fraCase", "Case"},
                               {"fraObs", "Obs."},
                               {"fraExp", "Exp."},
                               {"FraID", "ID"},
                               {"fraPrimaryID", "Primary ID"},
                               {"chkSecondaryID", "Secondary ID"},
                               {"fraSecondaryID", "Secondary ID"},
                               {"cmdOK", "&OK"},
                               {"cboBasePopulation", ""},
                               {"cboPrimaryID", ""}});
    EXPECT_TRUE(The_<QAbstractButton>(Parameter, "optPopCase")->isChecked());
    EXPECT_FALSE(The_<QAbstractButton>(Parameter, "chkSecondaryID")->isChecked());
    ExpectEnabled(Parameter, Switched, PopCaseEnabled);
    ExpectAccessibleNames(Parameter);
    EXPECT_TRUE(Parameter.isWindow());
    EXPECT_FALSE(Parameter.isModal());
    const QSize rest = screens().FrameSize() - Parameter.size();
    EXPECT_EQ(Parameter.pos() - screens().FramePosition(), QPoint(rest.width() / 2, rest.height() / 2));
    Shot(Parameter, "parameter");
}

TEST_F(ParameterTest, OffersNumbersForCountsAndAllForIds) {
    for (const char* list : {"cboBasePopulation", "cboCase", "cboObs", "cboExp"})
        EXPECT_EQ(Entries(Parameter, list), (Names{"POP", "CASES", "EXPECTED", "BAD"})) << list;
    for (const char* list : {"cboPrimaryID", "cboSecondaryID"})
        EXPECT_EQ(Entries(Parameter, list), (Names{"KEY", "POP", "CASES", "EXPECTED", "BAD", "DAY"})) << list;
}

TEST_F(ParameterTest, OffersNothingForCountsInATableOfTexts) {
    Parameter.Unload();
    OpenPro(WriteDataset(Folder, "texts", {{"KEY", 'C', 4}, {"DAY", 'D', 8}}, {{"a", ""}}));
    Parameter.Show();
    EXPECT_TRUE(Entries(Parameter, "cboBasePopulation").empty());
    EXPECT_TRUE(Entries(Parameter, "cboExp").empty());
    Pick(Parameter, "cboPrimaryID", "KEY");
    Refused(MissingPopCase);
}

TEST_F(ParameterTest, SwitchesTheFormat) {
    Pick(Parameter, "cboBasePopulation", "POP");
    Pick(Parameter, "cboCase", "CASES");
    Press(Parameter, "optObsExp");
    ExpectEnabled(Parameter, Switched, ObsExpEnabled);
    EXPECT_EQ(Shown(Parameter, "cboBasePopulation") + Shown(Parameter, "cboCase"), "");
    Pick(Parameter, "cboObs", "CASES");
    Pick(Parameter, "cboExp", "EXPECTED");
    Shot(Parameter, "parameter-obs-exp");
    Press(Parameter, "optPopCase");
    ExpectEnabled(Parameter, Switched, PopCaseEnabled);
    EXPECT_EQ(Shown(Parameter, "cboObs") + Shown(Parameter, "cboExp"), "");
}

TEST_F(ParameterTest, SwitchesTheSecondaryId) {
    TickSecondary();
    EXPECT_TRUE(ws.bUseSecondaryID);
    EXPECT_TRUE(IsEnabled(Parameter, "fraSecondaryID"));
    Pick(Parameter, "cboSecondaryID", "POP");
    EXPECT_EQ(ws.SecondaryIDs(3), "600");
    Shot(Parameter, "parameter-two-ids");
    TickSecondary();
    EXPECT_FALSE(ws.bUseSecondaryID);
    EXPECT_FALSE(IsEnabled(Parameter, "fraSecondaryID"));
    EXPECT_FALSE(IsEnabled(Parameter, "cboSecondaryID"));
    EXPECT_EQ(Shown(Parameter, "cboSecondaryID"), "");
    EXPECT_EQ(ws.SecondaryIDs(3), "600"); // what was read stays
}

TEST_F(ParameterTest, TellsWhatIsMissing) {
    const Array1<double> counts = ws.ObsCount;
    Refused(MissingPopCase);
    Press(Parameter, "optObsExp");
    Refused(MissingObsExp);
    TickSecondary();
    Refused(MissingBoth); // the words of the other format
    Press(Parameter, "optPopCase");
    PickPopCase();
    Refused(MissingBoth);
    TickSecondary();
    Press(Parameter, "optObsExp"); // empties the lists that were filled
    Refused(MissingObsExp);
    EXPECT_EQ(ws.ObsCount, counts);
    EXPECT_FALSE(Retro.IsLoaded());
}

TEST_F(ParameterTest, MissesWhatTheListsDoNotShowThoughItWasPicked) {
    PickPopCase();
    Press(Parameter, "optObsExp"); // the names stay stored, the texts go
    Pick(Parameter, "cboObs", "CASES");
    Pick(Parameter, "cboExp", "EXPECTED");
    Press(Parameter, "optPopCase");
    Refused(MissingPopCase);
    TickSecondary();
    Pick(Parameter, "cboSecondaryID", "DAY");
    TickSecondary(); // which empties that list too
    TickSecondary();
    Pick(Parameter, "cboBasePopulation", "POP");
    Pick(Parameter, "cboCase", "CASES");
    Refused(MissingBoth);
    ws.bRetroMapping = true;
    Parameter.close();
    EXPECT_FALSE(Retro.IsLoaded()); // closed incomplete
    EXPECT_TRUE(ws.bRetroMapping);
}

TEST_F(ParameterTest, ReadsTheIdsAsTheyArePicked) {
    Pick(Parameter, "cboPrimaryID", "KEY");
    EXPECT_EQ(ws.PrimaryIDs(1) + ws.PrimaryIDs(2) + ws.PrimaryIDs(3), "abc");
    Script.ExpectRunTimeError(94);
    Pick(Parameter, "cboPrimaryID", "BAD");
    EXPECT_EQ(ws.PrimaryIDs(1) + ws.PrimaryIDs(2) + ws.PrimaryIDs(3), "5");
    EXPECT_EQ(Shown(Parameter, "cboPrimaryID"), "BAD");
    EXPECT_TRUE(Parameter.IsLoaded());
}

TEST_F(ParameterTest, BindsAndShowsTheTest) {
    ws.AlphaLevel = 0.01;
    PickPopCase();
    OK();
    EXPECT_FALSE(Parameter.IsLoaded());
    EXPECT_TRUE(Retro.isVisible());
    EXPECT_EQ(ws.TotalPop, 1000);
    EXPECT_EQ(ws.ExpCount(3), 6); // 10 cases of 1000 people: (10 * 600) / 1000
    EXPECT_EQ(ws.DevRaw(2), -1);
    EXPECT_EQ(ws.AlphaLevel, 0.05);
    EXPECT_EQ(Entries(Retro, "cboAlpha"), (Names{"0.05", "0.01"}));
    EXPECT_FALSE(IsEnabled(Retro, "cmdSave"));
}

TEST_F(ParameterTest, BindsTheOtherFormat) {
    Press(Parameter, "optObsExp");
    Pick(Parameter, "cboObs", "CASES");
    Pick(Parameter, "cboExp", "EXPECTED");
    Pick(Parameter, "cboPrimaryID", "DAY");
    OK();
    EXPECT_EQ(ws.TotalPop, 0);
    EXPECT_EQ(ws.TotalObs, 10);
    EXPECT_EQ(ws.ExpRatio(3), 0.9);
    EXPECT_EQ(ws.PrimaryIDs(1), "2026-11-20");
    EXPECT_TRUE(Retro.isVisible());
}

TEST_F(ParameterTest, StaysOnABadRow) {
    PickPopCase();
    Pick(Parameter, "cboCase", "BAD");
    Refused("Data include null values. Check data and try again!");
    EXPECT_EQ(CurrentText("KEY"), "b");
    EXPECT_FALSE(ws.ObsCount.IsAllocated());
    EXPECT_FALSE(Retro.IsLoaded());
    Pick(Parameter, "cboCase", "CASES");
    OK();
    EXPECT_EQ(ws.TotalObs, 10);
}

TEST_F(ParameterTest, RefusesAPopulationOfZero) {
    Parameter.Unload();
    OpenPro(WriteDataset(Folder, "empty", {{"KEY", 'C', 4}, {"POP", 'N', 4}, {"CASES", 'N', 4}},
                         {{"a", "10", "0"}, {"b", "0", "0"}, {"c", "*", "1"}}));
    Parameter.Show();
    PickPopCase();
    Refused("Data include invalid values. Check data and try again!"); // the first bad row decides
    EXPECT_EQ(CurrentText("KEY"), "b");
    EXPECT_FALSE(ws.PopBase.IsAllocated());
    EXPECT_EQ(Shown(Parameter, "cboBasePopulation"), "POP");
    EXPECT_FALSE(Retro.IsLoaded());
}

// A secondary id that is ticked and not chosen, with all else complete: the words of the other format.
TEST_F(ParameterTest, MissesTheSecondaryIdOfObservedAndExpectedCounts) {
    Press(Parameter, "optObsExp");
    Pick(Parameter, "cboObs", "CASES");
    Pick(Parameter, "cboExp", "EXPECTED");
    Pick(Parameter, "cboPrimaryID", "KEY");
    TickSecondary();
    Refused(MissingBoth);
    Pick(Parameter, "cboSecondaryID", "DAY");
    OK();
    EXPECT_FALSE(Parameter.IsLoaded());
    EXPECT_TRUE(ws.bUseSecondaryID);
    EXPECT_EQ(ws.SecondaryIDs(3), "2026-11-22");
}

TEST_F(ParameterTest, StaysAfterAFault) {
    Parameter.Unload();
    OpenPro(WriteDataset(Folder, "none", {{"KEY", 'C', 4}, {"POP", 'N', 4}, {"CASES", 'N', 4}},
                         {{"a", "10", "0"}, {"b", "20", "0"}}));
    Parameter.Show();
    PickPopCase();
    Script.ExpectRunTimeError(11);
    OK();
    EXPECT_TRUE(Parameter.IsLoaded());
    EXPECT_EQ(ws.TotalPop, 30);
    EXPECT_EQ(ws.DevPearson(1), 0);
    EXPECT_FALSE(Retro.IsLoaded());
}

TEST_F(ParameterTest, LeavesTheFlagsWhereItIsClosedIncomplete) {
    ws.bRetroMapping = ws.bCusumMapping = true;
    Pick(Parameter, "cboBasePopulation", "POP");
    Parameter.close();
    EXPECT_FALSE(Parameter.IsLoaded());
    EXPECT_TRUE(ws.bRetroMapping);
    EXPECT_TRUE(ws.bCusumMapping);
    EXPECT_FALSE(Retro.IsLoaded());
}

TEST_F(ParameterTest, ClearsTheFlagsAndFillsAlphaWhereItIsClosedComplete) {
    ws.bRetroMapping = ws.bCusumMapping = true;
    PickPopCase();
    Parameter.close();
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_FALSE(ws.bCusumMapping);
    EXPECT_TRUE(Retro.IsLoaded());
    EXPECT_FALSE(Retro.isVisible());
    EXPECT_EQ(ws.AlphaLevel, 0.05);
    EXPECT_FALSE(ws.ObsCount.IsAllocated()); // nothing was bound

    Parameter.Show();
    PickPopCase();
    Parameter.close();
    EXPECT_EQ(AlphaEntries(), 4); // the list grows
}

TEST_F(ParameterTest, KeepsTheFlagsWhereColumnsOfBothFormatsWerePicked) {
    ws.bRetroMapping = ws.bCusumMapping = true;
    Press(Parameter, "optObsExp");
    Pick(Parameter, "cboObs", "CASES");
    Pick(Parameter, "cboExp", "EXPECTED");
    Press(Parameter, "optPopCase");
    PickPopCase();
    Parameter.close();
    EXPECT_TRUE(ws.bRetroMapping);
    EXPECT_TRUE(ws.bCusumMapping);
    EXPECT_EQ(AlphaEntries(), 2);
}

TEST_F(ParameterTest, BeginsAnewAtEachLoad) {
    PickPopCase();
    TickSecondary();
    Press(Parameter, "optObsExp");
    Parameter.close(); // incomplete
    Parameter.Show();
    EXPECT_TRUE(The_<QAbstractButton>(Parameter, "optPopCase")->isChecked());
    EXPECT_FALSE(The_<QAbstractButton>(Parameter, "chkSecondaryID")->isChecked());
    EXPECT_FALSE(ws.bUseSecondaryID);
    ExpectEnabled(Parameter, Switched, PopCaseEnabled);
    EXPECT_EQ(Shown(Parameter, "cboPrimaryID"), "");
    EXPECT_EQ(Entries(Parameter, "cboPrimaryID").size(), 6u);
    // The names of before are forgotten too: columns of one format alone clear the flags.
    ws.bRetroMapping = true;
    PickPopCase();
    Parameter.close();
    EXPECT_FALSE(ws.bRetroMapping);
}

TEST_F(ParameterTest, ComesBackFromTheTestScreen) {
    PickPopCase();
    OK();
    Press(Retro, "cmdDataReset");
    EXPECT_TRUE(Parameter.isVisible());
    EXPECT_FALSE(Parameter.isModal());
    PickPopCase();
    Pick(Parameter, "cboBasePopulation", "EXPECTED");
    OK();
    EXPECT_EQ(ws.TotalPop, 14);
    EXPECT_EQ(AlphaEntries(), 4);
    EXPECT_TRUE(Retro.isVisible());
}
