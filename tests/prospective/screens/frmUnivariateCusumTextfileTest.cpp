#include "prospective/screens/frmUnivariateCusumTextfile.h"

#include "platform/qt/ListBox.h"
#include "support/TemporaryFolder.h"
#include "support/screens/ScreenTest.h"

#include <QLabel>

using namespace vastrel;

namespace {

constexpr const char* OpenFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";

const std::string Samples = std::string(PROJECT_FOLDER) + "/samples/";

class WatchScreenTest : public ScreenTest {
protected:
    WatchScreenTest() { Command("mnuOpenTextPro"); }

    void Load(const char* button, const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        Press(Screen, button);
    }
    void LoadSample() {
        Load("cmdFileOpenIDXY", Samples + "watch_xy.txt");
        Load("cmdNewZScore", Samples + "watch_z.txt");
    }

    ListBox* Periods() { return The_<ListBox>(Screen, "lstPeriod"); }
    ListBox* Regions() { return The_<ListBox>(Screen, "lstRegion"); }
    std::string Caption() { return The_<QLabel>(Screen, "lblY")->text().toStdString(); }

    frmUnivariateCusumTextfile& Screen = The<frmUnivariateCusumTextfile>();
};

} // namespace

TEST_F(WatchScreenTest, PlaysTheSampleAndListsTheLastPeriod) {
    LoadSample();
    Shot(Frame, "watch-loaded");
    Script.AtYield(20, [this] { Shot(Frame, "watch-playing"); });
    Press(Screen, "cmdRun");
    EXPECT_EQ(Periods()->ListCount(), 2 + 24 + 1);
    EXPECT_EQ(Periods()->ListIndex(), 25);
    EXPECT_EQ(Caption(), "Period: 24");
    EXPECT_EQ(Script.YieldCalls(), 24);
    EXPECT_FALSE(Script.BusyPointer());
    ASSERT_GT(Regions()->ListCount(), 2);
    Regions()->SetListIndex(2);
    Shot(Frame, "watch-region");
}
