#include "desktop/spatial/frmInfo.h"

#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/screens/ScreenChecks.h"
#include "support/screens/ScreenTest.h"

using namespace vastrel;

namespace {

class InfoTest : public ScreenTest {
protected:
    InfoTest() {
        OpenTable(Folder, {{"KEY", 'C', 4}, {"POP", 'N', 6}}, {{"a", "12"}, {"b", ""}}, 2);
        Info.Show();
    }
    ~InfoTest() override { Info.Unload(); }
    std::vector<std::string> Shown() { return Rows(The_<ListBox>(Info, "lstInfo")); }

    TemporaryFolder Folder;
    frmInfo& Info = The<frmInfo>();
};

} // namespace

TEST_F(InfoTest, StandsAsDesigned) {
    ExpectCaptions(Info, {{"frmInfo", "ATTRIBUTE INFO."}, {"Command1", "Field"}, {"Command2", "Value"}});
    ExpectAccessibleNames(Info);
    EXPECT_TRUE(Info.isWindow());
    EXPECT_EQ(Info.pos(), QPoint(0, 385));   // 5780 / 15
    EXPECT_EQ(Info.size(), QSize(309, 266)); // 4635 / 15, 4000 / 15
    EXPECT_EQ(The_<ListBox>(Info, "lstInfo")->font(), ListBox::FixedFont());
    EXPECT_TRUE(Shown().empty());
}

TEST_F(InfoTest, ShowsTheRowOfARegion) {
    Info.FillInfoList(0);
    EXPECT_EQ(Shown(), (std::vector<std::string>{"            KEY >               a",
                                                 "            POP >              12"}));
    Info.FillInfoList(1);
    EXPECT_EQ(Shown(), (std::vector<std::string>{"            KEY >               b",
                                                 "            POP >                "}));
    EXPECT_EQ(CurrentText("KEY"), "b");
    Info.FillInfoList(2);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(InfoTest, IsEmptiedBeforeAFault) {
    Info.FillInfoList(0);
    ws.AttributeRecordset.reset();
    EXPECT_THROW(Info.FillInfoList(0), RunTimeError);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(InfoTest, LosesItsRowsWithItsLoad) {
    Info.FillInfoList(0);
    Info.close();
    Info.Show();
    EXPECT_TRUE(Shown().empty());
}

TEST_F(InfoTest, FollowsItsWindow) {
    const int fieldsBefore = The_<QAbstractButton>(Info, "Command1")->width();
    Info.resize(500, 400);
    EXPECT_EQ(The_<ListBox>(Info, "lstInfo")->width(), 500);
    EXPECT_EQ(The_<ListBox>(Info, "lstInfo")->geometry().bottom(), 399);
    // The heads stay above their columns: the second takes the new room.
    EXPECT_EQ(The_<QAbstractButton>(Info, "Command1")->width(), fieldsBefore);
    EXPECT_EQ(The_<QAbstractButton>(Info, "Command2")->geometry().right(), 499);
}

TEST_F(InfoTest, GoesWithTheFrame) {
    Frame.Unload();
    EXPECT_FALSE(Info.IsLoaded());
}

TEST_F(InfoTest, ShowsAGermanDistrict) {
    if (!OpenRealDataset(Folder, "imd_de/imd_de")) GTEST_SKIP() << "no real data";
    Info.FillInfoList(0);
    EXPECT_EQ(Shown().size(), 20u);
    Shot(Info, "info-imd");
    Info.resize(480, 480);
    Shot(Info, "info-imd-large");
}
