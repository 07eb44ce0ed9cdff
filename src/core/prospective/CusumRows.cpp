#include "core/prospective/CusumRows.h"

#include "core/text/Numbers.h"
#include "core/text/RowLayout.h"

namespace vastrel {

namespace {
constexpr std::ptrdiff_t TitleRowCount = 2;
constexpr int DashCount = 82;
} // namespace

std::string CusumDashes() {
    return Dashes(DashCount);
}

std::vector<std::string> PeriodTitleRows() {
    return {"  Year   Cusum     Region of max cusum value", CusumDashes()};
}

std::string PeriodRow(std::ptrdiff_t period, double maximum, const std::string& region) {
    return Pad(std::to_string(period), 5) + "  " + Pad(Num(maximum, "###0.00"), 7) + "     " +
           Pad(region, 16);
}

std::ptrdiff_t PeriodOfRow(std::ptrdiff_t row, std::ptrdiff_t periods) {
    const std::ptrdiff_t period = row - TitleRowCount + 1;
    return period >= 1 && period <= periods ? period : 0;
}

std::string SignaledRow(double cusum, const std::string& label) {
    return Pad(Num(cusum, "###0.00"), 8) + " <---" + Pad(label, 18);
}

std::vector<std::ptrdiff_t> SignaledRegions(const Table<double>& cusum, std::ptrdiff_t n,
                                            std::ptrdiff_t period, double h) {
    std::vector<std::ptrdiff_t> regions;
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        if (cusum(i, period) > h) regions.push_back(i);
    return regions;
}

std::vector<std::string> SignaledRows(const Table<double>& cusum, const Array1<std::string>& labels,
                                      std::ptrdiff_t period, const std::vector<std::ptrdiff_t>& regions) {
    std::vector<std::string> rows;
    rows.reserve(regions.size());
    for (const std::ptrdiff_t i : regions)
        rows.push_back(SignaledRow(cusum(i, period), labels(i)));
    return rows;
}

std::string RegionInfo(const std::string& label, std::ptrdiff_t period, double cusum) {
    return label + " in " + std::to_string(period) + ": ---> " + Num(cusum, "0.00");
}

} // namespace vastrel
