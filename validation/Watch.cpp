#include "validation/Watch.h"

#include "core/prospective/CusumEngine.h"
#include "core/text/Numbers.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace vastrel::validation {

namespace {

/// The sums that begin at one start value, and the alarms on them that are still silent.
struct Sums {
    std::vector<std::size_t> Silent;
    Table<double> Cusum;
    Array1<double> Max;
    Array1<std::string> MaxRegion, Labels;
    bool Begun = false;

    CusumOutputs Outputs() { return {Cusum, Max, MaxRegion, Labels}; }
};

/// As many periods at a time as keep a step short and waste little behind the signal.
std::ptrdiff_t PeriodsAtATime(std::ptrdiff_t regions) {
    return regions == 1 ? 200 : 40;
}

Table<double> LastColumn(const Table<double>& table, std::ptrdiff_t n) {
    Table<double> last(n, 1);
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        last(i, 1) = table(i, table.UpperBound2());
    return last;
}

/// Goes on with the sums over the next periods.
void Advance(Sums& sums, const Table<double>& filtered, std::ptrdiff_t n, double k, double start) {
    const std::ptrdiff_t periods = filtered.UpperBound2();
    static const CusumRules& rules = PolygonCusumRules();
    const Array1<std::string> labels(n);
    const auto outputs = sums.Outputs();
    if (!sums.Begun) {
        outputs.ReDim(n, periods);
        RunCusum(filtered, n, periods, k, start, labels, outputs);
        sums.Begun = true;
        return;
    }
    const auto last = LastColumn(sums.Cusum, n);
    outputs.SetZero();
    ContinueCusum(rules, filtered, n, periods, k, {last, n, 1}, labels, outputs);
}

} // namespace

double CalculatedH(HValueOption option, double k, double arl0, double regions, double sigma) {
    HValueTexts texts{GeneralText(k), GeneralText(arl0), GeneralText(regions), GeneralText(sigma)};
    const auto text = HValueResult(option, texts);
    if (!text) throw std::invalid_argument("The calculator gives no h for these values.");
    return ToNumber(*text);
}

Watch::Watch(const WatchedMap& watched) : watched_(watched), n_(watched.Map->Count()) {
    Array1<double> x(n_), y(n_);
    for (std::ptrdiff_t i = 1; i <= n_; ++i) {
        x(i) = watched.Map->At(i).X;
        y(i) = watched.Map->At(i).Y;
    }
    const double sigma = watched.Sigma == 0 ? CusumSigmaForZero : watched.Sigma;
    weights_ = BuildCusumWeights(x, y, n_, watched.Map->Area, sigma);
    if (watched.Source.Transform != ExportOption::None) counts_.emplace_back(watched.Source.Expected);
}

Table<double> Watch::DrawScores(RandomNumbers& random) const {
    const std::ptrdiff_t periods = PeriodsAtATime(n_);
    Table<double> z(n_, periods);
    for (std::ptrdiff_t t = 1; t <= periods; ++t) {
        for (std::ptrdiff_t i = 1; i <= n_; ++i)
            z(i, t) = counts_.empty() ? random.Normal()
                                      : ExportScore(watched_.Source.Transform, counts_[0](random),
                                                    watched_.Source.Expected);
        for (const auto i : watched_.Raised)
            z(i, t) += watched_.Shift;
    }
    // Weights of sigma 0 leave every score as it is.
    return watched_.Sigma == 0 ? z : FilterZScores(weights_, z, n_, periods);
}

std::vector<long> Watch::FirstSignals(const std::vector<Alarm>& alarms, RandomNumbers& random) const {
    std::vector<long> first(alarms.size(), 0);
    std::map<double, Sums> sums; // by start value
    for (std::size_t a = 0; a < alarms.size(); ++a)
        sums[alarms[a].Start].Silent.push_back(a);
    for (long before = 0; before < watched_.Limit && !sums.empty();) {
        const auto filtered = DrawScores(random);
        for (auto& entry : sums) {
            Sums& of = entry.second;
            Advance(of, filtered, n_, watched_.K, entry.first);
            for (std::ptrdiff_t t = 1; t <= filtered.UpperBound2(); ++t)
                std::erase_if(of.Silent, [&](std::size_t a) {
                    const bool signal = of.Max(t) > alarms[a].H && before + t <= watched_.Limit;
                    if (signal) first[a] = before + t;
                    return signal;
                });
        }
        std::erase_if(sums, [](const auto& entry) { return entry.second.Silent.empty(); });
        before += filtered.UpperBound2();
    }
    return first;
}

} // namespace vastrel::validation
