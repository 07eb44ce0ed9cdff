#include "desktop/prospective/PolygonWatchScreen.h"
#include "desktop/prospective/WatchScreen.h"
#include "support/screens/LayerMenu.h"

using namespace vastrel;

namespace {

using LayerOfPolygonWatch = PolygonWatchScreenTest;
using LayerOfPointWatch = WatchScreenTest;

} // namespace

TEST_F(LayerOfPolygonWatch, IsThatOfTheBatchProgram) {
    for (const char* id2 : {"", "KEY"}) {
        Open("NAME", id2);
        EXPECT_FALSE(OffersLayer(Map));
        std::vector<std::string> words{"prospective-polygons",
                                       Folder / "three.shp",
                                       "--fields",
                                       "Z1",
                                       "Z3",
                                       "--id",
                                       "NAME",
                                       "--h",
                                       "3",
                                       "--sigma",
                                       "0"};
        if (*id2 != 0) words.insert(words.end(), {"--id2", id2});
        Type(Screen, "txtHvalue", "3");
        Type(Screen, "txtSigma", "0");
        RunFields();
        ExpectLayerOfBatch(Map, Script, words);
        Pick(2, 3); // of another run, which is not made
        ExpectLayerOfBatch(Map, Script, words);

        Press(Screen, "optPre");
        Run();
        OpenSaved();
        Press(Dialog, "cmdOK");
        words.insert(words.end(), {"--previous", Folder / "saved.csm"});
        words[4] = "Z2";
        ASSERT_EQ(words[3], "Z1");
        ExpectLayerOfBatch(Map, Script, words);
        Press(Screen, "optZero");
    }
}

TEST_F(LayerOfPolygonWatch, EndsWithItsRun) {
    RunFields();
    EXPECT_TRUE(OffersLayer(Map));
    Pick(2, 6);
    Script.ExpectRunTimeError(94);
    Run();
    EXPECT_FALSE(OffersLayer(Map));

    RunFields();
    EXPECT_TRUE(OffersLayer(Map));
    Screen.Unload();
    EXPECT_FALSE(OffersLayer(Map));
}

TEST_F(LayerOfPolygonWatch, EndsWithItsDataset) {
    RunFields();
    EXPECT_TRUE(OffersLayer(Map));
    Open();
    EXPECT_FALSE(OffersLayer(Map));
}

TEST_F(LayerOfPointWatch, IsThatOfTheBatchProgram) {
    EXPECT_FALSE(OffersLayer(Screen));
    std::vector<std::string> words{
        "prospective-points", "--ids", IDs(), "--z", Z(), "--h", "2.2", "--sigma", "1"};
    LoadForStart();
    Type(Screen, "txtSigma", "1");
    Run();
    ExpectLayerOfBatch(Screen, Script, words);

    LoadForContinuation();
    EXPECT_FALSE(OffersLayer(Screen));
    Type(Screen, "txtSigma", "1");
    Run();
    words.insert(words.end(), {"--previous", Saved()});
    ExpectLayerOfBatch(Screen, Script, words);
}

TEST_F(LayerOfPointWatch, EndsWithItsRunAndItsFiles) {
    LoadForStart();
    Run();
    EXPECT_TRUE(OffersLayer(Screen));
    Load("cmdNewZScore", Z());
    EXPECT_FALSE(OffersLayer(Screen));

    Script.AtYield(2, [this] { Load("cmdNewZScore", Z()); });
    Run();
    EXPECT_FALSE(OffersLayer(Screen)); // the results are those of the file before

    Run();
    EXPECT_TRUE(OffersLayer(Screen));
    Load("cmdNewZScore", Folder.Write("more.txt", "1\n2\n3\n4\n"));
    Script.ExpectRunTimeError(9);
    Run();
    EXPECT_FALSE(OffersLayer(Screen));
}

TEST_F(LayerOfPointWatch, CannotBeWrittenOverItsFiles) {
    LoadForStart();
    const std::string z = Folder.Write("z.geojson", ReadFile(Z()));
    Load("cmdNewZScore", z);
    Run();
    Script.ExpectFile(FileQuestion::Kind::Save, LayerFilter, z);
    Script.ExpectMessage("z.geojson is part of the dataset.");
    LayerEntryOf(Screen)->trigger();
}
