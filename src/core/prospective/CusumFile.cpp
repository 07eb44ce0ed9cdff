#include "core/prospective/CusumFile.h"

#include "core/prospective/CusumTables.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

#include <algorithm>

namespace vastrel {

std::vector<std::string> CusumFileLines(const Table<double>& cusum, std::ptrdiff_t rows,
                                        std::ptrdiff_t columns) {
    std::vector<std::string> lines(1);
    for (std::ptrdiff_t t = 1; t <= columns; ++t)
        lines.front() += "period" + std::to_string(t) + ",";
    for (std::ptrdiff_t i = 1; i <= rows; ++i) {
        std::string& line = lines.emplace_back();
        for (std::ptrdiff_t t = 1; t <= columns; ++t)
            line += GeneralText(cusum(i, t)) + ",";
    }
    return lines;
}

namespace {

/// The number in a field; 0 where there is none.
double NumberOrZero(const std::string& field) {
    if (!IsNumeric(field)) return 0;
    try {
        return ToNumber(field);
    } catch (const RunTimeError&) { // too large
        return 0;
    }
}

} // namespace

void ReadCusumFile(const TextFile& file) {
    LineReader reader(file);
    std::string line;
    reader.NextLine(line);
    const std::ptrdiff_t columns = std::count(line.begin(), line.end(), ',');
    ws.PreviousPeriodCount = static_cast<double>(columns);
    ReDimWithinMemory(ws.PreviousCusum, ws.NumRegion, columns, "ReadCusumFile");
    for (std::ptrdiff_t r = 1; r <= ws.NumRegion && reader.NextLine(line); ++r) {
        const auto fields = SplitAtCommas(line);
        const auto present = std::min(columns, static_cast<std::ptrdiff_t>(fields.size()));
        for (std::ptrdiff_t j = 1; j <= present; ++j)
            ws.PreviousCusum(r, j) = NumberOrZero(fields[static_cast<size_t>(j - 1)]);
    }
}

void ReadCusumFile(const std::string& path) {
    ReadCusumFile(TextFile(path));
}

} // namespace vastrel
