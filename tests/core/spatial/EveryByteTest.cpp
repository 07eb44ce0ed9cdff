// Every input format cut off at every byte, and with every byte changed: what comes is an error that the
// formats know, or a result in which every number is finite, within bounded memory. Runs under the sanitizers
// too.
#include "core/binding/ColumnBinding.h"
#include "core/display/MapSizes.h"
#include "core/display/PolygonPainter.h"
#include "core/export/ExportColumns.h"
#include "core/export/ExportDataset.h"
#include "core/platform/Platform.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumInput.h"
#include "core/prospective/PolygonSource.h"
#include "core/retrospective/PointDataset.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/Projection.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeDataset.h"
#include "core/spatial/ShapeErrors.h"
#include "core/workspace/Workspace.h"
#include "support/BrokenBytes.h"
#include "support/PeakMemory.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <set>

using namespace vastrel;

namespace {

/// A platform on which messages pass unseen.
class Unseen : public Platform {
public:
    Unseen() { SetPlatform(this); }
    ~Unseen() override { SetPlatform(nullptr); }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;
    void ShowMessage(const Message&) override {}
    FileChoice ChooseFile(const FileQuestion&) override { return {"", "", true}; }
    void SetBusyPointer(bool) override {}
    void DropInput() override {}
    void Yield(long) override {}
    void ReportRunTimeError(const RunTimeError&) override {}
    void EndProcess(int) override {}
    std::string ProgramFolder() override { return "."; }
};

bool IsKnown(long number) {
    const std::set<long> known{0,
                               InvalidProcedureCall,
                               Overflow,
                               SubscriptOutOfRange,
                               DivisionByZero,
                               TypeMismatch,
                               InputPastEndOfFile,
                               ObjectNotSet,
                               InvalidUseOfNull,
                               NoCurrentRecord,
                               ItemNotFound,
                               UnsupportedShapeType,
                               RecordMismatch,
                               OffsetBeyondFile,
                               InvalidFileCode,
                               ShapeTypeMismatch};
    return known.count(number) > 0;
}

bool IsFinite(const Array1<double>& values) {
    return std::all_of(values.data(), values.data() + (values.UpperBound() + 1),
                       [](double value) { return std::isfinite(value); });
}

bool IsFinite(const Table<double>& table) {
    for (std::ptrdiff_t i = 0; i <= table.UpperBound1(); ++i)
        for (std::ptrdiff_t j = 0; j <= table.UpperBound2(); ++j)
            if (!std::isfinite(table(i, j))) return false;
    return true;
}

bool StoreIsFinite() {
    for (std::ptrdiff_t i = 0; i <= ws.RegionCentroid.UpperBound(); ++i)
        if (!std::isfinite(ws.RegionCentroid(i).X) || !std::isfinite(ws.RegionCentroid(i).Y)) return false;
    return std::isfinite(ws.TotalShapeArea) && IsFinite(ws.PopBase) && IsFinite(ws.ObsCount) &&
           IsFinite(ws.ExpCount) && IsFinite(ws.ExpRatio) && IsFinite(ws.TextZScore) &&
           IsFinite(ws.PreviousCusum) && IsFinite(ws.ExportTable);
}

/// Each of these readings takes far less than a millisecond: a time that no machine is too slow for.
constexpr std::clock_t LongestReading = std::clock_t{10} * CLOCKS_PER_SEC;

using Reading = std::function<void(const std::string& bytes)>;

void ReadOne(const std::string& bytes, const Reading& read, const std::string& what) {
    ws = Workspace{};
    const auto start = std::clock();
    const auto error = ErrorOf([&] { read(bytes); });
    EXPECT_LT(std::clock() - start, LongestReading) << what;
    EXPECT_TRUE(IsKnown(error.Number)) << what << ": " << error;
    EXPECT_TRUE(StoreIsFinite()) << what;
}

/// The sound bytes have to be read without an error.
void ReadEveryChange(const std::string& sound, const Reading& read) {
    const Unseen unseen;
    ws = Workspace{};
    EXPECT_EQ(ErrorOf([&] { read(sound); }).Number, 0);
    const auto before = PeakMemory();
    ForEachBroken(sound, 1, {0x01, 0x40, 0x80, 0xFF},
                  [&](const auto& bytes, const auto& what) { ReadOne(bytes, read, what); });
    EXPECT_LT(PeakMemory() - before, WithinLimit(HundredMegabytes / 4));
}

TextFile InMemory(const std::string& bytes) {
    return TextFile("input.txt", bytes);
}

/// A polygon dataset of which one file is changed at a time.
class EveryByteOfADataset : public ::testing::Test {
protected:
    EveryByteOfADataset() {
        ShapefileBytes shapes(5);
        shapes.Add(PolygonContents({ClockwiseSquare(0, 0, 1), CounterClockwiseSquare(3, 3, 2)}));
        shapes.Add(PolygonContents({ClockwiseSquare(5, 1, 1)}));
        shp_ = shapes.Shp();
        shx_ = shapes.Shx();
        path_ = shapes.WritePair(folder_, "input");
        folder_.Write("input.dbf", table_);
        folder_.Write("input.cpg", "UTF-8");
    }

