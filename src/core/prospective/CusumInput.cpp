#include "core/prospective/CusumInput.h"

#include "core/platform/Platform.h"
#include "core/spatial/StudyArea.h"
#include "core/text/Numbers.h"

#include <algorithm>

namespace vastrel {

namespace {

constexpr std::ptrdiff_t IDFieldCount = 3;

bool IsChosen(const std::string& path) {
    if (!path.empty()) return true;
    Warn("File name is not specified.");
    return false;
}

/// The commas of the first line and one more.
std::ptrdiff_t CountColumns(const TextFile& file) {
    const std::string line = file.FirstLine();
    return std::count(line.begin(), line.end(), ',') + 1;
}

/// How many of `rows` rows a reader can come to: every whole row takes two bytes a column, and behind the
/// last one that the file has room for it stops. So no few bytes can ask for a huge table.
std::ptrdiff_t ReachableRows(const TextFile& file, std::ptrdiff_t rows, std::ptrdiff_t columns) {
    return std::min(rows, (static_cast<std::ptrdiff_t>(file.Bytes().size()) + 1) / (2 * columns) + 1);
}

void WarnMissing(std::ptrdiff_t row, std::ptrdiff_t column) {
    // The row is one too high, the column exact; it is meant so.
    Warn("There is missing value in row " + std::to_string(row + 1) + " and column " +
         std::to_string(column) + " in the dataset.");
}

bool LoadNumbers(const TextFile& file, std::ptrdiff_t& columns, std::ptrdiff_t& rows, Table<double>& table) {
    columns = CountColumns(file);
    rows = file.CountLines();
    ReDimWithinMemory(table, ReachableRows(file, rows, columns), columns, "LoadNumbers");
    LineReader reader(file);
    std::string line;
    for (std::ptrdiff_t i = 1; reader.NextLine(line); ++i) {
        const auto fields = SplitAtCommas(line);
        const std::string place = reader.Place();
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

bool LoadIDXY(PointCusum& watch, const TextFile& file) {
    if (CountColumns(file) != IDFieldCount) {
        Warn("ID, XY Coordinates file was misspecified.");
        return false;
    }
    AllocatePoints(watch, file.CountLines());
    LineReader reader(file);
    std::string line;
    for (std::ptrdiff_t i = 1; reader.NextLine(line); ++i) {
        const auto fields = SplitAtCommas(line);
        const std::string place = reader.Place();
        watch.RegionIDs(i) = FieldAt(fields, 0, place);
        watch.RegionX(i) = ToNumber(FieldAt(fields, 1, place), place);
        watch.RegionY(i) = ToNumber(FieldAt(fields, 2, place), place);
    }
    return true;
}

bool LoadNewZScore(PointCusum& watch, const TextFile& file) {
    if (!LoadNumbers(file, watch.ZColumnCount, watch.N, watch.ZScore)) return false;
    watch.NewPeriodCount = watch.ZColumnCount;
    return true;
}

bool LoadOldCusum(PointCusum& watch, const TextFile& file) {
    if (!LoadNumbers(file, watch.OldColumnCount, watch.OldRowCount, watch.OldCusum)) return false;
    watch.OldPeriodCount = watch.OldColumnCount;
    return true;
}

void ReadTextZScores(const TextFile& file) {
    const std::ptrdiff_t columns = CountColumns(file);
    ws.TextPeriodCount = static_cast<double>(columns);
    ReDimWithinMemory(ws.TextZScore, ws.NumRegion, columns, "ReadTextZScores");
    LineReader reader(file);
    std::string line;
    for (std::ptrdiff_t r = 1; reader.NextLine(line); ++r) {
        const auto fields = SplitAtCommas(line);
        const std::string place = reader.Place();
        for (std::ptrdiff_t j = 1; j <= columns; ++j)
            ws.TextZScore(r, j) = ToNumber(FieldAt(fields, static_cast<size_t>(j - 1), place), place);
    }
    ws.RunPeriodCount = ws.TextPeriodCount;
}

bool LoadIDXY(PointCusum& watch, const std::string& path) {
    return IsChosen(path) && LoadIDXY(watch, TextFile(path));
}

bool LoadNewZScore(PointCusum& watch, const std::string& path) {
    return IsChosen(path) && LoadNewZScore(watch, TextFile(path));
}

bool LoadOldCusum(PointCusum& watch, const std::string& path) {
    return IsChosen(path) && LoadOldCusum(watch, TextFile(path));
}

void ReadTextZScores(const std::string& path) {
    ReadTextZScores(TextFile(path));
}

} // namespace vastrel
