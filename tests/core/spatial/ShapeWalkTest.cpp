#include "core/spatial/ShapeWalk.h"

#include "support/PeakMemory.h"
#include "support/PolygonFile.h"
#include "support/RaisedError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

using namespace vastrel;

namespace {

constexpr size_t Header = 100;

/// What a walk passes on: "0: 100,200 100,202 103,202 103,200".
std::string Walked(const std::string& path) {
    std::string text;
    WalkRings(path, [&](std::int32_t record, const std::vector<PointXY>& ring) {
        text += std::to_string(record) + ":";
        for (const PointXY& vertex : ring)
            text += " " + std::to_string(static_cast<int>(vertex.X)) + "," +
                    std::to_string(static_cast<int>(vertex.Y));
        text += "\n";
    });
    return text;
}

class ShapeWalk : public ::testing::Test {
protected:
    std::string Walk(const std::string& bytes) { return Walked(folder_.Write("map.shp", bytes)); }
    long Error(const std::string& bytes) {
        return ErrorNumberOf([&] { Walk(bytes); });
    }
    std::string Description(const std::string& bytes) {
        return ErrorDescriptionOf([&] { Walk(bytes); });
    }

    TemporaryFolder folder_;
};

const std::vector<std::string> Walks = {
    "0: 100,200 100,202 103,202 103,200\n",
    "1: 104,200 104,204 108,204 108,200\n1: 105,201 107,201 107,203 105,203\n",
    "2: 108,203 109,205 110,203\n"};

/// A file of the three Regions, four bytes at a place of its second record put anew.
std::string WithSecond(size_t place, std::int32_t value) {
    auto records = ThreeRegions();
    records[1] = Replaced(records[1], place, LittleInteger(value));
    return PolygonFile(records);
}

// Places in a record.
constexpr size_t PartCount = 44;
constexpr size_t PointCount = 48;
constexpr size_t FirstPart = 52;
constexpr size_t SecondPart = 56;

} // namespace

TEST_F(ShapeWalk, PassesEachRingWithoutItsClosingVertex) {
    EXPECT_EQ(Walk(PolygonFile(ThreeRegions())), Walks[0] + Walks[1] + Walks[2]);
}

TEST_F(ShapeWalk, FindsNothingInAFileOfHeadersOnly) {
    EXPECT_EQ(Walk(PolygonFile({})), "");
    EXPECT_EQ(Walk(""), "");
    EXPECT_EQ(Walk("short"), "");
}

// Lengths and numbers of record headers, shape types and boxes, and the main header count for nothing.
TEST_F(ShapeWalk, GoesByTheCountsAlone) {
    auto records = ThreeRegions();
    for (std::string& record : records)
        record.replace(0, PartCount, std::string(PartCount, '\xEE'));
    std::string file = PolygonFile(records);
    file.replace(0, Header, std::string(Header, '\xEE'));
    EXPECT_EQ(Walk(file), Walks[0] + Walks[1] + Walks[2]);
}

TEST_F(ShapeWalk, CountsRecordsWithoutARing) {
    const auto records = ThreeRegions();
    EXPECT_EQ(Walk(PolygonFile({PolygonRecord(1, {}), PolygonRecord(2, {{{1, 1}}}), records[2]})), Walks[2]);
}

TEST_F(ShapeWalk, PassesOverPartsOfNoMoreThanOneVertex) {
    const Ring triangle = {{1, 1}, {2, 3}, {3, 1}, {1, 1}};
    EXPECT_EQ(Walk(PolygonFile({PolygonRecord(1, {{}, {{7, 7}}, triangle, {}, {{8, 8}, {9, 9}}})})),
              "0: 1,1 2,3 3,1\n0: 8,8\n");
}

// The last vertex goes whether it repeats the first or not.
TEST_F(ShapeWalk, LosesTheLastVertexOfAnOpenRing) {
    EXPECT_EQ(Walk(PolygonFile({PolygonRecord(1, {{{1, 1}, {2, 3}, {3, 1}}})})), "0: 1,1 2,3\n");
}

// At every length: whole records are passed on, and a record that is cut off is an error that names it.
TEST_F(ShapeWalk, StopsAtEveryTruncationButBetweenRecords) {
    const auto records = ThreeRegions();
    const std::string file = PolygonFile(records);
    const size_t first = Header + records[0].size(), second = first + records[1].size();
    for (size_t length = 0; length < file.size(); ++length) {
        const std::string cut = file.substr(0, length);
        if (length <= Header || length == first || length == second) {
            EXPECT_EQ(Error(cut), 0) << length;
            continue;
        }
        const int record = length < first ? 1 : length < second ? 2 : 3;
        EXPECT_EQ(Description(cut), CustomaryText(InputPastEndOfFile) + "\nmap.shp ends before record " +
                                        std::to_string(record) + " of map.shp does.")
            << length;
    }
}

