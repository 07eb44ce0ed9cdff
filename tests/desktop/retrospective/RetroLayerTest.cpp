#include "desktop/retrospective/PointScreen.h"
#include "desktop/retrospective/RetroBatch.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "support/SampleRuns.h"
#include "support/screens/FullDisk.h"
#include "support/screens/LayerMenu.h"

using namespace vastrel;

namespace {

class LayerOfRetroPolygons : public RetroPolygonTest {
protected:
    LayerOfRetroPolygons() { OpenSample(); }

    void ExpectTheSame(const Words& test) {
        ExpectLayerOfBatch(MapWindow, Script, SampleRuns{Folder / ""}.RetroPolygons() + test);
    }
};

class LayerOfRetroPoints : public PointScreenTest {
protected:
    const std::string Path = InProject("samples/country_pop.txt");

    void ExpectTheSame(const Words& test) {
        ExpectLayerOfBatch(Screen, Script,
                           Words{"retrospective-points", Path, "--format", "pop-case"} + test);
    }
};

} // namespace

TEST_F(LayerOfRetroPolygons, IsThatOfTheBatchProgram) {
    EXPECT_FALSE(OffersLayer(MapWindow));
    for (const auto& [option, variable] : RetroVariables) {
        SCOPED_TRACE(variable);
        RunSingle(option, "1");
        ExpectTheSame({"--variable", variable, "--sigma", "1"});
        RunRange(option, "0.5", "1.5", "0.5");
        ExpectTheSame({"--variable", variable, "--from", "0.5", "--to", "1.5", "--step", "0.5"});
    }
}

TEST_F(LayerOfRetroPolygons, KeepsTheClassesOfItsRun) {
    RunSingle("optUnadjusted", "1");
    Press(Retro, "optRossi");
    Global()->SetListIndex(1);
    ws.LegendLimits = {};
    ws.PrimaryIDs(1) = "another";
    ExpectTheSame({"--variable", "unadjusted", "--sigma", "1"});
}

TEST_F(LayerOfRetroPolygons, CannotBeWrittenOverTheDataset) {
    RunSingle("optUnadjusted", "1");
    Script.ExpectFile(FileQuestion::Kind::Save, LayerFilter, Folder / "country.shp");
    Script.ExpectMessage("country.shp is part of the dataset.");
    LayerEntryOf(MapWindow)->trigger();
}

TEST_F(LayerOfRetroPolygons, LeavesTheOldOneOnAFullDisk) {
    RunSingle("optUnadjusted", "1");
    for (const char* ending : {".geojson", ".shp"})
        ExpectOldFileOnAFullDisk(Script, LayerFilter, ending, DiskFullError,
                                 [this] { LayerEntryOf(MapWindow)->trigger(); });
}

TEST_F(LayerOfRetroPolygons, EndsWithItsRun) {
    RunSingle("optUnadjusted", "1");
    EXPECT_TRUE(OffersLayer(MapWindow));
    Script.ExpectMessage("Bandwidth should be numerical.");
    RunSingle("optUnadjusted", "x");
    EXPECT_FALSE(OffersLayer(MapWindow));

    RunSingle("optUnadjusted", "1");
    EXPECT_TRUE(OffersLayer(MapWindow));
    Retro.TakeAlphaValues(); // other columns
    EXPECT_FALSE(OffersLayer(MapWindow));

    RunSingle("optUnadjusted", "1");
    MapWindow.Unload();
    EXPECT_FALSE(OffersLayer(MapWindow));

    RunSingle("optUnadjusted", "1");
    EXPECT_TRUE(OffersLayer(MapWindow));
    Retro.Unload();
    EXPECT_FALSE(OffersLayer(MapWindow));
}

TEST_F(LayerOfRetroPoints, IsThatOfTheBatchProgram) {
    EXPECT_FALSE(OffersLayer(Screen));
    Load(Path);
    for (const auto& [option, variable] : RetroVariables) {
        SCOPED_TRACE(variable);
        Press(Screen, option);
        RunSingle("1");
        ExpectTheSame({"--variable", variable, "--sigma", "1"});
        RunRange("0.5", "1.5", "0.5");
        ExpectTheSame({"--variable", variable, "--from", "0.5", "--to", "1.5", "--step", "0.5"});
    }
}

TEST_F(LayerOfRetroPoints, EndsWithItsData) {
    LoadFour();
    RunSingle("1");
    EXPECT_TRUE(OffersLayer(Screen));
    Script.ExpectFile(FileQuestion::Kind::Save, LayerFilter, Folder / "none.txt");
    Script.ExpectMessage("The name of a layer ends in .geojson or .shp.");
    LayerEntryOf(Screen)->trigger();
    LoadFour();
    EXPECT_FALSE(OffersLayer(Screen));

    RunSingle("1");
    EXPECT_TRUE(OffersLayer(Screen));
    Screen.Unload();
    EXPECT_FALSE(OffersLayer(Screen));
}
