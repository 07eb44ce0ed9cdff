#include "support/PolygonFile.h"

#include <bit>

namespace vastrel {

namespace {

std::string Bytes(std::uint64_t bits, int count, bool lowFirst) {
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(bits >> (8 * (lowFirst ? i : count - 1 - i)));
    return bytes;
}

std::string HighFirst(std::int32_t value) {
    return Bytes(static_cast<std::uint32_t>(value), 4, false);
}

std::string Double(double value) {
    return Bytes(std::bit_cast<std::uint64_t>(value), 8, true);
}

} // namespace

std::string LowFirst(std::int32_t value) {
    return Bytes(static_cast<std::uint32_t>(value), 4, true);
}

std::string PolygonRecord(int number, const std::vector<Ring>& rings) {
    std::string firsts, vertices;
    std::int32_t count = 0;
    for (const Ring& ring : rings) {
        firsts += LowFirst(count);
        for (const PointXY& vertex : ring)
            vertices += Double(vertex.X) + Double(vertex.Y);
        count += static_cast<std::int32_t>(ring.size());
    }
    const std::string contents = LowFirst(5) + std::string(32, '\0') +
                                 LowFirst(static_cast<std::int32_t>(rings.size())) + LowFirst(count) +
                                 firsts + vertices;
    return HighFirst(number) + HighFirst(static_cast<std::int32_t>(contents.size() / 2)) + contents;
}

std::string PolygonFile(const std::vector<std::string>& records) {
    std::string all;
    for (const std::string& record : records)
        all += record;
    return HighFirst(9994) + std::string(20, '\0') +
           HighFirst(static_cast<std::int32_t>((100 + all.size()) / 2)) + LowFirst(1000) + LowFirst(5) +
           Double(100) + Double(200) + Double(110) + Double(205) + std::string(32, '\0') + all;
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