    void Open() const {
        ws.MapZoom = 1;
        OpenShapeAttributes({path_, "input.shp", false});
        ReadShapeHeader();
        LoadShapes();
        ComputeShapeAreas();
        ComputeCentroids();
    }

    Reading OpenWith(const std::string& extension) const {
        return [this, extension](const std::string& bytes) {
            folder_.Write("input." + extension, bytes);
            Open();
            RecorderSurface surface(PolygonMapSurface());
            DrawPlainMap(surface);
        };
    }

    TemporaryFolder folder_;
    std::string path_, shp_, shx_;
    std::string table_ =
        TableBytes({{"POP", 'N', 5}, {"RATE", 'F', 6, 2}, {"NAME", 'C', 4}, {"DAY", 'D', 8}, {"YES", 'L', 1}},
                   {{"  100", "  1.50", "Ashe", "20261120", "T"}, {"  200", "  2.00", "B\xC3\xBC", "", "?"}});
};

} // namespace

TEST(EveryByte, OfAPointDataset) {
    for (const auto format : {PointFormat::ObsExp, PointFormat::PopCase})
        ReadEveryChange("\xEF\xBB\xBF"
                        "a,1,2,30,4\r\nb\xC3\xBC,-3.5,4e0,50,6\rc,1,1,70,8\n",
                        [&](const std::string& bytes) { LoadPointDataset(InMemory(bytes), format); });
}

TEST(EveryByte, OfTheFilesOfAWatchOnPoints) {
    const auto load = [](bool (*read)(PointCusum&, const TextFile&)) {
        return [read](const std::string& bytes) {
            PointCusum watch;
            read(watch, InMemory(bytes));
            EXPECT_TRUE(IsFinite(watch.RegionX) && IsFinite(watch.RegionY) && IsFinite(watch.ZScore) &&
                        IsFinite(watch.OldCusum));
        };
    };
    ReadEveryChange("a,1,2\nb,-3.5,4e0\nc,1,1\n", load(LoadIDXY));
    ReadEveryChange("0.1,-1.2,3\n1,2e1,3\n0,0,0\n", load(LoadNewZScore));
    ReadEveryChange("0.1,-1.2,3\n1,2e1,3\n0,0,0\n", load(LoadOldCusum));
}

TEST(EveryByte, OfTheTextsOfAWatchOnPolygons) {
    ReadEveryChange("0.1,-1.2,3\n1,2e1,3\n0,0,0\n", [](const std::string& bytes) {
        ws.NumRegion = 3;
        ReadTextZScores(InMemory(bytes));
    });
    ReadEveryChange("period1,period2,\n0.1,1.2,\n0,3,\n", [](const std::string& bytes) {
        ws.NumRegion = 3;
        ReadCusumFile(InMemory(bytes));
    });
}

TEST_F(EveryByteOfADataset, OfTheMainFile) {
    ReadEveryChange(shp_, OpenWith("shp"));
}

TEST_F(EveryByteOfADataset, OfTheIndex) {
    ReadEveryChange(shx_, OpenWith("shx"));
}

TEST_F(EveryByteOfADataset, OfTheNameOfACharacterSet) {
    ReadEveryChange("ISO 8859-15\r\n", OpenWith("cpg"));
}

TEST_F(EveryByteOfADataset, OfTheProjection) {
    Open();
    ReadEveryChange("PROJCS[\"Plane\",GEOGCS[\"WGS 84\"]]", [this](const std::string& bytes) {
        folder_.Write("input.prj", bytes);
        EXPECT_EQ(ProjectionOf(path_), bytes);
        EXPECT_FALSE(IsGeographic(bytes));
    });
}

TEST_F(EveryByteOfADataset, OfTheTableAndItsColumns) {
    ReadEveryChange(table_, [this](const std::string& bytes) {
        folder_.Write("input.dbf", bytes);
        Open();
        TakePrimaryIDs("NAME");
        CountColumns columns;
        columns.Pop = columns.Exp = "POP";
        columns.Case = columns.Obs = "RATE";
        for (const auto format : {CountFormat::PopCase, CountFormat::ObsExp})
            BindCounts(format, columns);
        TakeStartField(0, "POP");
        TakeEndField(1, "RATE");
        Table<double> z;
        ReadFieldZScores(z);
        EXPECT_TRUE(IsFinite(z));
        for (const auto list : {ExportList::ObsFrom, ExportList::ObsTo})
            TakeExportColumn(list, 1);
        for (const auto list : {ExportList::ExpFrom, ExportList::ExpTo})
            TakeExportColumn(list, 0);
        TakeExportSigma("1");
        ComputeExport(ExportOption::Rossi);
    });
}
