// What becomes of shapefile pairs that are not sound. One table tells for each the error and whether the
// process or only the command ends.
#include "platform/Platform.h"
#include "platform/RunTimeError.h"
#include "spatial/CPolygon.h"
#include "spatial/Centroids.h"
#include "spatial/ShapeDataset.h"
#include "spatial/ShapeErrors.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"
#include "support/ShapefileBytes.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace vastrel;

namespace {

constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

struct Pair {
    std::string Shp;
    std::string Shx;
};

const std::string SoundSquare = PolygonContents({ClockwiseSquare(0, 0, 1)});

/// The second of three polygons is the one of the test.
Pair WithRecord(const std::string& contents, std::int32_t number = 0) {
    ShapefileBytes bytes(5);
    bytes.Add(SoundSquare);
    bytes.Add(contents, number);
    bytes.Add(SoundSquare);
    return {bytes.Shp(), bytes.Shx()};
}

const Pair Sound = WithRecord(SoundSquare);

// Places in a record's contents.
constexpr size_t BoxPlace = 4, PartCountPlace = 36, PointCountPlace = 40, FirstPointPlace = 48;
constexpr size_t Record1 = 100;

/// The edge from (1e200, -1e200) to (1e200, 1e200) makes a product beyond the range of a double.
Pair TooLargeArea() {
    const std::string corners =
        LittleDouble(1e200) + LittleDouble(-1e200) + LittleDouble(1e200) + LittleDouble(1e200);
    return WithRecord(Replaced(SoundSquare, FirstPointPlace + 16, corners));
}

/// A folder with one dataset, whose files are written anew only when they change.
class DatasetFolder {
public:
    DatasetFolder() {
        folder_.Write("bad.dbf", TableBytes({{"ID", 'N', 5}}, {{"    1"}, {"    2"}, {"    3"}}));
    }

