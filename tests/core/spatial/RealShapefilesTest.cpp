// Real polygon datasets: what their documentation tells of them, and areas and centroids against another way
// of computing them.
#include "core/platform/Platform.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"
#include "support/ScriptedPlatform.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

using namespace vastrel;

namespace {

struct ColumnSum {
    const char* Column;
    double Sum;
};

struct Dataset {
    const char* Name;
    int Regions;
    int MultiPart; // Regions of several parts, none a hole
    int WithHoles;
    int Points; // 0 where not told
    int Columns;
    std::vector<ColumnSum> Sums;
};

// From the documentation of the data.
const Dataset Datasets[] = {
    {"nc/nc", 100, 6, 0, 0, 0, {{"BIR74", 329962}, {"SID74", 667}, {"BIR79", 422392}, {"SID79", 836}}},
    {"scotlip/scotlip", 56, 0, 0, 0, 0, {{"CANCER", 536}, {"CEXP", 536.01}, {"POP", 14979894}}},
    {"colmunic/colmunic", 1068, 18, 0, 87955, 0, {{"MALARI98", 185490}, {"TP1998", 40541272}}},
    {"measles/msl_we", 17, 5, 0, 0, 111, {{"Y2001", 504}, {"Y2002", 779}, {"POP", 2465229}}},
    {"imd_de/imd_de",
     413,
     8,
     23,
     0,
     0,
     {{"IMD", 636},
      {"EXPECTED", 636},
      {"IMD02", 106},
      {"IMD03", 89},
      {"IMD04", 98},
      {"IMD05", 95},
      {"IMD06", 92},
      {"IMD07", 70},
      {"IMD08", 86}}},
};

/// Area and centroid of a ring in long double, over the triangles that its edges make with its first vertex.
/// The area is positive for counter-clockwise rings.
struct RingFacts {
    long double Area = 0, X = 0, Y = 0;
};

RingFacts FactsOf(const CPart& ring) {
    RingFacts facts;
    const long double x0 = ring.Item(1).X, y0 = ring.Item(1).Y;
    long double momentX = 0, momentY = 0;
    for (int k = 2; k < ring.Count(); ++k) {
        const long double ax = ring.Item(k).X - x0, ay = ring.Item(k).Y - y0;
        const long double bx = ring.Item(k + 1).X - x0, by = ring.Item(k + 1).Y - y0;
        const long double area = (ax * by - bx * ay) / 2;
        facts.Area += area;
        momentX += area * (ax + bx) / 3;
        momentY += area * (ay + by) / 3;
    }
    facts.X = x0 + momentX / facts.Area;
    facts.Y = y0 + momentY / facts.Area;
    return facts;
}

/// The weighted sum that stands for a Region's centroid: clockwise rings count with their own, the others
/// with the negated one, each with its gross area over the net area of the Region.
RingFacts ExpectedOf(const CPolygon& polygon) {
    RingFacts sum;
    long double net = 0;
    for (const CPart& ring : polygon) {
        const RingFacts facts = FactsOf(ring);
        net += facts.Area;
        sum.X -= facts.X * facts.Area; // -area is the gross area with the sign of the ring's direction
        sum.Y -= facts.Y * facts.Area;
    }
    return {std::fabs(net), sum.X / std::fabs(net), sum.Y / std::fabs(net)};
}

/// The polygon with all its rings in the other direction.
CPolygon TurnedRound(const CPolygon& polygon) {
    CPolygon turned;
    for (const CPart& ring : polygon) {
        CPart other;
        for (int k = ring.Count(); k >= 1; --k)
            other.Add(ring.Item(k));
        turned.Add(std::move(other));
    }
    return turned;
}

class RealShapefiles : public ::testing::TestWithParam<Dataset> {
protected:
    void SetUp() override {
        ws = Workspace{};
        const std::string path = CopyOfRealShapefile(folder, GetParam().Name);
        if (path.empty()) GTEST_SKIP() << "the data are not there";
        ASSERT_TRUE(OpenShapeAttributes({path, std::filesystem::path(path).filename().string(), false}));
        ReadShapeHeader();
        LoadShapes();
        ComputeShapeAreas();
        ComputeCentroids();
    }

    TemporaryFolder folder;
    ScriptedPlatform platform; // no message is expected
};

std::string TestName(const ::testing::TestParamInfo<Dataset>& info) {
    return std::filesystem::path(info.param.Name).filename().string();
}

INSTANTIATE_TEST_SUITE_P(Data, RealShapefiles, ::testing::ValuesIn(Datasets), TestName);

} // namespace

TEST_P(RealShapefiles, HasTheShapesOfItsDocumentation) {
    const Dataset& data = GetParam();
    EXPECT_EQ(ws.NumRegion, data.Regions);
    EXPECT_EQ(ws.AttributeRowCount, data.Regions);
    int multiPart = 0, withHoles = 0, points = 0;
    for (const auto& polygon : ws.ShpPolygons) {
        int holes = 0;
        for (const CPart& ring : *polygon) {
            points += ring.Count();
            if (FactsOf(ring).Area > 0) ++holes;
        }
        if (holes > 0) ++withHoles;
        if (holes == 0 && polygon->Count() > 1) ++multiPart;
    }
    EXPECT_EQ(multiPart, data.MultiPart);
    EXPECT_EQ(withHoles, data.WithHoles);
    if (data.Points > 0) {
        EXPECT_EQ(points, data.Points);
    }
}

