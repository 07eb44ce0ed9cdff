#include "retrospective/screens/frmClusterDetectionTextfile.h"

#include "platform/qt/ListBox.h"
#include "retrospective/screens/frmSelectDataFormat.h"
#include "support/TemporaryFolder.h"
#include "support/screens/ScreenTest.h"

using namespace vastrel;

namespace {

constexpr const char* OpenFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";

const std::string Sample = std::string(PROJECT_FOLDER) + "/samples/country_pop.txt";

class PointScreenTest : public ScreenTest {
protected:
    PointScreenTest() { Command("mnuOpenTextRetro"); }

    void Load(const std::string& path, const char* format = "optPopCase") {
        Press(Screen, "cmdLoadData");
        Press(Dialog, format);
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        Press(Dialog, "cmdContinue");
    }

    ListBox* Global() { return The_<ListBox>(Screen, "lstGlobalPatternSummary"); }
    ListBox* Local() { return The_<ListBox>(Screen, "lstLocalPatternSummary"); }

    frmClusterDetectionTextfile& Screen = The<frmClusterDetectionTextfile>();
    frmSelectDataFormat& Dialog = The<frmSelectDataFormat>();
};

} // namespace

TEST_F(PointScreenTest, StandsEmptyAtTheStart) {
    EXPECT_TRUE(Screen.IsLoaded());
    EXPECT_FALSE(IsEnabled(Screen, "cmdRun"));
    EXPECT_FALSE(IsEnabled(Screen, "cmdSave"));
    for (const char* part : {"MSChart1", "picEachRegionInfo", "picMLegend", "txtXTitle"})
        EXPECT_FALSE(IsShown(Screen, part)) << part;
    Shot(Frame, "point-empty");
}

TEST_F(PointScreenTest, RunsEachVariableWithOneBandwidth) {
    Load(Sample);
    for (const char* variable : {"optUnadjusted", "optAdjusted_Generic", "optStandard", "optRossi"}) {
        Press(Screen, variable);
        Type(Screen, "txtSingleSigma", "1");
        Press(Screen, "cmdRun");
        EXPECT_TRUE(IsEnabled(Screen, "cmdSave"));
        EXPECT_FALSE(Script.BusyPointer());
        Local()->SetListIndex(70);
        Shot(Frame, std::string("point-single-") + variable);
    }
}

TEST_F(PointScreenTest, RunsARange) {
    Load(Sample);
    Press(Screen, "optSpatialSigmaRange");
    Press(Screen, "optAdjusted_Generic");
    Press(Screen, "cmdRun");
    EXPECT_EQ(Global()->ListCount(), 13);
    EXPECT_EQ(Local()->ListCount(), 0);
    for (const char* part : {"MSChart1", "picEachRegionInfo", "picMLegend", "txtXTitle"})
        EXPECT_TRUE(IsShown(Screen, part)) << part;
    Global()->SetListIndex(6);
    Shot(Frame, "point-range");
}