    std::string Write(const Pair& pair) {
        if (!written_ || pair.Shp != now_.Shp) folder_.Write("bad.shp", pair.Shp);
        if (!written_ || pair.Shx != now_.Shx) folder_.Write("bad.shx", pair.Shx);
        now_ = pair;
        written_ = true;
        return folder_ / "bad.shp";
    }

private:
    TemporaryFolder folder_;
    Pair now_;
    bool written_ = false;
};

/// Opens, loads, and computes as the open flows do.
RaisedError OpenAndCompute(DatasetFolder& folder, const Pair& pair) {
    ws = Workspace{};
    const std::string path = folder.Write(pair);
    return ErrorOf([&] {
        OpenShapeAttributes({path, "bad.shp", false});
        ReadShapeHeader();
        LoadShapes();
        ComputeShapeAreas();
        ComputeCentroids();
    });
}

enum class Ends { Nothing, Command, Process };

struct Case {
    const char* What;
    Pair Files;
    long Error;
    Ends Ending;
};

std::vector<Case> Cases() {
    const auto square = [](size_t place, const std::string& by) {
        return WithRecord(Replaced(SoundSquare, place, by));
    };
    const auto shp = [](size_t place, const std::string& by) {
        return Pair{Replaced(Sound.Shp, place, by), Sound.Shx};
    };
    const auto shx = [](size_t place, const std::string& by) {
        return Pair{Sound.Shp, Replaced(Sound.Shx, place, by)};
    };
    const auto ring = [](const Ring& points) { return WithRecord(PolygonContents({points})); };
    const Ring square0 = ClockwiseSquare(0, 0, 1);
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    return {
        {"sound", Sound, 0, Ends::Nothing},
        // Main headers
        {"wrong code of .shp", shp(0, BigInteger(9993)), InvalidFileCode, Ends::Process},
        {"wrong code of .shx", shx(0, BigInteger(9993)), InvalidFileCode, Ends::Process},
        {"empty .shp", {"", Sound.Shx}, InputPastEndOfFile, Ends::Command},
        {"empty .shx", {Sound.Shp, ""}, InvalidFileCode, Ends::Process},
        {"text for .shx", {Sound.Shp, "id,x,y\n"}, InvalidFileCode, Ends::Process},
        {"version 0", shp(28, LittleInteger(0)), 0, Ends::Nothing},
        {"length of .shp 0", shp(24, BigInteger(0)), 0, Ends::Nothing},
        {"length of .shp huge", shp(24, BigInteger(most)), 0, Ends::Nothing},
        {"length of .shx tells fewer records", shx(24, BigInteger(54)), 0, Ends::Nothing},
        {"length of .shx tells no record", shx(24, BigInteger(50)), 0, Ends::Nothing},
        {"length of .shx tells more records", shx(24, BigInteger(66)), InputPastEndOfFile, Ends::Process},
        {"length of .shx huge", shx(24, BigInteger(most)), InputPastEndOfFile, Ends::Process},
        {"length of .shx 0", shx(24, BigInteger(0)), SubscriptOutOfRange, Ends::Process},
        {"length of .shx negative", shx(24, BigInteger(least)), SubscriptOutOfRange, Ends::Process},
        {"type 0", shp(32, LittleInteger(0)), UnsupportedShapeType, Ends::Process},
        {"type 4", shp(32, LittleInteger(4)), UnsupportedShapeType, Ends::Process},
        {"type 15, polygons with Z", shp(32, LittleInteger(15)), UnsupportedShapeType, Ends::Process},
        {"type negative", shp(32, LittleInteger(-5)), UnsupportedShapeType, Ends::Process},
        {"box of .shp not a number", shp(36, LittleDouble(Nan)), Overflow, Ends::Command},
        {"box of .shp infinite", shp(60, LittleDouble(Infinity)), Overflow, Ends::Command},
        {"box of .shp too large for its area", shp(36, LittleDouble(-1e308)), Overflow, Ends::Command},
        // Index and record headers
        {"offset beyond the .shp", shx(108, BigInteger(1000000)), InputPastEndOfFile, Ends::Process},
        {"offset at the end of 32 bits", shx(108, BigInteger(most)), InputPastEndOfFile, Ends::Process},
        {"offset negative", shx(108, BigInteger(-4)), InputPastEndOfFile, Ends::Process},
        {"offset into the main header", shx(108, BigInteger(0)), RecordMismatch, Ends::Process},
        {"offset of another record", shx(108, BigInteger(50)), RecordMismatch, Ends::Process},
        {"record number out of order", WithRecord(SoundSquare, 3), RecordMismatch, Ends::Process},
        {"record number negative", WithRecord(SoundSquare, -2), RecordMismatch, Ends::Process},
        {"content length wrong", shp(Record1 + 4, BigInteger(7)), 0, Ends::Nothing},
        // Types of records
        {"null shape", WithRecord(LittleInteger(0)), ShapeTypeMismatch, Ends::Process},
        {"polyline among polygons", square(0, LittleInteger(3)), ShapeTypeMismatch, Ends::Process},
        {"point among polygons", WithRecord(PointContents(1, 2)), ShapeTypeMismatch, Ends::Process},
        // Counts
        {"part count negative", square(PartCountPlace, LittleInteger(-1)), SubscriptOutOfRange,
         Ends::Process},
        {"part count huge", square(PartCountPlace, LittleInteger(most)), InputPastEndOfFile, Ends::Process},
        {"point count negative", square(PointCountPlace, LittleInteger(least)), SubscriptOutOfRange,
         Ends::Process},
        {"point count huge", square(PointCountPlace, LittleInteger(most)), InputPastEndOfFile, Ends::Process},
        // Part indexes
        {"part index negative", WithRecord(PartsContents(5, {0, -2}, square0)), SubscriptOutOfRange,
         Ends::Process},
        {"part index beyond the points", WithRecord(PartsContents(5, {0, 6}, square0)), SubscriptOutOfRange,
         Ends::Process},
        {"part indexes out of order", WithRecord(PartsContents(5, {0, 4, 2}, square0)), SubscriptOutOfRange,
         Ends::Process},
        {"first part does not start at 0", WithRecord(PartsContents(5, {1}, square0)), SubscriptOutOfRange,
         Ends::Process},
        // Coordinates
        {"x not a number", square(FirstPointPlace, LittleDouble(Nan)), Overflow, Ends::Process},
        {"y infinite", square(FirstPointPlace + 8, LittleDouble(-Infinity)), Overflow, Ends::Process},
        {"box of a record not a number", square(BoxPlace, LittleDouble(Nan)), Overflow, Ends::Process},
        {"area too large", TooLargeArea(), Overflow, Ends::Command},
        // Rings
        {"no part", WithRecord(PartsContents(5, {}, {})), 0, Ends::Nothing},
        {"no part but points", WithRecord(PartsContents(5, {}, square0)), 0, Ends::Nothing},
        {"ring of no point", ring({}), 0, Ends::Nothing},
        {"an empty part behind a ring", WithRecord(PartsContents(5, {0, 5}, square0)), 0, Ends::Nothing},
        {"ring of one point", ring({{1, 2}}), 0, Ends::Nothing},
        {"ring of two points", ring({{1, 2}, {3, 4}}), 0, Ends::Nothing},
        {"ring of two points on a line through 0", ring({{1, 2}, {2, 4}}), DivisionByZero, Ends::Command},
        {"ring of three points, closed", ring({{1, 2}, {3, 5}, {1, 2}}), DivisionByZero, Ends::Command},
        {"parts that cancel",
         WithRecord(PolygonContents({ClockwiseSquare(0, 0, 1), CounterClockwiseSquare(0, 0, 1)})),
         DivisionByZero, Ends::Command},
    };
}

} // namespace

