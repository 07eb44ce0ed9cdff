#include "support/PolygonFile.h"

namespace vastrel {

std::string PolygonRecord(int number, const std::vector<Ring>& rings) {
    const std::string contents = PolygonContents(rings);
    return BigInteger(number) + BigInteger(static_cast<std::int32_t>(contents.size() / 2)) + contents;
}

std::string PolygonFile(const std::vector<std::string>& records) {
    std::string file = ShapefileBytes(5).Shp();
    for (const std::string& record : records)
        file += record;
    return file;
}

std::vector<std::string> ThreeRegions() {
    const Ring box = {{100, 200}, {100, 202}, {103, 202}, {103, 200}, {100, 200}};
    const Ring outer = {{104, 200}, {104, 204}, {108, 204}, {108, 200}, {104, 200}};
    const Ring hole = {{105, 201}, {107, 201}, {107, 203}, {105, 203}, {105, 201}};
    const Ring triangle = {{108, 203}, {109, 205}, {110, 203}, {108, 203}};
    return {PolygonRecord(1, {box}), PolygonRecord(2, {outer, hole}), PolygonRecord(3, {triangle})};
}

void OpenThreeRegions(const std::string& path) {
    ws = Workspace{};
    ws.ShapeFilePath = path;
    ws.NumRegion = 3;
    ws.ExtentXMin = 100;
    ws.ExtentXMax = 110;
    ws.ExtentYMin = 200;
    ws.ExtentYMax = 205;
    ws.ExtentWidth = 10;
    ws.ExtentHeight = 5;
    ws.MapZoom = 1;
}

} // namespace vastrel
