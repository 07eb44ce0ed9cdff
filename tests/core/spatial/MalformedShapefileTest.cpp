// What becomes of shapefile pairs that are not sound. One table tells for each the error and whether the
// process or only the command ends.
#include "core/platform/AvailableMemory.h"
#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/ShapeDataset.h"
#include "core/spatial/ShapeErrors.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
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

constexpr const char* Record2 = "record 2 of bad.shp"; // as descriptions name it
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
const std::string Missing = "missing"; // stands for a file that is not there

Pair WithSquare(size_t place, const std::string& by) {
    return WithRecord(Replaced(SoundSquare, place, by));
}

/// The edge from (1e200, -1e200) to (1e200, 1e200) makes a product beyond the range of a double.
Pair TooLargeArea() {
    const std::string corners =
        LittleDouble(1e200) + LittleDouble(-1e200) + LittleDouble(1e200) + LittleDouble(1e200);
    return WithRecord(Replaced(SoundSquare, FirstPointPlace + 16, corners));
}

/// Three records, each but the first a part of the one before: its header and counts stand among what the
/// other holds. All reach up to the end of the file, so that together they hold more than it.
Pair OverlappingRecords(std::int32_t type, const std::function<std::string(size_t room)>& headOf) {
    constexpr size_t count = 3, step = 64, room = 700;
    std::string body(room, '\0');
    std::string index;
    for (size_t i = 0; i < count; ++i) {
        const size_t at = step * i;
        const std::string head = headOf(room - at - 8);
        const auto number = static_cast<std::int32_t>(type == 8 ? 0 : i + 1);
        body.replace(at, 8 + head.size(), BigInteger(number) + BigInteger(0) + head);
        index += BigInteger(static_cast<std::int32_t>((100 + at) / 2)) + BigInteger(0);
    }
    const std::string header = Replaced(Sound.Shp.substr(0, 100), 32, LittleInteger(type));
    const auto words = static_cast<std::int32_t>((100 + index.size()) / 2);
    std::string indexHeader = Replaced(header, 24, BigInteger(words));
    if (type == 8) indexHeader = Replaced(indexHeader, 92, BigInteger(50)); // where record 0 is looked up
    return {header + body, indexHeader + index};
}

/// One part with as many points as there is room for, whose coordinates are all 0 but where heads stand.
std::string HeadOfPoints(std::int32_t type, size_t room) {
    constexpr size_t head = 48;
    return PartsContents(type, {0}, Ring((room - head) / 16)).substr(0, head);
}

std::string HeadOfMultiPoint(size_t room) {
    constexpr size_t head = 40;
    return MultiPointContents(Ring((room - head) / 16)).substr(0, head);
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
        if (pair.Shx == Missing) std::filesystem::remove(folder_ / "bad.shx");
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
    long Error = 0;
    Ends Ending = Ends::Nothing;
    const char* Told = ""; // a piece of the description: which file and record it is
};

std::vector<Case> HeaderCases() {
    const auto shp = [](size_t place, const std::string& by) {
        return Pair{Replaced(Sound.Shp, place, by), Sound.Shx};
    };
    const auto shx = [](size_t place, const std::string& by) {
        return Pair{Sound.Shp, Replaced(Sound.Shx, place, by)};
    };
    constexpr Ends Command = Ends::Command, Process = Ends::Process;
    constexpr const char* header = "the main header of bad.shp";
    constexpr const char* noSuchIndex = "bad.shx ends before index record 4 does";
    constexpr const char* tooShort = "The header of bad.shx tells a length of ";
    return {
        {"sound", Sound},
        {"wrong code of .shp", shp(0, BigInteger(9993)), InvalidFileCode, Process, "The shp file"},
        {"wrong code of .shx", shx(0, BigInteger(9993)), InvalidFileCode, Process, "The shx file"},
        {"empty .shp", {"", Sound.Shx}, InputPastEndOfFile, Command, "bad.shp ends before the main header"},
        {"empty .shx", {Sound.Shp, ""}, InvalidFileCode, Process, "The shx file"},
        {"missing .shx", {Sound.Shp, Missing}, ShapefileNotFound, Process, "bad.shx does not exist."},
        {"text for .shx", {Sound.Shp, "id,x,y\n"}, InvalidFileCode, Process, "The shx file"},
        {"version 0", shp(28, LittleInteger(0))},
        {"length of .shp 0", shp(24, BigInteger(0))},
        {"length of .shp huge", shp(24, BigInteger(Most))},
        {"length of .shx tells fewer records", shx(24, BigInteger(54))},
        {"length of .shx tells no record", shx(24, BigInteger(50))},
        {"length of .shx inside a record", shx(24, BigInteger(57)), OffsetBeyondFile, Process,
         "larger then the mainfile size"},
        {"length of .shx tells more records", shx(24, BigInteger(66)), InputPastEndOfFile, Process,
         noSuchIndex},
        {"length of .shx huge", shx(24, BigInteger(Most)), InputPastEndOfFile, Process, noSuchIndex},
        {"length of .shx 0", shx(24, BigInteger(0)), SubscriptOutOfRange, Process, tooShort},
        {"length of .shx negative", shx(24, BigInteger(Least)), SubscriptOutOfRange, Process, tooShort},
        {"type 0", shp(32, LittleInteger(0)), UnsupportedShapeType, Process},
        {"type 4", shp(32, LittleInteger(4)), UnsupportedShapeType, Process},
        {"type 15, polygons with Z", shp(32, LittleInteger(15)), UnsupportedShapeType, Process},
        {"type negative", shp(32, LittleInteger(-5)), UnsupportedShapeType, Process},
        {"box of .shp not a number", shp(36, LittleDouble(Nan)), Overflow, Command, header},
        {"box of .shp infinite", shp(60, LittleDouble(Infinity)), Overflow, Command, header},
        {"box of .shp too large for its area", shp(36, LittleDouble(-1e308)), Overflow, Command, header},
    };
}

