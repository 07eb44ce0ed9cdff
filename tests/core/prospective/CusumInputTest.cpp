#include "core/prospective/CusumInput.h"

#include "core/prospective/CusumTestTables.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>

using namespace vastrel;

namespace {

class CusumInput : public testing::Test {
protected:
    CusumInput() { ws = Workspace{}; }

    std::string File(const std::string& bytes) {
        return folder_.Write("file" + std::to_string(++count_) + ".txt", bytes);
    }
    const std::string& Folder() const { return folder_.Path(); }

    ScriptedPlatform platform_;
    PointCusum watch_;

private:
    TemporaryFolder folder_;
    int count_ = 0;
};

constexpr const char* NotChosen = "File name is not specified.";
constexpr const char* Misspecified = "ID, XY Coordinates file was misspecified.";

std::string Missing(int row, int column) {
    return "There is missing value in row " + std::to_string(row) + " and column " + std::to_string(column) +
           " in the dataset.";
}

} // namespace

// ---- Ids and coordinates

TEST_F(CusumInput, ReadsIdsAndCoordinates) {
    EXPECT_TRUE(LoadIDXY(watch_, File("A12,5.31,7.02\n B ,-1e2,.5\n")));
    EXPECT_EQ(FromOne(watch_.RegionIDs), (Texts{"A12", " B "}));
    EXPECT_EQ(FromOne(watch_.RegionX), (Numbers{5.31, -100}));
    EXPECT_EQ(FromOne(watch_.RegionY), (Numbers{7.02, 0.5}));
    EXPECT_EQ(watch_.N, 2);
    EXPECT_EQ(ws.NumTextRegion, 2);
}

TEST_F(CusumInput, LeavesTheStoreOtherwiseAlone) {
    ws.NumRegion = 9;
    ws.RegionCentroid.ReDim(9);
    LoadIDXY(watch_, File("A,1,2\n"));
    EXPECT_EQ(ws.NumRegion, 9);
    EXPECT_EQ(ws.RegionCentroid.UpperBound(), 9);
}

TEST_F(CusumInput, DropsThePlottedPointsOfAnEarlierDataset) {
    ws.PlottedPoints.ReDim(1);
    ws.ScaleX = ws.ScaleY = 3;
    LoadIDXY(watch_, File("A,1,2\n"));
    EXPECT_FALSE(ws.PlottedPoints.IsAllocated());
    EXPECT_EQ(ws.ScaleX, 0);
    EXPECT_EQ(ws.ScaleY, 0);
}

TEST_F(CusumInput, RefusesAnIdFileWithoutThreeFieldsInItsFirstLine) {
    LoadIDXY(watch_, File("A,1,2\n"));
    for (const char* bytes : {"A,1\nB,2,3\n", "A,east,1,2\n", "\nA,1,2\n", "A\n"}) {
        platform_.ExpectMessage(Misspecified);
        EXPECT_FALSE(LoadIDXY(watch_, File(bytes))) << bytes;
        EXPECT_EQ(watch_.N, 1);
        EXPECT_EQ(watch_.RegionIDs(1), "A");
        EXPECT_EQ(ws.NumTextRegion, 1);
    }
}

TEST_F(CusumInput, ShiftsTheCoordinatesBehindAnIdWithACommaOnALaterLine) {
    EXPECT_TRUE(LoadIDXY(watch_, File("A,1,2\nB,3,4,5\n")));
    EXPECT_EQ(watch_.RegionX(2), 3);
    EXPECT_EQ(ErrorOf([&] { LoadIDXY(watch_, File("A,1,2\nB,east,4,5\n")); }), TypeMismatch);
}