TEST_P(RealShapefiles, HasTheSumsOfItsDocumentation) {
    const Dataset& data = GetParam();
    Recordset& table = *ws.AttributeRecordset;
    if (data.Columns > 0) {
        EXPECT_EQ(table.FieldCount(), data.Columns);
    }
    for (const auto& [column, expected] : data.Sums) {
        double sum = 0;
        for (table.MoveFirst(); !table.EndOfFile(); table.MoveNext())
            sum += table.Fields(column).Value().Number();
        EXPECT_NEAR(sum, expected, 0.005) << column;
    }
}

TEST_P(RealShapefiles, HasTheAreasAndCentroidsOfAnotherComputation) {
    long double total = 0;
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
        const RingFacts expected = ExpectedOf(*ws.ShpPolygons.Item(i));
        total += expected.Area;
        const auto near = [&](double value, long double wanted) {
            EXPECT_NEAR(value, static_cast<double>(wanted),
                        1e-7 * (1 + std::fabs(static_cast<double>(wanted))))
                << i;
        };
        near(ws.ShpPartArea(i, 1).RegionArea, expected.Area);
        near(ws.RegionCentroid(i).X, expected.X);
        near(ws.RegionCentroid(i).Y, expected.Y);
    }
    EXPECT_NEAR(ws.TotalShapeArea / static_cast<double>(total), 1, 1e-10);
}

TEST_P(RealShapefiles, HasNegatedCentroidsWithItsRingsTheOtherWay) {
    const Array1<RegionPoint> before = ws.RegionCentroid;
    const double area = ws.TotalShapeArea;
    Collection<CPolygon> turned;
    for (const auto& polygon : ws.ShpPolygons)
        turned.Add(std::make_shared<CPolygon>(TurnedRound(*polygon)));
    ws.ShpPolygons = turned;
    ComputeShapeAreas();
    ComputeCentroids();
    EXPECT_NEAR(ws.TotalShapeArea / area, 1, 1e-10);
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
        const auto near = [&](double value, double wanted) {
            EXPECT_NEAR(value, wanted, 1e-7 * (1 + std::fabs(wanted))) << i;
        };
        near(ws.RegionCentroid(i).X, -before(i).X);
        near(ws.RegionCentroid(i).Y, -before(i).Y);
    }
}

TEST_P(RealShapefiles, HoldsItsCentroidsInsideTheExtent) {
    // Holes aside, which draw a centroid through the origin.
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion && GetParam().WithHoles == 0; ++i) {
        EXPECT_GE(ws.RegionCentroid(i).X, ws.ExtentXMin) << i;
        EXPECT_LE(ws.RegionCentroid(i).X, ws.ExtentXMax) << i;
        EXPECT_GE(ws.RegionCentroid(i).Y, ws.ExtentYMin) << i;
        EXPECT_LE(ws.RegionCentroid(i).Y, ws.ExtentYMax) << i;
    }
}

TEST(RealTables, ReadsTheAwkwardOne) {
    const TemporaryFolder folder;
    const std::string path = CopyOfRealShapefile(folder, "imd_de/imd_de");
    if (path.empty()) GTEST_SKIP() << "the data are not there";
    Recordset table(folder / "imd_de.dbf");
    std::vector<int> nulls(static_cast<size_t>(table.FieldCount()));
    bool hasUmlaut = false, hasLeadingZero = false;
    double largestDensity = 0;
    for (; !table.EndOfFile(); table.MoveNext()) {
        for (int k = 0; k < table.FieldCount(); ++k)
            if (table.Fields(k).Value().IsNull()) ++nulls[static_cast<size_t>(k)];
        hasUmlaut |= table.Fields("NAME").Value().Text().find("M\xC3\xBCnchen") != std::string::npos;
        hasLeadingZero |= table.Fields("KEY").Value().Text() == "01001";
        largestDensity = std::max(largestDensity, table.Fields("DENS").Value().Number());
    }
    EXPECT_TRUE(hasUmlaut);
    EXPECT_TRUE(hasLeadingZero);
    EXPECT_GT(largestDensity, 1000); // an exponent that was read as an exponent
    EXPECT_LT(largestDensity, 10000);
    for (int k = 0; k < table.FieldCount(); ++k) {
        const std::string name = table.Fields(k).Name();
        const int expected = name == "PCT_U19"                                       ? 183
                             : name == "DAYS1" || name == "ANY_C" || name == "FIRST" ? 182
                                                                                     : 0;
        EXPECT_EQ(nulls[static_cast<size_t>(k)], expected) << name;
    }
    EXPECT_EQ(table.Fields("DENS").Type(), FieldType::Double);
    EXPECT_EQ(table.Fields("IMD").Type(), FieldType::Integer);
    EXPECT_EQ(table.Fields("ANY_C").Type(), FieldType::Logical);
    EXPECT_EQ(table.Fields("FIRST").Type(), FieldType::Date);
}
