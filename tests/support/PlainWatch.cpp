#include "support/PlainWatch.h"

#include "support/ShapefileBytes.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <numeric>

namespace vastrel {

PlainTable::PlainTable(const std::string& bytes) {
    const auto byte = [&](size_t at) { return static_cast<size_t>(static_cast<unsigned char>(bytes[at])); };
    const size_t rows = byte(4) + 256 * byte(5), head = byte(8) + 256 * byte(9);
    const size_t length = byte(10) + 256 * byte(11);
    std::vector<size_t> widths;
    for (size_t at = 32; bytes[at] != '\r'; at += 32) {
        Names.emplace_back(bytes.c_str() + at);
        widths.push_back(byte(at + 16));
    }
    for (size_t row = 0; row < rows; ++row) {
        size_t at = head + row * length + 1;
        auto& values = Rows.emplace_back();
        for (const size_t width : widths) {
            values.push_back(bytes.substr(at, width));
            at += width;
        }
    }
}

NumberRows PlainTable::Columns(const std::string& first, size_t count) const {
    const auto from = static_cast<size_t>(std::find(Names.begin(), Names.end(), first) - Names.begin());
    NumberRows numbers;
    for (const auto& row : Rows) {
        auto& values = numbers.emplace_back();
        for (size_t k = from; k < from + count; ++k)
            values.push_back(std::stod(row.at(k)));
    }
    return numbers;
}

NumberRows PlainCusums(const NumberRows& z, double k, const std::vector<double>& start) {
    NumberRows sums;
    for (const auto& row : z) {
        double sum = start.empty() ? 0 : start.at(sums.size());
        auto& into = sums.emplace_back();
        for (const double value : row)
            into.push_back(sum = std::max(0.0, sum + value - k));
    }
    return sums;
}

NumberRows PlainSmoothed(const NumberRows& z, const NumberRows& places, double area, double sigma) {
    NumberRows smoothed;
    for (const auto& at : places) {
        std::vector<double> weights;
        double squares = 0;
        for (const auto& other : places) {
            const double apart = std::hypot(at[0] - other[0], at[1] - other[1]);
            weights.push_back(std::exp(-apart * apart / (2 * sigma * sigma * area)));
            squares += weights.back() * weights.back();
        }
        auto& into = smoothed.emplace_back(z.front().size(), 0);
        for (size_t j = 0; j < z.size(); ++j)
            for (size_t t = 0; t < into.size(); ++t)
                into[t] += weights[j] / std::sqrt(squares) * z[j][t];
    }
    return smoothed;
}

NumberRows ColumnsOf(const NumberRows& rows, size_t from, size_t to) {
    NumberRows part;
    for (const auto& row : rows)
        part.emplace_back(row.begin() + static_cast<std::ptrdiff_t>(from),
                          row.begin() + static_cast<std::ptrdiff_t>(to));
    return part;
}

namespace {

constexpr size_t WeekCount = 40;

std::string Fixed(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%12.4f", value);
    return text;
}

std::string TextOf(const std::vector<std::vector<std::string>>& rows, size_t from, size_t to) {
    std::string text;
    for (const auto& row : rows)
        for (size_t k = from; k < to; ++k)
            text += row[k] + (k + 1 == to ? "\n" : ",");
    return text;
}

} // namespace

MeaslesWatch::MeaslesWatch(const TemporaryFolder& folder)
    : Shp(CopyOfRealShapefile(folder, "measles/msl_we")) {
    if (!IsThere()) return;
    const std::string dbf = Shp.substr(0, Shp.size() - 3) + "dbf";
    const PlainTable weeks(ReadFile(dbf));
    std::vector<TableColumn> columns{{"NAME", 'C', 24}};
    for (size_t t = 1; t <= WeekCount; ++t)
        columns.push_back({"Z" + std::to_string(t), 'N', 12, 4});
    std::vector<std::vector<std::string>> rows;
    for (const auto& counts : weeks.Columns("W001", WeekCount)) {
        auto& row = rows.emplace_back(1, weeks.Rows[rows.size()][1]);
        auto& scores = Z.emplace_back();
        const double mean = std::accumulate(counts.begin(), counts.end(), 0.0) / WeekCount + 0.1;
        for (const double count : counts) {
            row.push_back(Fixed((count - mean) / std::sqrt(mean)));
            scores.push_back(std::stod(row.back()));
        }
    }
    folder.Write(std::filesystem::path(dbf).filename().string(), TableBytes(columns, rows));
    Whole = folder.Write("whole.txt", TextOf(rows, 1, 1 + WeekCount));
    First = folder.Write("first.txt", TextOf(rows, 1, 1 + WeekCount / 2));
    Second = folder.Write("second.txt", TextOf(rows, 1 + WeekCount / 2, 1 + WeekCount));
}

} // namespace vastrel
