#include "desktop/display/frmGraph.h"
#include "desktop/frontend/MDIFrmMain.h"
#include "desktop/prospective/frmCusumTools.h"
#include "desktop/prospective/frmTxtFileOpen.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmCalculatePValue.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSigmaChart.h"
#include "desktop/spatial/frmAttTable.h"
#include "desktop/spatial/frmInfo.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/PolygonScreenTest.h"

#include <QTableView>
#include <QTest>

using namespace vastrel;

// What stands on the screens for the eye alone: it may be pressed, and nothing happens.
namespace {

class QuietControls : public PolygonScreenTest {
protected:
    ~QuietControls() override {
        The<frmInfo>().Unload();
        The<frmUnivariate>().Unload();
    }

    /// As the user does, whether the control is enabled or not.
    static void Push(QWidget& screen, const char* control) {
        auto* widget = The_<QWidget>(screen, control);
        QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, QPoint(8, widget->height() / 2));
    }
    void ExpectNoKeys(Screen& screen, std::initializer_list<const char*> boxes) {
        screen.Show();
        for (const char* name : boxes) {
            auto* box = The_<QLineEdit>(screen, name);
            const QString before = box->text();
            QTest::keyClicks(box, "12");
            EXPECT_EQ(box->text(), before) << name;
        }
    }
};

} // namespace

TEST_F(QuietControls, TakeNoKeysInTheBoxesOfResults) {
    ExpectNoKeys(The<frmCusumTools>(),
                 {"txtHvalue_NoAdjustment", "txtBonferroni_Correction", "txtLocalStatistics"});
    ExpectNoKeys(The<frmCalculatePValue>(), {"txtInputZScore_PValue", "txtChiSquarePValue"});
    ExpectNoKeys(The<frmUnivariateCusumTextfile>(), {"txtIDXY", "txtOldCusum", "txtNewZScore"});
    ExpectNoKeys(The<frmClusterDetectionTextfile>(), {"txtXTitle"});
    ExpectNoKeys(The<frmSigmaChart>(), {"txtTitle"});
    ExpectNoKeys(The<frmGraph>(), {"Text1"});
    ExpectNoKeys(The<frmTxtFileOpen>(), {"txtOpenFilePath"});
    EXPECT_EQ(Script.Transcript(), "");
}

TEST_F(QuietControls, NeverSelectTheFastInitialResponse) {
    OpenPro(WriteThree());
    SelectName.Unload();
    The<frmUnivariate>().Show();
    The<frmUnivariateCusumTextfile>().Show();
    for (QWidget* screen :
         std::initializer_list<QWidget*>{&The<frmUnivariate>(), &The<frmUnivariateCusumTextfile>()})
        for (const char* start : {"optPre", "optZero"}) {
            ScreenTest::Press(*screen, start);
            Push(*screen, "optFIR");
            EXPECT_FALSE(The_<OptionButton>(*screen, "optFIR")->Value());
            EXPECT_TRUE(The_<OptionButton>(*screen, start)->Value());
        }
}

TEST_F(QuietControls, KeepTheRowsOfTheTablesForTheEye) {
    OpenPro(WriteThree());
    SelectName.Unload();
    const size_t before = Script.Transcript().size();
    The<frmInfo>().Show();
    The<frmInfo>().FillInfoList(1);
    const auto rows = Rows(The_<ListBox>(The<frmInfo>(), "lstInfo"));
    Push(The<frmInfo>(), "Command1");
    Push(The<frmInfo>(), "Command2");
    The_<ListBox>(The<frmInfo>(), "lstInfo")->SetListIndex(2);
    EXPECT_EQ(Rows(The_<ListBox>(The<frmInfo>(), "lstInfo")), rows);

    Command("mnuAttTable");
    auto* cells = The_<QTableView>(Grid, "MSFlexGrid1");
    const QModelIndex cell = cells->model()->index(1, 1);
    const QPoint at = cells->visualRect(cell).center();
    QTest::mouseClick(cells->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(cells->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::keyClicks(cells, "7");
    EXPECT_EQ(cells->model()->data(cell).toString(), "300");
    EXPECT_EQ(cells->findChildren<QLineEdit*>().size(), 0); // no cell is open for writing
    EXPECT_EQ(Script.Transcript().size(), before);
}
