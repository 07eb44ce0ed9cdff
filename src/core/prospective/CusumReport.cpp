#include "core/prospective/CusumReport.h"

#include "core/text/Numbers.h"
#include "core/text/RowLayout.h"

#include <functional>

namespace vastrel {

namespace {

constexpr int DashCount = 344;
constexpr int MaximumWidth = 18;
constexpr int CusumWidth = 7;
constexpr int LabelWidth = 36;

std::string Cell(const std::string& text, int width) {
    return Pad(text, width) + ", ";
}

/// A cell for every period.
std::string Cells(std::ptrdiff_t periods, int width, const std::function<std::string(std::ptrdiff_t)>& text) {
    std::string line;
    for (std::ptrdiff_t t = 1; t <= periods; ++t)
        line += Cell(text(t), width);
    return line;
}

std::string PeriodName(std::ptrdiff_t t) {
    return "period" + std::to_string(t);
}

std::string Decimals(double cusum) {
    return Num(cusum, "0.0000");
}

} // namespace

std::vector<std::string> CusumReport(const CusumOutputs& run, std::ptrdiff_t n, std::ptrdiff_t periods) {
    const std::string dashes = Dashes(DashCount);
    std::vector<std::string> lines{
        "                  Table of maximum cusum and corresponding region for each year             ",
        dashes,
        Cells(periods, MaximumWidth, PeriodName),
        Cells(periods, MaximumWidth, [&](std::ptrdiff_t t) { return run.MaxRegion(t); }),
        Cells(periods, MaximumWidth, [&](std::ptrdiff_t t) { return Decimals(run.MaxCusum(t)); }),
        dashes,
        "",
        "",
        "                  Table of cusum for a given period in each region               ",
        "",
        Cell("RegionID", LabelWidth) + Cells(periods, CusumWidth, PeriodName),
        dashes};
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        lines.push_back(
            Cell(run.RegionLabel(i), LabelWidth) +
            Cells(periods, CusumWidth, [&](std::ptrdiff_t t) { return Decimals(run.Cusum(i, t)); }));
    lines.push_back(dashes);
    return lines;
}

} // namespace vastrel
