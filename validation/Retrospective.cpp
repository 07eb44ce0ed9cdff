#include "validation/Retrospective.h"

#include "core/retrospective/PValues.h"
#include "validation/BandwidthTest.h"
#include "validation/Workers.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace vastrel::validation {

namespace {

constexpr double HalfWidth95 = 1.96;

/// With counts that do not sum to a fixed total every total has moments of its own, which take long.
constexpr std::ptrdiff_t MostRegionsOfManyTotals = 207;
constexpr long MostReplicationsOfManyTotals = 500;

const std::string RangeName = "range";

/// The verdicts on the same datasets at each bandwidth, and on the sweep over the range.
struct Judged {
    std::vector<std::pair<std::string, std::vector<Verdict>>> BySigma;
    long WithScore = 0; // of how many datasets the score statistic was computed
};

std::vector<double> TotalsOf(const std::vector<Table<double>>& blocks, long replications) {
    std::set<double> totals;
    for (const auto& block : blocks)
        for (std::ptrdiff_t column = 1; column <= block.UpperBound2() && replications > 0;
             ++column, --replications) {
            double total = 0;
            for (std::ptrdiff_t i = 1; i <= block.UpperBound1(); ++i)
                total = total + block(i, column);
            totals.insert(total);
        }
    return {totals.begin(), totals.end()};
}

std::vector<Verdict> JudgeAll(const BandwidthTest& test, const std::vector<Table<double>>& blocks) {
    std::vector<std::vector<Verdict>> parts(blocks.size());
    RunParts(static_cast<long>(blocks.size()), [&](long block) {
        const auto b = static_cast<std::size_t>(block);
        parts[b] = test.Judge(blocks[b]);
    });
    std::vector<Verdict> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// Copies of the first columns of the blocks, as many blocks as hold them.
std::vector<Table<double>> FirstBlocks(const std::vector<Table<double>>& blocks, long replications) {
    const auto count =
        std::min<std::size_t>(blocks.size(), static_cast<std::size_t>(replications / BlockSize));
    return {blocks.begin(), blocks.begin() + static_cast<std::ptrdiff_t>(count)};
}

void TakeScoreOf(const std::vector<Verdict>& few, std::vector<Verdict>& all) {
    std::copy(few.begin(), few.end(), all.begin());
}

long CountOf(const std::vector<Table<double>>& blocks) {
    long count = 0;
    for (const auto& block : blocks)
        count += static_cast<long>(block.UpperBound2());
    return count;
}

Judged JudgeBandwidths(const StudyMap& map, const Array1<double>& expected, CountModel model,
                       const std::vector<Table<double>>& blocks, const Bandwidths& bandwidths) {
    const bool manyTotals = model == CountModel::Poisson;
    const bool withScore = !manyTotals || map.Count() <= MostRegionsOfManyTotals;
    const auto scored = manyTotals ? FirstBlocks(blocks, MostReplicationsOfManyTotals) : blocks;
    Judged judged;
    judged.WithScore = withScore ? CountOf(scored) : 0;
    const auto totals = withScore ? TotalsOf(scored, judged.WithScore) : std::vector<double>();
    std::vector<Verdict> range(static_cast<std::size_t>(CountOf(blocks)));
    for (const double sigma : bandwidths.Sigmas) {
        const bool together = !manyTotals || !withScore;
        auto verdicts =
            JudgeAll(BandwidthTest(map, expected, sigma, together ? totals : std::vector<double>()), blocks);
        if (!together) TakeScoreOf(JudgeAll(BandwidthTest(map, expected, sigma, totals), scored), verdicts);
        if (sigma >= bandwidths.RangeFrom && sigma <= bandwidths.RangeTo)
            for (std::size_t i = 0; i < range.size(); ++i)
                range[i].Add(verdicts[i]);
        judged.BySigma.emplace_back(Shown(sigma), std::move(verdicts));
    }
    judged.BySigma.emplace_back(RangeName, std::move(range));
    return judged;
}

bool IsScore(std::size_t decision) {
    return Decisions()[decision].Statistic[0] == 'U';
}

/// 0 for the unadjusted score, 1 for the adjusted one.
std::size_t VariantOf(const std::string& statistic) {
    return statistic == "U adjusted" ? 1 : 0;
}

struct Hits {
    long Of = 0, Made = 0, Stopped = 0;
};

Hits CountDecision(const std::vector<Verdict>& verdicts, std::size_t decision, long withScore) {
    Hits hits;
    const bool score = IsScore(decision);
    hits.Of = score ? withScore : static_cast<long>(verdicts.size());
    const std::size_t variant = VariantOf(Decisions()[decision].Statistic);
    const bool canStop = score && Decisions()[decision].Rule.starts_with("chi-squared p");
    for (std::size_t i = 0; i < static_cast<std::size_t>(hits.Of); ++i) {
        if (verdicts[i].Made[decision]) ++hits.Made;
        if (canStop && verdicts[i].Stopped[variant]) ++hits.Stopped;
    }
    return hits;
}

/// The value that `alpha` of the sorted values (largest first) pass, and a 95 % interval from their ranks.
struct Quantile {
    double Value, Lower, Upper;
};

std::vector<double> Descending(const std::vector<Verdict>& verdicts, std::size_t value, long count) {
    std::vector<double> values;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        values.push_back(verdicts[i].Values[value]);
    std::sort(values.begin(), values.end(), std::greater<>());
    return values;
}

Quantile UpperQuantile(const std::vector<double>& descending, double alpha) {
    const auto n = static_cast<double>(descending.size());
    const auto at = [&](double rank) {
        return descending[static_cast<std::size_t>(std::clamp(std::floor(rank), 1.0, n) - 1)];
    };
    const double half = HalfWidth95 * std::sqrt(n * alpha * (1 - alpha));
    const double rank = alpha * (n + 1);
    return {at(rank), at(rank + half + 1), at(rank - half)};
}

using Row = Results::Row;

Row operator+(Row left, const Row& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Row CaseColumns(const StudyMap& map, CountModel model, double average) {
    return {map.Name, std::to_string(map.Count()), NameOf(model), Shown(average)};
}
const std::string CaseHead = "map,regions,model,expected,";

void AddFalseAlarms(const Judged& judged, const Row& of, Results& results) {
    for (const auto& [sigma, verdicts] : judged.BySigma)
        for (std::size_t d = 0; d < Decisions().size(); ++d) {
            const Hits hits = CountDecision(verdicts, d, judged.WithScore);
            if (hits.Of == 0) continue;
            results.Add("false-alarms.csv", CaseHead + "sigma,statistic,rule,replications,hits,stopped",
                        of + Row{sigma, Decisions()[d].Statistic, Decisions()[d].Rule,
                                 std::to_string(hits.Of), std::to_string(hits.Made),
                                 std::to_string(hits.Stopped)});
        }
}

/// What is shown of a value: an M, or the p-value of a chi-squared score.
std::string ShownValue(std::size_t value, double x) {
    return ValueNames()[value][0] == 'U' ? Shown(NormalPValue(x), 4) : Shown(x, 6);
}

/// Of one value, from its counted replications; `of` tells the case and its bandwidth.
void AddCriticalValues(const std::vector<Verdict>& verdicts, std::size_t value, long count, const Row& of,
                       Results& results) {
    const bool score = ValueNames()[value][0] == 'U';
    const auto descending = Descending(verdicts, value, count);
    for (const double alpha : Alphas) {
        const auto quantile = UpperQuantile(descending, alpha);
        results.Add("critical-values.csv",
                    CaseHead + "sigma,statistic,measure,alpha,replications,value,lower,upper",
                    of + Row{ValueNames()[value], score ? "chi-squared p" : "largest M", Shown(alpha),
                             std::to_string(count), ShownValue(value, quantile.Value),
                             ShownValue(value, score ? quantile.Upper : quantile.Lower),
                             ShownValue(value, score ? quantile.Lower : quantile.Upper)});
    }
}

void AddCriticalValues(const Judged& judged, const Row& of, Results& results) {
    for (const auto& [sigma, verdicts] : judged.BySigma)
        for (std::size_t v = 0; v < ValueCount; ++v) {
            const bool score = ValueNames()[v][0] == 'U';
            const long count = score ? judged.WithScore : static_cast<long>(verdicts.size());
            if (count > 0) AddCriticalValues(verdicts, v, count, of + Row{sigma}, results);
        }
}

bool IsUsual(const std::string& rule) {
    return rule.ends_with(" 0.05");
}

void AddDetections(const Judged& judged, const std::array<double, ValueCount>& limits, const Row& of,
                   Results& results) {
    const auto add = [&](const std::string& sigma, const std::string& statistic, const std::string& rule,
                         long count, long hits) {
        results.Add("clusters.csv", CaseHead + "risk,share,disc,sigma,statistic,rule,replications,hits",
                    of + Row{sigma, statistic, rule, std::to_string(count), std::to_string(hits)});
    };
    for (const auto& [sigma, verdicts] : judged.BySigma)
        for (std::size_t d = 0; d < Decisions().size(); ++d) {
            if (!IsUsual(Decisions()[d].Rule)) continue;
            const Hits hits = CountDecision(verdicts, d, judged.WithScore);
            add(sigma, Decisions()[d].Statistic, Decisions()[d].Rule, hits.Of, hits.Made);
        }
    const auto& range = judged.BySigma.back().second;
    for (std::size_t v = 0; v < ValueCount; ++v)
        add(RangeName, ValueNames()[v], "above simulated 0.05", static_cast<long>(range.size()),
            std::count_if(range.begin(), range.end(),
                          [&](const auto& verdict) { return verdict.Values[v] > limits[v]; }));
}

std::array<double, ValueCount> SimulatedLimits(const Judged& withoutCluster) {
    std::array<double, ValueCount> limits{};
    const auto& range = withoutCluster.BySigma.back().second;
    for (std::size_t v = 0; v < ValueCount; ++v)
        limits[v] = UpperQuantile(Descending(range, v, static_cast<long>(range.size())), Alphas[0]).Value;
    return limits;
}

std::string CaseName(const StudyMap& map, CountModel model, double average) {
    return map.Name + " " + NameOf(model) + " " + Shown(average);
}

} // namespace

Cell FalseAlarms(const std::shared_ptr<const StudyMap>& map, CountModel model, double average,
                 const Bandwidths& bandwidths) {
    const long most = 10'000;
    return {"false alarms " + CaseName(*map, model, average), most,
            [=](const Cell& cell, long replications, Results& results) {
                const auto expected = ExpectedCounts(*map, average);
                const auto blocks = DrawCounts(cell.Name, model, expected, replications);
                const auto judged = JudgeBandwidths(*map, expected, model, blocks, bandwidths);
                const auto of = CaseColumns(*map, model, average);
                AddFalseAlarms(judged, of, results);
                AddCriticalValues(judged, of, results);
            }};
}

Cell Clusters(const std::shared_ptr<const StudyMap>& map, double average, const Bandwidths& bandwidths) {
    constexpr auto model = CountModel::Multinomial;
    return {"clusters " + CaseName(*map, model, average), 10'000,
            [=](const Cell& cell, long replications, Results& results) {
                const auto expected = ExpectedCounts(*map, average);
                const auto judge = [&](const std::string& stream, const Array1<double>& means) {
                    return JudgeBandwidths(*map, expected, model,
                                           DrawCounts(stream, model, means, replications), bandwidths);
                };
                const auto limits = SimulatedLimits(judge(cell.Name, expected));
                for (const double risk : {1.5, 2.0})
                    for (const double share : {0.01, 0.05, 0.2}) {
                        const auto disc = Disc(*map, share);
                        const auto judged = judge(cell.Name + " " + Shown(risk) + " " + Shown(share),
                                                  WithCluster(expected, disc, risk));
                        AddDetections(judged, limits,
                                      CaseColumns(*map, model, average) +
                                          Row{Shown(risk), Shown(share), std::to_string(disc.size())},
                                      results);
                    }
            }};
}

} // namespace vastrel::validation
