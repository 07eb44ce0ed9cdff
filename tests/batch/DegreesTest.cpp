#include "support/BatchProgram.h"
#include "support/ProjectFolder.h"
#include "support/ShapefileBytes.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using Words = std::vector<std::string>;

const TemporaryFolder& Folder() {
    static const TemporaryFolder folder;
    return folder;
}

/// Whether the note stands at the head of what a test on three places says, of which the last is (x, y).
bool NotesPlaces(const std::string& x, const std::string& y, const Words& more = {}) {
    const auto file = Folder().Write("places.txt", "A,0,0,3,4\nB,10,0,5,4\nC," + x + "," + y + ",4,4\n");
    Words words{"retrospective-points", file, "--format", "obs-exp", "--sigma", "1", "--lists", "/dev/null"};
    words.insert(words.end(), more.begin(), more.end());
    return RunBatchWithNotes(words).Errors.rfind(DegreesNote, 0) == 0;
}

/// Watches two squares, the second at x, with this text as the projection beside them.
BatchResult WatchSquares(double x, const std::string& projection) {
    const TemporaryFolder folder;
    ShapefileBytes shapes(5);
    shapes.Add(PolygonContents({ClockwiseSquare(0, 0, 1)}));
    shapes.Add(PolygonContents({ClockwiseSquare(x, 0, 1)}));
    shapes.WritePair(folder, "two");
    folder.Write("two.dbf", TableBytes({{"NAME", 'C', 2}}, {{"A "}, {"B "}}));
    if (!projection.empty()) folder.Write("two.prj", projection);
    const auto z = folder.Write("z.txt", "1,2\n0,1\n");
    return RunBatchWithNotes(
        {"prospective-polygons", folder / "two.shp", "--z", z, "--id", "NAME", "--lists", "/dev/null"});
}

const BatchResult Noted{0, "", std::string(DegreesNote)}, Silent{0, "", ""};

} // namespace

TEST(Degrees, AreNotedWhereAllPlacesCouldBeLongitudeAndLatitude) {
    EXPECT_TRUE(NotesPlaces("10", "10"));
    EXPECT_TRUE(NotesPlaces("360", "90"));
    EXPECT_TRUE(NotesPlaces("-180", "-90"));
    for (const auto& [x, y] :
         {std::pair("361", "10"), std::pair("-181", "10"), std::pair("10", "91"), std::pair("10", "-91")})
        EXPECT_FALSE(NotesPlaces(x, y)) << x << ", " << y;
}

TEST(Degrees, AreNotedOnceAndNotWithQuiet) {
    EXPECT_FALSE(NotesPlaces("10", "10", {"--quiet"}));
    const auto range = RunBatchWithNotes({"retrospective-points", InProject("tests/golden/five.txt"),
                                          "--format", "obs-exp", "--lists", "/dev/null"});
    EXPECT_EQ(range, Noted);
    EXPECT_EQ(RunBatchWithNotes({"prospective-points", "--ids", InProject("samples/watch_xy.txt"), "--z",
                                 InProject("samples/watch_z.txt"), "--lists", "/dev/null"}),
              Silent); // kilometres beyond 90
}

TEST(Degrees, AreNotNotedWhereNothingIsComputed) {
    EXPECT_EQ(RunBatchWithNotes({"retrospective-points", InProject("tests/golden/five.txt"), "--format",
                                 "obs-exp", "--sigma", "x"}),
              (BatchResult{3, "", "Bandwidth should be numerical.\n"}));
}

TEST(Degrees, AreWhatTheProjectionOfAShapefileTells) {
    EXPECT_EQ(WatchSquares(5, ""), Noted);
    EXPECT_EQ(WatchSquares(500, ""), Silent);
    EXPECT_EQ(WatchSquares(500, "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\"]]"), Noted);
    EXPECT_EQ(WatchSquares(5, "PROJCS[\"ETRS89 / UTM zone 32N\",GEOGCS[\"ETRS89\"]]"), Silent);
}