TEST_F(CusumInput, LeavesWhatAnIdFileHadFilled) {
    EXPECT_EQ(ErrorOf([&] { LoadIDXY(watch_, File("A,1,2\nB,3\nC,5,6\n")); }), SubscriptOutOfRange);
    EXPECT_EQ(watch_.N, 3);
    EXPECT_EQ(ws.NumTextRegion, 3);
    EXPECT_EQ(FromOne(watch_.RegionIDs), (Texts{"A", "B", ""}));
    EXPECT_EQ(FromOne(watch_.RegionX), (Numbers{1, 3, 0}));
    EXPECT_EQ(FromOne(watch_.RegionY), (Numbers{2, 0, 0}));
}

TEST_F(CusumInput, StopsAtABlankLineOfAnIdFile) {
    EXPECT_EQ(ErrorOf([&] { LoadIDXY(watch_, File("A,1,2\n\n")); }), SubscriptOutOfRange);
    EXPECT_EQ(watch_.N, 2);
}

// ---- Z-scores

TEST_F(CusumInput, ReadsZScores) {
    EXPECT_TRUE(LoadNewZScore(watch_, File("0.31,-1.20,2.07\n1,2,3\n")));
    EXPECT_EQ(watch_.N, 2);
    EXPECT_EQ(watch_.ZColumnCount, 3);
    EXPECT_EQ(watch_.NewPeriodCount, 3);
    EXPECT_EQ(watch_.ZScore, TableOf({{0.31, -1.2, 2.07}, {1, 2, 3}}));
}

TEST_F(CusumInput, ReadsAFileOfOneColumn) {
    EXPECT_TRUE(LoadNewZScore(watch_, File("0.5\n-0.5\n")));
    EXPECT_EQ(watch_.NewPeriodCount, 1);
    EXPECT_EQ(watch_.ZScore, TableOf({{0.5}, {-0.5}}));
}

TEST_F(CusumInput, ReplacesTheNumberOfRegionsByTheLinesOfTheZScores) {
    LoadIDXY(watch_, File("A,1,2\n"));
    LoadNewZScore(watch_, File("1\n2\n3\n"));
    EXPECT_EQ(watch_.N, 3);
    EXPECT_EQ(ws.NumTextRegion, 1);
}

TEST_F(CusumInput, NamesAMissingValueOneRowTooHigh) {
    platform_.ExpectMessage(Missing(2, 2));
    EXPECT_FALSE(LoadNewZScore(watch_, File("1,,3\n4,5,6\n")));
    EXPECT_EQ(watch_.N, 2);
    EXPECT_EQ(watch_.ZColumnCount, 3);
    EXPECT_EQ(watch_.NewPeriodCount, 0);
    EXPECT_EQ(watch_.ZScore, TableOf({{1, 0, 0}, {0, 0, 0}}));

    platform_.ExpectMessage(Missing(4, 1));
    EXPECT_FALSE(LoadNewZScore(watch_, File("1,2\n3,4\n,6\n")));
    EXPECT_EQ(watch_.ZScore, TableOf({{1, 2}, {3, 4}, {0, 0}}));
}

TEST_F(CusumInput, FindsTheMissingValueBehindACommaAtTheLineEnd) {
    platform_.ExpectMessage(Missing(2, 4));
    EXPECT_FALSE(LoadNewZScore(watch_, File("1,2,3,\n4,5,6,\n")));
}

TEST_F(CusumInput, KeepsThePeriodCountOfTheLoadBefore) {
    LoadNewZScore(watch_, File("1,2\n"));
    platform_.ExpectMessage(Missing(2, 1));
    LoadNewZScore(watch_, File(",2,3\n"));
    EXPECT_EQ(watch_.ZColumnCount, 3);
    EXPECT_EQ(watch_.NewPeriodCount, 2);
}

TEST_F(CusumInput, IgnoresFieldsBeyondTheColumnsOfTheFirstLine) {
    EXPECT_TRUE(LoadNewZScore(watch_, File("1,2\n3,4,x,,6\n")));
    EXPECT_EQ(watch_.ZScore, TableOf({{1, 2}, {3, 4}}));
}

