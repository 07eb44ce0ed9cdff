#include "desktop/prospective/PolygonWatchScreen.h"
#include "support/AttributeData.h"

using namespace vastrel;

namespace {

/// The screen stands while another dataset is opened.
class PolygonDatasetTest : public PolygonWatchScreenTest {
protected:
    PolygonDatasetTest() {
        RunFields();
        rows_ = Rows(Periods());
    }

    /// A dataset of so many Regions with the columns ID, Y1 and Y2.
    void OpenOther(int regions) {
        std::vector<std::vector<std::string>> rows;
        for (int i = 1; i <= regions; ++i)
            rows.push_back({"r" + std::to_string(i), std::to_string(10 * i), std::to_string(-i)});
        Script.ExpectFile(
            FileQuestion::Kind::Open, ShapeFilter,
            WriteDataset(Folder, "other", {{"ID", 'C', 4}, {"Y1", 'N', 4}, {"Y2", 'N', 4}}, rows));
        Command("mnuOpenShapePro");
        TakeIDs("ID", "");
    }
    std::vector<std::string> ColumnsFrom(int first) {
        std::vector<std::string> names;
        for (int k = first; k < From()->ListCount(); ++k)
            names.push_back(From()->itemText(k).toStdString());
        return names;
    }

    std::vector<std::string> rows_;
};

} // namespace

TEST_F(PolygonDatasetTest, StaysAsItStood) {
    OpenOther(2);
    EXPECT_TRUE(Screen.isVisible() && Map.isVisible());
    EXPECT_EQ(Rows(Periods()), rows_);
    EXPECT_EQ(Regions()->ListCount(), 1);
    EXPECT_EQ(From()->ListCount(), 2 * FieldCount); // the columns of before
    EXPECT_EQ(From()->Text() + To()->Text(), "Z1Z3");
    EXPECT_TRUE(CanSaveResult() && CanSaveCusum());
    EXPECT_FALSE(ws.bCusumMapping || Map.IsToolPressed("Graph")); // the flow has cleared the map
    EXPECT_FALSE(IsShown(Map, "picLegend"));
    EXPECT_TRUE(ws.bCusumRun);
    Shot(Frame, "frmUnivariate_otherDataset");
}

TEST_F(PolygonDatasetTest, ShowsTheSumsOfBeforeOnFewerRegionsUnderTheirNewNames) {
    OpenOther(2);
    Periods()->SetListIndex(3);
    EXPECT_EQ(Rows(Regions()), (std::vector<std::string>{"   11.00 <---                r2"}));
    EXPECT_EQ(ColourOf(1.5), Red);
    EXPECT_TRUE(ws.bCusumMapping && Map.IsToolPressed("Graph"));
    Regions()->SetListIndex(0);
    EXPECT_EQ(Text(Graph, "Text1"), "r2 in 2: ---> 11.00");
}

TEST_F(PolygonDatasetTest, StopsAtARegionThatTheSumsDoNotHave) {
    OpenOther(4);
    Script.ExpectRunTimeError(9);
    Key(Screen, "lstPeriod", Qt::Key_Up);
    EXPECT_EQ(ws.SelectedPeriod, 2);
    EXPECT_FALSE(ws.bCusumMapping);
    EXPECT_EQ(Text(Screen, "lblY"), "3"); // as before
}

TEST_F(PolygonDatasetTest, RunsByThePlacesOfTheColumnsOfBefore) {
    OpenOther(2);
    Script.ExpectRunTimeError(3265); // the third to the fifth of three
    Run();
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(ws.CusumValue, Table<double>(2, 3));
}

TEST_F(PolygonDatasetTest, OffersTheNewColumnsBehindTheOldOnesByTheirPlacesInTheList) {
    OpenOther(2);
    Script.ExpectRunTimeError(3265); // a name of before, by which the walk goes
    Key(Screen, "cboStartZ", Qt::Key_Down);
    const std::vector<std::string> names{"ID", "Y1", "Y2"};
    EXPECT_EQ(ColumnsFrom(2 * FieldCount), names); // the list has grown all the same
    EXPECT_EQ(ws.StartFieldIndex, 3);
    From()->SetListIndex(2 * FieldCount + 1);
    EXPECT_EQ(From()->Text(), "Y1");
    Script.ExpectMessage("Start and end priods were not set improperly!");
    Key(Screen, "cboEndZ", Qt::Key_Down);
    To()->SetListIndex(2 * FieldCount + 2);
    EXPECT_EQ(To()->Text(), "Y2");
    Script.ExpectRunTimeError(3265); // the run goes by the places, as for every grown part of a list
    Run();
    EXPECT_TRUE(Script.BusyPointer());
}

TEST_F(PolygonDatasetTest, GoesOnFromASavedTableOfAnotherDataset) {
    Press(Screen, "optPre");
    Run();
    OpenSaved();
    OpenOther(2);
    EXPECT_TRUE(Dialog.IsLoaded());
    Press(Screen, "optExistingTextfile");
    Script.ExpectFile(FileQuestion::Kind::Open, TextFilter, Folder.Write("z.txt", "1,1,5\n6,6,-2\n"));
    Press(Dialog, "cmdOK"); // its first two rows are taken
    EXPECT_EQ(Periods()->List(3), "    2    11.00                   r2");

    OpenOther(4); // nothing looks whether the rows fit
    Script.ExpectFile(FileQuestion::Kind::Open, TextFilter, Folder.Write("z.txt", "1\n6\n7\n8\n"));
    Script.ExpectRunTimeError(9);
    Press(Dialog, "cmdOK");
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(Periods()->ListCount(), 2);
    EXPECT_EQ(ws.CusumValue, Table<double>(4, 1));
}

TEST_F(PolygonDatasetTest, IsAsNewBehindAClose) {
    Screen.Frame()->close();
    OpenOther(2);
    EXPECT_EQ(ColumnsFrom(0), (std::vector<std::string>{"ID", "Y1", "Y2"}));
    EXPECT_EQ(Periods()->ListCount(), 0);
    EXPECT_FALSE(CanSaveResult());
    EXPECT_TRUE(CanSaveCusum());
    EXPECT_FALSE(IsShown(Screen, "MSChart1"));
    Pick(1, 2);
    Run();
    EXPECT_EQ(Periods()->List(3), "    2    17.00                   r2");
    EXPECT_EQ(Text(Screen, "lblY"), "2");
}