std::vector<Case> RecordCases() {
    const auto shx = [](size_t place, const std::string& by) {
        return Pair{Sound.Shp, Replaced(Sound.Shx, place, by)};
    };
    constexpr Ends Process = Ends::Process;
    constexpr const char* mismatch =
        "Index Record does not match main file Record\nrecord 2 of bad.shp has the number ";
    constexpr const char* wrongType =
        "A shape type does not match main header type.\nrecord 2 of bad.shp has the type ";
    constexpr const char* isNull =
        "A shape type does not match main header type.\nrecord 2 of bad.shp is a null shape.";
    return {
        {"offset beyond the .shp", shx(108, BigInteger(1000000)), InputPastEndOfFile, Process, Record2},
        {"offset at the end of 32 bits", shx(108, BigInteger(Most)), InputPastEndOfFile, Process, Record2},
        {"offset negative", shx(108, BigInteger(-4)), InputPastEndOfFile, Process, Record2},
        {"offset into the main header", shx(108, BigInteger(0)), RecordMismatch, Process, mismatch},
        {"length in the index wrong", shx(112, BigInteger(7))},
        {"length in the index negative", shx(112, BigInteger(-1))},
        {"length in the index huge", shx(112, BigInteger(Most))},
        {"offset of another record", shx(108, BigInteger(50)), RecordMismatch, Process, mismatch},
        {"record number out of order", WithRecord(SoundSquare, 3), RecordMismatch, Process, mismatch},
        {"record number negative", WithRecord(SoundSquare, -2), RecordMismatch, Process, mismatch},
        {"content length wrong", {Replaced(Sound.Shp, Record1 + 4, BigInteger(7)), Sound.Shx}},
        {"null shape", WithRecord(LittleInteger(0)), ShapeTypeMismatch, Process, isNull},
        {"null shape with long content", WithSquare(0, LittleInteger(0)), ShapeTypeMismatch, Process, isNull},
        {"polyline among polygons", WithSquare(0, LittleInteger(3)), ShapeTypeMismatch, Process, wrongType},
        {"point among polygons", WithRecord(PointContents(1, 2)), ShapeTypeMismatch, Process, wrongType},
    };
}

/// Shapes that share their bytes: read to the end they would take time in the square of the file's size.
std::vector<Case> NestedCases() {
    const auto points = [](std::int32_t type) {
        return OverlappingRecords(type, [type](size_t room) { return HeadOfPoints(type, room); });
    };
    constexpr Ends Process = Ends::Process;
    constexpr const char* inside = "record 2 of bad.shp stands inside another";
    return {
        {"polygon inside another", points(5), InputPastEndOfFile, Process, inside},
        {"line inside another", points(3), InputPastEndOfFile, Process, inside},
        {"multipoint that all records are", OverlappingRecords(8, HeadOfMultiPoint), InputPastEndOfFile,
         Process, inside},
    };
}

