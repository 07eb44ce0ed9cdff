// The pictures that go with the variables.
#include "desktop/retrospective/PointScreen.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/PictureBox.h"

using namespace vastrel;

namespace {

struct FormulaPicture {
    const char *Option, *File;
};
constexpr FormulaPicture Formulas[] = {{"optRossi", "rossi.jpg"},
                                       {"optStandard", "standard.jpg"},
                                       {"optAdjusted_Generic", "adjusted.jpg"},
                                       {"optUnadjusted", "unadjusted.jpg"}};

/// What a box of this size shows of a picture of the program.
QImage Shown(PictureBox& box) {
    return box.grab().toImage().convertToFormat(QImage::Format_RGB32);
}
QImage ShownOf(const PictureBox& box, const char* file) {
    PictureBox other;
    other.resize(box.size());
    other.LoadPicture(file);
    return Shown(other);
}

void ExpectPicture(PictureBox& box, const char* file) {
    EXPECT_EQ(Shown(box), ShownOf(box, file)) << file;
}

class PointPictures : public PointScreenTest {
protected:
    PictureBox& Box(const char* name) { return *The_<PictureBox>(Screen, name); }
};
class PolygonPictures : public RetroPolygonTest {
protected:
    PolygonPictures() { OpenSample(); }
    PictureBox& Formula() { return *The_<PictureBox>(Retro, "picEquation"); }
    PictureBox& Legend() { return *The_<PictureBox>(MapWindow, "imgM_Legend"); }
};

} // namespace

TEST_F(PointPictures, ShowTheFormulaOfTheOption) {
    ExpectPicture(Box("picEquation"), "unadjusted.jpg");
    EXPECT_NE(ShownOf(Box("picEquation"), "unadjusted.jpg"), ShownOf(Box("picEquation"), "adjusted.jpg"));
    for (const auto& [option, file] : Formulas) {
        Press(Screen, option);
        ExpectPicture(Box("picEquation"), file);
    }
}

TEST_F(PointPictures, ShowTheLegendOfMWithARunAndWithAStep) {
    LoadFour();
    Press(Screen, "optRossi");
    RunSingle("1");
    ExpectPicture(Box("imgM_Legend"), "M_Legend.jpg");
    Press(Screen, "optStandard");
    RunRange("0.5", "1.5", "0.5");
    Global()->SetListIndex(2);
    EXPECT_TRUE(IsShown(Screen, "imgM_Legend"));
    ExpectPicture(Box("imgM_Legend"), "M_Legend.jpg");
}

TEST_F(PolygonPictures, ShowTheFormulaOfTheOption) {
    ExpectPicture(Formula(), "unadjusted.jpg");
    for (const auto& [option, file] : Formulas) {
        Press(Retro, option);
        ExpectPicture(Formula(), file);
    }
}

TEST_F(PolygonPictures, ShowTheLegendOfMWithARun) {
    RunSingle("optStandard", "1");
    ExpectPicture(Legend(), "M_Legend.jpg");
}
