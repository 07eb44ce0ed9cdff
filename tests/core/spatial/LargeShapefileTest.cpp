// Time and memory of a large pair: 5,000 polygons with 600,000 vertices.
#include "core/platform/Platform.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"
#include "support/ScriptedPlatform.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define VASTREL_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VASTREL_SANITIZED 1
#endif
#endif

using namespace vastrel;

namespace {

constexpr int Polygons = 5000, Vertices = 120;
constexpr double CoordinateBytes = 16.0 * Polygons * Vertices;

std::string WriteLargePair(const TemporaryFolder& folder) {
    ShapefileBytes bytes(5);
    for (int i = 0; i < Polygons; ++i) {
        Ring ring;
        for (int k = 0; k < Vertices; ++k) {
            const double turn = -2 * 3.14159265358979 * k / (Vertices - 1);
            ring.push_back({i + std::cos(turn), std::sin(turn)});
        }
        bytes.Add(PolygonContents({ring}));
    }
    folder.Write("large.dbf",
                 TableBytes({{"ID", 'N', 9}, {"NAME", 'C', 40}},
                            std::vector<std::vector<std::string>>(Polygons, {"        1", "x"})));
    return bytes.WritePair(folder, "large");
}

void OpenLargePair(const std::string& path) {
    OpenShapeAttributes({path, "large.shp", false});
    ReadShapeHeader();
    LoadShapes();
}

/// A line of the process's status, in bytes.
double StatusBytes(const std::string& key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind(key, 0) == 0) return std::stod(line.substr(key.size())) * 1024;
    return -1;
}

/// How much more memory than before the open needs at its highest; negative where the system does not tell.
double PeakOfOpening(const std::string& path) {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5"; // the peak starts from what is in use now
    const double before = StatusBytes("VmRSS:");
    OpenLargePair(path);
    return before < 0 ? -1 : StatusBytes("VmHWM:") - before;
}

} // namespace

TEST(LargeShapefile, OpensWhole) {
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    ws = Workspace{};
    const std::string path = WriteLargePair(folder);
    OpenLargePair(path);
    ASSERT_EQ(ws.ShpPolygons.Count(), Polygons);
    EXPECT_EQ(ws.ShpPolygons.Item(Polygons)->Item(1).Count(), Vertices);
    ws = Workspace{};
}

TEST(LargeShapefile, StaysBelowThreeTimesItsCoordinates) {
#ifdef VASTREL_SANITIZED
    GTEST_SKIP() << "not measured under a sanitizer";
#endif
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    ws = Workspace{};
    const std::string path = WriteLargePair(folder);
    int result[2];
    ASSERT_EQ(pipe(result), 0);
    const pid_t child = fork(); // a process of its own, so that no other test counts
    if (child == 0) {
        const double peak = PeakOfOpening(path);
        const bool written = write(result[1], &peak, sizeof peak) == sizeof peak;
        _exit(written ? 0 : 1);
    }
    double peak = 0;
    ASSERT_EQ(read(result[0], &peak, sizeof peak), static_cast<ssize_t>(sizeof peak));
    int status = 0;
    waitpid(child, &status, 0);
    close(result[0]);
    close(result[1]);
    if (peak < 0) GTEST_SKIP() << "the system does not tell its memory";
    EXPECT_GT(peak, CoordinateBytes); // they are all there
    EXPECT_LT(peak, 3 * CoordinateBytes);
    RecordProperty("times_coordinates", std::to_string(peak / CoordinateBytes));
}