TEST(MalformedShapefile, EndsAsTheTableSays) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    for (const auto& [what, files, number, ending] : Cases()) {
        const auto error = OpenAndCompute(folder, files);
        EXPECT_EQ(error.Number, number) << what << ": " << error;
        EXPECT_EQ(error.EndsProcess, ending == Ends::Process) << what;
        EXPECT_EQ(number == 0, ending == Ends::Nothing) << what;
    }
}

TEST(MalformedShapefile, NamesFileAndRecord) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    for (const auto& [what, files, number, ending] : Cases()) {
        const bool ofRecord =
            number == Overflow || number == SubscriptOutOfRange || number == InputPastEndOfFile;
        if (!ofRecord || ending != Ends::Process || std::string(what).rfind("length", 0) == 0) continue;
        const auto error = OpenAndCompute(folder, files);
        EXPECT_NE(error.Description.find("bad.sh"), std::string::npos) << what << ": " << error;
        EXPECT_NE(error.Description.find("record 2"), std::string::npos) << what << ": " << error;
    }
}

TEST(MalformedShapefile, LeavesWhatWasFilledBefore) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    OpenAndCompute(folder, WithRecord(Replaced(SoundSquare, FirstPointPlace, LittleDouble(Nan))));
    EXPECT_EQ(ws.NumRegion, 3);
    EXPECT_EQ(ws.ShpPolygons.Count(), 1);
    EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
}

TEST(MalformedShapefile, LeavesNoResultOfAFault) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    OpenAndCompute(folder, WithRecord(PolygonContents({{{1, 2}, {3, 5}, {1, 2}}})));
    EXPECT_EQ(ws.TotalShapeArea, 2); // two unit squares and a ring without area
    ASSERT_EQ(ws.RegionCentroid.UpperBound(), 3);
    for (int i = 0; i <= 3; ++i)
        EXPECT_EQ(ws.RegionCentroid(i), RegionPoint{}) << i;
    OpenAndCompute(folder, TooLargeArea());
    EXPECT_EQ(ws.TotalShapeArea, 0);
    for (int i = 0; i <= 3; ++i)
        EXPECT_EQ(ws.ShpPartArea(i, 1), PartAreaRecord{}) << i;
}

TEST(MalformedShapefile, EndsAtEveryLengthOfTheMainFile) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    for (size_t length = 0; length < Sound.Shp.size(); ++length) {
        const auto error = OpenAndCompute(folder, {Sound.Shp.substr(0, length), Sound.Shx});
        EXPECT_EQ(error.Number, InputPastEndOfFile) << length;
        EXPECT_EQ(error.EndsProcess, length >= 100) << length;
    }
}

TEST(MalformedShapefile, EndsAtEveryLengthOfTheIndex) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    for (size_t length = 0; length < Sound.Shx.size(); ++length) {
        const auto error = OpenAndCompute(folder, {Sound.Shp, Sound.Shx.substr(0, length)});
        EXPECT_EQ(error.Number, length < 4 ? InvalidFileCode : InputPastEndOfFile) << length;
        EXPECT_TRUE(error.EndsProcess) << length;
    }
}

TEST(MalformedShapefile, SurvivesEveryChangedByte) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    const Pair pair =
        WithRecord(PolygonContents({ClockwiseSquare(0, 0, 1), CounterClockwiseSquare(3, 3, 2)}));
    for (const bool inIndex : {false, true}) {
        const std::string& bytes = inIndex ? pair.Shx : pair.Shp;
        for (size_t place = 0; place < bytes.size(); ++place) {
            for (const char value : {'\x7F', '\xFF'}) {
                const std::string changed = Replaced(bytes, place, std::string(1, value));
                OpenAndCompute(folder, inIndex ? Pair{pair.Shp, changed} : Pair{changed, pair.Shx});
                for (std::ptrdiff_t i = 0; i <= ws.RegionCentroid.UpperBound(); ++i)
                    ASSERT_TRUE(std::isfinite(ws.RegionCentroid(i).X) &&
                                std::isfinite(ws.RegionCentroid(i).Y))
                        << place;
            }
        }
    }
}
