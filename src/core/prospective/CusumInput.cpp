#include "core/prospective/CusumInput.h"

#include "core/platform/Platform.h"
#include "core/spatial/StudyArea.h"
#include "core/text/Numbers.h"
#include "core/text/TextFile.h"

#include <algorithm>
#include <filesystem>

namespace vastrel {

namespace {

constexpr std::ptrdiff_t IDFieldCount = 3;

bool IsChosen(const std::string& path) {
    if (!path.empty()) return true;
    Warn("File name is not specified.");
    return false;
}

/// The commas of the first line and one more.
std::ptrdiff_t CountColumns(const std::string& path) {
    const std::string line = TextFile(path).FirstLine();
    return std::count(line.begin(), line.end(), ',') + 1;
}

/// How many of `rows` rows a reader can come to: every whole row takes two bytes a column, and behind the
/// last one that the file has room for it stops. So no few bytes can ask for a huge table.
std::ptrdiff_t ReachableRows(const std::string& path, std::ptrdiff_t rows, std::ptrdiff_t columns) {
    std::error_code unknown; // no ordinary file: it cannot be read a second time either
    const auto bytes =
        std::filesystem::file_size(std::filesystem::path(std::u8string(path.begin(), path.end())), unknown);
    if (unknown) return rows;
    return std::min(rows, (static_cast<std::ptrdiff_t>(bytes) + 1) / (2 * columns) + 1);
}

void WarnMissing(std::ptrdiff_t row, std::ptrdiff_t column) {
    // The row is one too high, the column exact; it is meant so.
    Warn("There is missing value in row " + std::to_string(row + 1) + " and column " +
         std::to_string(column) + " in the dataset.");
}

bool LoadNumbers(const std::string& path, std::ptrdiff_t& columns, std::ptrdiff_t& rows,
                 Table<double>& table) {
    if (!IsChosen(path)) return false;
    columns = CountColumns(path);
    rows = CountLines(path);
    ReDimWithinMemory(table, ReachableRows(path, rows, columns), columns, "LoadNumbers");
    TextFile file(path);
    std::string line;
    for (std::ptrdiff_t i = 1; file.NextLine(line); ++i) {
        const auto fields = SplitAtCommas(line);
        const std::string place = file.Place();
        for (std::ptrdiff_t j = 1; j <= columns; ++j) {
            const std::string& field = FieldAt(fields, static_cast<size_t>(j - 1), place);
            if (field.empty()) {
                WarnMissing(i, j);
                return false;
            }
            table(i, j) = ToNumber(field, place);
        }
    }
    return true;
}

void AllocatePoints(PointCusum& watch, std::ptrdiff_t n) {
    watch.N = n;
    ws.NumTextRegion = static_cast<double>(n);
    watch.RegionIDs.ReDim(n);
    watch.RegionX.ReDim(n);
    watch.RegionY.ReDim(n);
    ForgetPlottedPoints();
}

} // namespace

bool LoadIDXY(PointCusum& watch, const std::string& path) {
    if (!IsChosen(path)) return false;
    if (CountColumns(path) != IDFieldCount) {
        Warn("ID, XY Coordinates file was misspecified.");
        return false;
    }
    AllocatePoints(watch, CountLines(path));
    TextFile file(path);
    std::string line;
    for (std::ptrdiff_t i = 1; file.NextLine(line); ++i) {
        const auto fields = SplitAtCommas(line);
        const std::string place = file.Place();
        watch.RegionIDs(i) = FieldAt(fields, 0, place);
        watch.RegionX(i) = ToNumber(FieldAt(fields, 1, place), place);
        watch.RegionY(i) = ToNumber(FieldAt(fields, 2, place), place);
    }
    return true;
}

bool LoadNewZScore(PointCusum& watch, const std::string& path) {
    if (!LoadNumbers(path, watch.ZColumnCount, watch.N, watch.ZScore)) return false;
    watch.NewPeriodCount = watch.ZColumnCount;
    return true;
}

bool LoadOldCusum(PointCusum& watch, const std::string& path) {
    if (!LoadNumbers(path, watch.OldColumnCount, watch.OldRowCount, watch.OldCusum)) return false;
    watch.OldPeriodCount = watch.OldColumnCount;
    return true;
}

void ReadTextZScores(const std::string& path) {
    const std::ptrdiff_t columns = CountColumns(path);
    ws.TextPeriodCount = static_cast<double>(columns);
    ReDimWithinMemory(ws.TextZScore, ws.NumRegion, columns, "ReadTextZScores");
    TextFile file(path);
    std::string line;
    for (std::ptrdiff_t r = 1; file.NextLine(line); ++r) {
        const auto fields = SplitAtCommas(line);
        const std::string place = file.Place();
        for (std::ptrdiff_t j = 1; j <= columns; ++j)
            ws.TextZScore(r, j) = ToNumber(FieldAt(fields, static_cast<size_t>(j - 1), place), place);
    }
    ws.RunPeriodCount = ws.TextPeriodCount;
}

} // namespace vastrel