TEST_F(CusumInput, TakesABlankForNoNumberAndNotForAMissingValue) {
    EXPECT_EQ(ErrorOf([&] { LoadNewZScore(watch_, File("1, \n")); }), TypeMismatch);
}

// ---- Saved table

TEST_F(CusumInput, ReadsASavedTable) {
    watch_.N = 7;
    EXPECT_TRUE(LoadOldCusum(watch_, File("0.31,0\n0,-2.25\n1,2\n")));
    EXPECT_EQ(watch_.OldRowCount, 3);
    EXPECT_EQ(watch_.OldColumnCount, 2);
    EXPECT_EQ(watch_.OldPeriodCount, 2);
    EXPECT_EQ(watch_.OldCusum, TableOf({{0.31, 0}, {0, -2.25}, {1, 2}}));
    EXPECT_EQ(watch_.N, 7);
}

TEST_F(CusumInput, StopsAtTheHeaderOfACusumFile) {
    EXPECT_EQ(ErrorOf([&] { LoadOldCusum(watch_, File("period1,period2,\n0.31,0,\n")); }), TypeMismatch);
    EXPECT_EQ(watch_.OldColumnCount, 3);
    EXPECT_EQ(watch_.OldRowCount, 2);
    EXPECT_EQ(watch_.OldPeriodCount, 0);
}

TEST_F(CusumInput, NamesAMissingValueOfASavedTable) {
    platform_.ExpectMessage(Missing(3, 3));
    EXPECT_FALSE(LoadOldCusum(watch_, File("1,2,3\n4,5,\n")));
    EXPECT_EQ(watch_.OldPeriodCount, 0);
}

// ---- What holds for all three files

namespace {

struct Reader {
    bool (*Read)(PointCusum&, const std::string&);
    std::string Row; // a whole row
};
const Reader Readers[] = {{LoadIDXY, "7,1,2"}, {LoadNewZScore, "7,1,2"}, {LoadOldCusum, "7,1,2"}};

std::ptrdiff_t RowsOf(const PointCusum& watch) {
    return watch.OldRowCount + watch.N;
}

} // namespace

TEST_F(CusumInput, RefusesAFileThatWasNotChosen) {
    for (const auto& reader : Readers) {
        platform_.ExpectMessage(NotChosen);
        EXPECT_FALSE(reader.Read(watch_, ""));
        EXPECT_EQ(RowsOf(watch_), 0);
    }
}

TEST_F(CusumInput, StopsAtAnEmptyFileWithNothingChanged) {
    for (const auto& reader : Readers) {
        EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, File("")); }), InputPastEndOfFile);
        EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, File("\xEF\xBB\xBF")); }), InputPastEndOfFile);
        EXPECT_EQ(RowsOf(watch_), 0);
        EXPECT_EQ(watch_.ZColumnCount + watch_.OldColumnCount, 0);
    }
}

TEST_F(CusumInput, StopsAtAFileThatIsNotThereAndAtAFolder) {
    for (const auto& reader : Readers) {
        EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, Folder() + "/none.txt"); }), FileNotFound);
        EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, Folder()); }), PathFileAccessError);
        EXPECT_EQ(RowsOf(watch_), 0);
    }
}

TEST_F(CusumInput, ReadsEveryLineEndAndPassesOverAByteOrderMark) {
    for (const auto& reader : Readers) {
        for (const std::string& end : Texts{"\n", "\r\n", "\r"}) {
            for (const std::string& last : {end, std::string()}) {
                PointCusum fresh;
                EXPECT_TRUE(reader.Read(fresh, File("\xEF\xBB\xBF" + reader.Row + end + reader.Row + last)));
                EXPECT_EQ(RowsOf(fresh), 2);
                if (fresh.RegionIDs.IsAllocated()) {
                    EXPECT_EQ(FromOne(fresh.RegionIDs), (Texts{"7", "7"}));
                }
                if (fresh.ZScore.IsAllocated()) {
                    EXPECT_EQ(fresh.ZScore, TableOf({{7, 1, 2}, {7, 1, 2}}));
                }
                if (fresh.OldCusum.IsAllocated()) {
                    EXPECT_EQ(fresh.OldCusum, TableOf({{7, 1, 2}, {7, 1, 2}}));
                }
            }
        }
    }
}