std::vector<Case> ContentCases() {
    const auto parts = [](const std::vector<std::int32_t>& firsts) {
        return WithRecord(PartsContents(5, firsts, ClockwiseSquare(0, 0, 1)));
    };
    const auto ring = [](const Ring& points) { return WithRecord(PolygonContents({points})); };
    const auto negative = LittleInteger(Least), huge = LittleInteger(Most);
    constexpr Ends Command = Ends::Command, Process = Ends::Process;
    return {
        {"part count negative", WithSquare(PartCountPlace, negative), SubscriptOutOfRange, Process, Record2},
        {"part count huge", WithSquare(PartCountPlace, huge), InputPastEndOfFile, Process, Record2},
        {"point count negative", WithSquare(PointCountPlace, negative), SubscriptOutOfRange, Process,
         Record2},
        {"point count huge", WithSquare(PointCountPlace, huge), InputPastEndOfFile, Process, Record2},
        {"part index negative", parts({0, -2}), SubscriptOutOfRange, Process, Record2},
        {"part index beyond the points", parts({0, 6}), SubscriptOutOfRange, Process, Record2},
        {"part indexes out of order", parts({0, 4, 2}), SubscriptOutOfRange, Process, Record2},
        {"first part does not start at 0", parts({1}), SubscriptOutOfRange, Process, Record2},
        {"x not a number", WithSquare(FirstPointPlace, LittleDouble(Nan)), Overflow, Process, Record2},
        {"y infinite", WithSquare(FirstPointPlace + 8, LittleDouble(-Infinity)), Overflow, Process, Record2},
        {"box of a record not a number", WithSquare(BoxPlace, LittleDouble(Nan)), Overflow, Process, Record2},
        {"area too large", TooLargeArea(), Overflow, Command},
        {"no part", WithRecord(PartsContents(5, {}, {}))},
        {"no part but points", parts({})},
        {"an empty part behind a ring", parts({0, 5})},
        {"ring of no point", ring({})},
        {"ring of one point", ring({{1, 2}})},
        {"ring of two points", ring({{1, 2}, {3, 4}})},
        {"ring of two points on a line through 0", ring({{1, 2}, {2, 4}}), DivisionByZero, Command},
        {"ring of three points, closed", ring({{1, 2}, {3, 5}, {1, 2}}), DivisionByZero, Command},
        {"parts that cancel",
         WithRecord(PolygonContents({ClockwiseSquare(0, 0, 1), CounterClockwiseSquare(0, 0, 1)})),
         DivisionByZero, Command},
    };
}

class MalformedShapefiles : public ::testing::TestWithParam<std::vector<Case> (*)()> {};

INSTANTIATE_TEST_SUITE_P(Headers, MalformedShapefiles, ::testing::Values(HeaderCases));
INSTANTIATE_TEST_SUITE_P(Records, MalformedShapefiles, ::testing::Values(RecordCases));
INSTANTIATE_TEST_SUITE_P(Nested, MalformedShapefiles, ::testing::Values(NestedCases));
INSTANTIATE_TEST_SUITE_P(Contents, MalformedShapefiles, ::testing::Values(ContentCases));

} // namespace

TEST_P(MalformedShapefiles, EndAsTheTableSays) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    for (const auto& [what, files, number, ending, told] : GetParam()()) {
        const auto error = OpenAndCompute(folder, files);
        EXPECT_EQ(error.Number, number) << what << ": " << error;
        EXPECT_EQ(error.EndsProcess, ending == Ends::Process) << what;
        EXPECT_EQ(number == 0, ending == Ends::Nothing) << what;
        EXPECT_NE(error.Description.find(told), std::string::npos) << what << ": " << error;
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
    EXPECT_EQ(ws.TotalShapeArea, 0);
    EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
    OpenAndCompute(folder, TooLargeArea());
    EXPECT_EQ(ws.TotalShapeArea, 0);
    for (int i = 0; i <= 3; ++i)
        EXPECT_EQ(ws.ShpPartArea(i, 1), PartAreaRecord{}) << i;
}

// Parts without points: 4 bytes of the file each, and many more in memory.
TEST(MalformedShapefile, AsksForTheMemoryOfItsParts) {
    ScriptedPlatform platform;
    DatasetFolder folder;
    for (const std::int32_t parts : {100001, 40000}) { // in the second record, or in three together
        const auto many = PartsContents(5, std::vector<std::int32_t>(static_cast<size_t>(parts), 0), {});
        ShapefileBytes bytes(5);
        for (int i = 0; i < 3; ++i)
            bytes.Add(parts == 40000 || i == 1 ? many : SoundSquare);
        ForceAvailableMemory([] { return 100001 * sizeof(CPart) - 1; });
        const auto error = OpenAndCompute(folder, {bytes.Shp(), bytes.Shx()});
        EXPECT_EQ(error.Number, OutOfMemory) << parts;
        EXPECT_EQ(error.Source,
                  parts == 40000 ? "LoadShapes" : "CShapeFile::Item"); // before its parts are made
        EXPECT_EQ(ws.ShpPolygons.Count(), parts == 40000 ? 2 : 1) << parts;
    }
    ForceAvailableMemory({});
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
