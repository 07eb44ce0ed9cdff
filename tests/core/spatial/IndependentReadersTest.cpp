// What CShapeFile writes, read by independent readers of the format. Pyshp is installed by packaging/setup;
// the other reader is asked where it stands.
#include "core/platform/FileSpec.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/CShapeFile.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace vastrel;

namespace {

/// Standard output of a command; the exit status has to be 0.
std::string OutputOf(const TemporaryFolder& folder, const std::string& command) {
    EXPECT_EQ(std::system((command + " >" + (folder / "output") + " 2>&1").c_str()), 0) << command;
    return ReadFile(folder / "output");
}

bool Runs(const std::string& command) {
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

template <typename Shape>
Shape ShapeOf(const std::vector<Ring>& parts) {
    Shape shape;
    for (const auto& points : parts) {
        CPart part;
        for (const auto& [x, y] : points)
            part.Add(CPoint(x, y));
        shape.Add(std::move(part));
    }
    return shape;
}

/// Two shapes, and what the readers have to tell of them.
struct Written {
    const char* Name;
    int Type;
    std::shared_ptr<IShape> First, Second;
    const char* Ogr[4];
    const char* Pyshp; // count, type, box, then parts and points of each shape
};

void PrintTo(const Written& written, std::ostream* stream) {
    *stream << written.Name;
}

template <typename Shape>
std::shared_ptr<IShape> Made(const Shape& shape) {
    return std::make_shared<Shape>(shape);
}

const Written Files[] = {
    {"Points",
     1,
     Made(CPoint(1.5, -2)),
     Made(CPoint(30, 4)),
     {"Geometry: Point", "Extent: (1.500000, -2.000000) - (30.000000, 4.000000)", "POINT (1.5 -2)",
      "POINT (30 4)"},
     "2 1 [1.5, -2.0, 30.0, 4.0]\n[] [(1.5, -2.0)]\n[] [(30.0, 4.0)]\n"},
    {"Lines",
     3,
     Made(ShapeOf<CPolyLine>({{{0, 0}, {1, 2}}, {{5, 5}, {6, 6}, {8, 5}}})),
     Made(ShapeOf<CPolyLine>({{{-1, 0}, {1, 9}}})),
     {"Geometry: Line String", "Extent: (-1.000000, 0.000000) - (8.000000, 9.000000)",
      "MULTILINESTRING ((0 0,1 2),(5 5,6 6,8 5))", "LINESTRING (-1 0,1 9)"},
     "2 3 [-1.0, 0.0, 8.0, 9.0]\n[0, 2] [(0.0, 0.0), (1.0, 2.0), (5.0, 5.0), (6.0, 6.0), (8.0, 5.0)]\n"
     "[0] [(-1.0, 0.0), (1.0, 9.0)]\n"},
    {"Polygons",
     5,
     Made(ShapeOf<CPolygon>({ClockwiseSquare(0, 0, 4), CounterClockwiseSquare(1, 1, 1)})),
     Made(ShapeOf<CPolygon>({ClockwiseSquare(5, -1, 1)})),
     {"Geometry: Polygon", "Extent: (0.000000, -1.000000) - (6.000000, 4.000000)",
      "POLYGON ((0 0,0 4,4 4,4 0,0 0),(1 1,2 1,2 2,1 2,1 1))", "POLYGON ((5 -1,5 0,6 0,6 -1,5 -1))"},
     "2 5 [0.0, -1.0, 6.0, 4.0]\n"
     "[0, 5] [(0.0, 0.0), (0.0, 4.0), (4.0, 4.0), (4.0, 0.0), (0.0, 0.0), (1.0, 1.0), (2.0, 1.0), (2.0, "
     "2.0), "
     "(1.0, 2.0), (1.0, 1.0)]\n"
     "[0] [(5.0, -1.0), (5.0, 0.0), (6.0, 0.0), (6.0, -1.0), (5.0, -1.0)]\n"},
};

constexpr const char* PyshpProgram = R"(
import sys
import shapefile

base = sys.argv[1]
reader = shapefile.Reader(shp=open(base + ".shp", "rb"), shx=open(base + ".shx", "rb"))
print(len(reader), reader.shapeType, list(reader.bbox))
for shape in reader.shapes():
    print(list(getattr(shape, "parts", [])), [tuple(p) for p in shape.points])
)";

class IndependentReaders : public ::testing::TestWithParam<Written> {
protected:
    void SetUp() override {
        CFileName name;
        name.SetFileSpec(ToFileSpec(folder / "new.shp"));
        CShapeFile file; // let go at the end, so that its files are complete
        file.SetFileSpec(name, CShapeFile::CREATEIT, GetParam().Type);
        file.Add(*GetParam().First);
        file.Add(*GetParam().Second);
    }

    TemporaryFolder folder;
};

INSTANTIATE_TEST_SUITE_P(Files, IndependentReaders, ::testing::ValuesIn(Files),
                         [](const auto& file) { return file.param.Name; });

} // namespace

TEST_P(IndependentReaders, OgrFindsTheShapes) {
    if (!Runs("ogrinfo --version")) GTEST_SKIP() << "gdal-bin is not installed";
    const std::string output = OutputOf(folder, "ogrinfo -al " + (folder / "new.shp"));
    EXPECT_NE(output.find("Feature Count: 2"), std::string::npos) << output;
    for (const char* expected : GetParam().Ogr)
        EXPECT_NE(output.find(expected), std::string::npos) << expected << " in\n" << output;
}

TEST_P(IndependentReaders, PyshpFindsTheShapes) {
    ASSERT_TRUE(Runs("/usr/bin/python3 -c 'import shapefile'")) << "packaging/setup installs python3-pyshp";
    const std::string program = folder.Write("read.py", PyshpProgram);
    EXPECT_EQ(OutputOf(folder, "/usr/bin/python3 " + program + " " + (folder / "new")), GetParam().Pyshp);
}