TEST_F(CusumInput, StopsAtTextsThatAreNoNumbers) {
    for (const auto& reader : Readers) {
        for (const char* text : {"x", "1.5x", "1 2", "nan", "inf", "0x10", "1e", "--1"})
            EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, File(reader.Row + "\n7,1," + text + "\n")); }),
                      TypeMismatch)
                << text;
        EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, File(reader.Row + "\n7,1,1e999\n")); }), Overflow);
        EXPECT_EQ(watch_.NewPeriodCount + watch_.OldPeriodCount, 0);
    }
}

TEST_F(CusumInput, StopsAtAShortLineAndAtABlankOne) {
    for (const auto& reader : Readers)
        for (const char* line : {"7,1", ""})
            EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, File(reader.Row + "\n" + line + "\n")); }),
                      SubscriptOutOfRange);
}

TEST_F(CusumInput, StopsAtALineBeyondTheLimit) {
    const std::string digits(TextFile::LongestLine + 1, '1');
    for (const auto& reader : Readers) {
        EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, File(digits)); }), OutOfStringSpace);
        EXPECT_EQ(ErrorOf([&] { reader.Read(watch_, File(reader.Row + "\n" + digits)); }), OutOfStringSpace);
    }
}

TEST_F(CusumInput, TakesNoMoreMemoryThanTheFileHasRoomFor) {
    // 20000 columns over 20000 lines would be 3 GB; the second line is blank, so one row is all.
    const std::string wide = "1" + std::string(2 * 19999, '1');
    std::string bytes = wide;
    for (size_t i = 1; i < bytes.size(); i += 2)
        bytes[i] = ',';
    bytes += std::string(20000, '\n');
    EXPECT_EQ(ErrorOf([&] { LoadNewZScore(watch_, File(bytes)); }), SubscriptOutOfRange);
    EXPECT_EQ(watch_.ZColumnCount, 20000);
    EXPECT_EQ(watch_.N, 20000);
    EXPECT_LE(watch_.ZScore.UpperBound1(), 3);
    EXPECT_EQ(watch_.ZScore(1, 20000), 1);
}

// ---- Z-scores of polygons

TEST_F(CusumInput, ReadsTheZScoresOfPolygons) {
    ws.NumRegion = 3;
    ReadTextZScores(File("1,2\n3,4\n"));
    EXPECT_EQ(ws.TextPeriodCount, 2);
    EXPECT_EQ(ws.RunPeriodCount, 2);
    EXPECT_EQ(ws.TextZScore, TableOf({{1, 2}, {3, 4}, {0, 0}})); // no row for the third Region
}

TEST_F(CusumInput, StopsAtARowBeyondThePolygons) {
    ws.NumRegion = 1;
    EXPECT_EQ(ErrorOf([&] { ReadTextZScores(File("1,2\n3,4\n")); }), SubscriptOutOfRange);
    EXPECT_EQ(ws.TextPeriodCount, 2);
    EXPECT_EQ(ws.RunPeriodCount, 0);
    EXPECT_EQ(ws.TextZScore, TableOf({{1, 2}}));
}

TEST_F(CusumInput, HasNoMessageForAMissingValueOfPolygons) {
    ws.NumRegion = 2;
    EXPECT_EQ(ErrorOf([&] { ReadTextZScores(File("1,2\n3,\n")); }), TypeMismatch);
    EXPECT_EQ(ErrorOf([&] { ReadTextZScores(File("1,2\n3\n")); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { ReadTextZScores(File("")); }), InputPastEndOfFile);
}