TEST_F(ShapeWalk, StopsAtBytesBehindTheLastRecord) {
    EXPECT_EQ(Error(PolygonFile(ThreeRegions()) + "x"), InputPastEndOfFile);
}

TEST_F(ShapeWalk, StopsAtNegativeCounts) {
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    for (const std::int32_t count : {-1, least})
        for (const size_t place : {PartCount, PointCount}) {
            EXPECT_EQ(Error(WithSecond(place, count)), SubscriptOutOfRange);
            EXPECT_NE(Description(WithSecond(place, count)).find("record 2 of map.shp"), std::string::npos);
        }
}

TEST_F(ShapeWalk, TakesNoMemoryForCountsThatTheFileCannotHold) {
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    const auto before = PeakMemory();
    for (const size_t place : {PartCount, PointCount})
        for (const std::int32_t count : {100, 100000000, most})
            EXPECT_EQ(Error(WithSecond(place, count)), InputPastEndOfFile) << count;
    EXPECT_LT(PeakMemory(), before + HundredMegabytes);
}

TEST_F(ShapeWalk, StopsAtPartIndexesThatDoNotRiseWithinThePoints) {
    EXPECT_EQ(Error(WithSecond(SecondPart, 11)), SubscriptOutOfRange); // ten points
    EXPECT_EQ(Error(WithSecond(FirstPart, 6)), SubscriptOutOfRange);   // behind the second, 5
    EXPECT_EQ(Error(WithSecond(FirstPart, -1)), SubscriptOutOfRange);
    EXPECT_EQ(Error(WithSecond(SecondPart, std::numeric_limits<std::int32_t>::min())), SubscriptOutOfRange);
    EXPECT_EQ(Error(WithSecond(SecondPart, std::numeric_limits<std::int32_t>::max())), SubscriptOutOfRange);
    EXPECT_NE(Description(WithSecond(SecondPart, 11)).find("record 2 of map.shp"), std::string::npos);
    EXPECT_EQ(Error(WithSecond(SecondPart, 10)), 0); // a last part without a vertex
}

TEST_F(ShapeWalk, StopsAtCoordinatesThatAreNotFinite) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    for (const double bad : {infinite, -infinite, none})
        for (const Vertex& vertex : {Vertex{bad, 1}, Vertex{1, bad}}) {
            const auto file = PolygonFile({ThreeRegions()[0], PolygonRecord(2, {{{1, 1}, vertex, {1, 1}}})});
            EXPECT_EQ(Error(file), Overflow);
            EXPECT_NE(Description(file).find("record 2 of map.shp"), std::string::npos);
        }
}

TEST_F(ShapeWalk, NamesTheRecordOfAnOverflowOfTheAction) {
    const std::string path = folder_.Write("map.shp", PolygonFile(ThreeRegions()));
    const auto overflow = [](std::int32_t record, const auto&) {
        if (record == 1) RaiseCustomary(Overflow, "RoundToInt32");
    };
    EXPECT_EQ(ErrorDescriptionOf([&] { WalkRings(path, overflow); }),
              "Overflow\nrecord 2 of map.shp has a vertex too far away to be drawn.");
}

TEST_F(ShapeWalk, StopsAtFilesThatCannotBeOpened) {
    EXPECT_EQ(ErrorNumberOf([&] { Walked(folder_ / "none.shp"); }), FileNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { Walked(folder_.Path()); }), PathFileAccessError);
}

TEST_F(ShapeWalk, ClosesTheFileAlsoAfterAnErrorOfTheAction) {
    const std::string path = folder_.Write("map.shp", PolygonFile(ThreeRegions()));
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const auto before = openFiles();
    EXPECT_EQ(ErrorNumberOf([&] {
                  WalkRings(path, [](std::int32_t, const auto&) { RaiseCustomary(SubscriptOutOfRange, ""); });
              }),
              SubscriptOutOfRange);
    EXPECT_EQ(openFiles(), before);
}

// A record that is larger than what is read at a time, between two small ones.
TEST_F(ShapeWalk, ReadsLargeRecords) {
    Ring large;
    for (int i = 0; i < 20000; ++i)
        large.push_back({static_cast<double>(i), static_cast<double>(-i)});
    const auto records = ThreeRegions();
    const std::string path =
        folder_.Write("map.shp", PolygonFile({records[0], PolygonRecord(2, {large}), records[2]}));
    std::vector<size_t> sizes;
    WalkRings(path, [&](std::int32_t record, const std::vector<PointXY>& ring) {
        sizes.push_back(ring.size());
        for (size_t i = 0; record == 1 && i < ring.size(); ++i)
            ASSERT_EQ(ring[i], (PointXY{static_cast<double>(i), -static_cast<double>(i)}));
    });
    EXPECT_EQ(sizes, (std::vector<size_t>{4, 19999, 3}));
}
