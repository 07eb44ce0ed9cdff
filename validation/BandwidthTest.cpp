#include "validation/BandwidthTest.h"

#include "core/numeric/Approximations.h"
#include "core/numeric/CountDeviations.h"
#include "core/numeric/KernelRows.h"
#include "core/prospective/CusumEngine.h"
#include "core/retrospective/Bandwidth.h"
#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/ScoreStatistic.h"
#include "core/retrospective/Weights.h"
#include "core/text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace vastrel::validation {

namespace {

struct MKind {
    const char* Name;
    double (*Score)(double observed, double expected);
};
constexpr std::array<MKind, 3> MKinds{
    {{"M Pearson", PearsonScore}, {"M Freeman-Tukey", FreemanTukeyScore}, {"M Rossi", RossiScore}}};

double Difference(double observed, double expected) {
    return observed - expected;
}

/// The decisions in their order: those on M, then those on U unadjusted, then those on U adjusted.
constexpr std::size_t FirstChiCritical = 2 * PValueLimits.size();
constexpr std::size_t FirstUpperSide = FirstChiCritical + Alphas.size();
constexpr std::size_t ScoreDecisions = FirstUpperSide + 2 * Alphas.size();
constexpr std::size_t FirstOfScore = MKinds.size() * Alphas.size();

std::vector<Decision> AllDecisions() {
    std::vector<Decision> decisions;
    for (const auto& kind : MKinds)
        for (const double alpha : Alphas)
            decisions.push_back({kind.Name, "above M* " + GeneralText(alpha)});
    for (const char* statistic : {"U unadjusted", "U adjusted"}) {
        for (const char* way : {"normal p below ", "chi-squared p below "})
            for (const double limit : PValueLimits)
                decisions.push_back({statistic, way + GeneralText(limit)});
        for (const double alpha : Alphas)
            decisions.push_back({statistic, "chi above chi* " + GeneralText(alpha)});
        for (const char* way : {"normal z above 0 and p below ", "chi-squared z above 0 and p below "})
            for (const double alpha : Alphas)
                decisions.push_back({statistic, way + GeneralText(alpha)});
    }
    return decisions;
}

const std::vector<PValueCut>& Cuts() {
    static const std::vector<PValueCut> cuts(PValueLimits.begin(), PValueLimits.end());
    return cuts;
}

double TotalOf(const Table<double>& observed, std::ptrdiff_t column) {
    double total = 0;
    for (std::ptrdiff_t i = 1; i <= observed.UpperBound1(); ++i)
        total = total + observed(i, column);
    return total;
}

bool BelowAlpha(double z, std::size_t alpha) {
    static const std::vector<PValueCut> cuts(Alphas.begin(), Alphas.end());
    return cuts[alpha].Below(z);
}

/// What stands for the score of a chi-squared value below 0, whose p-value ends in a run-time error.
constexpr double NoScore = -100;

/// The decisions on a global U that was standardised to z and chi.
void Decide(const Approximation& score, double df, const double* chiCritical, std::size_t variant,
            Verdict& verdict) {
    const std::size_t first = FirstOfScore + variant * ScoreDecisions;
    verdict.Stopped[variant] = score.Chi / df < 0;
    const double chiZ = verdict.Stopped[variant] ? NoScore : ChiSquareToNormal(score.Chi, df);
    verdict.Values[MKinds.size() + variant] = chiZ;
    for (std::size_t i = 0; i < PValueLimits.size(); ++i) {
        verdict.Made[first + i] = Cuts()[i].Below(score.Z);
        verdict.Made[first + PValueLimits.size() + i] = !verdict.Stopped[variant] && Cuts()[i].Below(chiZ);
    }
    for (std::size_t i = 0; i < Alphas.size(); ++i) {
        verdict.Made[first + FirstChiCritical + i] = score.Chi > chiCritical[i];
        verdict.Made[first + FirstUpperSide + i] = score.Z > 0 && BelowAlpha(score.Z, i);
        verdict.Made[first + FirstUpperSide + Alphas.size() + i] = chiZ > 0 && BelowAlpha(chiZ, i);
    }
}

} // namespace

const std::vector<Decision>& Decisions() {
    static const auto decisions = AllDecisions();
    return decisions;
}

const std::array<std::string, ValueCount>& ValueNames() {
    static const std::array<std::string, ValueCount> names{"M Pearson", "M Freeman-Tukey", "M Rossi",
                                                           "U unadjusted", "U adjusted"};
    return names;
}

void Verdict::Add(const Verdict& other) {
    Made |= other.Made;
    for (std::size_t i = 0; i < Stopped.size(); ++i)
        Stopped[i] = Stopped[i] || other.Stopped[i];
    for (std::size_t i = 0; i < Values.size(); ++i)
        Values[i] = std::max(Values[i], other.Values[i]);
}

BandwidthTest::BandwidthTest(const StudyMap& map, const Array1<double>& expected, double sigma,
                             const std::vector<double>& totals)
    : n_(map.Count()), expected_(expected) {
    TakeMap(map);
    ws.CurrentSigma = sigma == 0 ? SigmaForZero : sigma;
    ws.ExpCount = expected;
    for (std::size_t i = 0; i < Alphas.size(); ++i) {
        ws.AlphaLevel = Alphas[i];
        criticalM_[i] = MCriticalValue().value_or(0);
    }
    BuildMWeights();
    weightM_.ReDimUnset(n_, n_);
    PutWeights(ws.WeightM, weightM_);
    for (const double total : totals)
        if (!moments_.contains(total)) TakeMoments(total);
    if (HasScore()) {
        weightUnadjusted_ = ws.WeightUnadjusted;
        weightAdjusted_ = ws.WeightAdjusted;
    }
    ws = Workspace{};
}

void BandwidthTest::TakeMoments(double total) {
    ws.TotalObs = total;
    ws.ExpRatio.ReDim(n_);
    for (std::ptrdiff_t i = 1; i <= n_; ++i)
        ws.ExpRatio(i) = expected_(i) / total;
    BuildScoreWeights();
    ScoreMomentsPlain();
    BothMoments both;
    both.Plain = {ws.ScoreMean, ws.ScoreVar, ws.ScoreDF};
    ScoreMomentsAdjusted();
    both.Adjusted = {ws.ScoreMean, ws.ScoreVar, ws.ScoreDF};
    for (std::size_t i = 0; i < Alphas.size(); ++i) {
        both.ChiCritical[i] = ChiCritical(Alphas[i], both.Plain.DegreesOfFreedom);
        both.ChiCritical[Alphas.size() + i] = ChiCritical(Alphas[i], both.Adjusted.DegreesOfFreedom);
    }
    moments_[total] = both;
}

Table<double> BandwidthTest::Scores(const Table<double>& observed, double (*score)(double, double)) const {
    Table<double> scores(n_, observed.UpperBound2());
    for (std::ptrdiff_t i = 1; i <= n_; ++i) {
        const double* counts = observed.row(i);
        double* row = scores.row(i);
        for (std::ptrdiff_t column = 1; column <= observed.UpperBound2(); ++column)
            row[column] = score(counts[column], expected_(i));
    }
    return scores;
}

void BandwidthTest::JudgeM(const Table<double>& observed, std::vector<Verdict>& verdicts) const {
    const std::ptrdiff_t columns = observed.UpperBound2();
    for (std::size_t kind = 0; kind < MKinds.size(); ++kind) {
        const auto local = FilterZScores(weightM_, Scores(observed, MKinds[kind].Score), n_, columns);
        const auto maxima = ColumnMaxima(local, n_, columns);
        for (std::ptrdiff_t column = 1; column <= columns; ++column) {
            auto& verdict = verdicts[static_cast<std::size_t>(column - 1)];
            verdict.Values[kind] = maxima(column);
            for (std::size_t i = 0; i < Alphas.size(); ++i)
                verdict.Made[kind * Alphas.size() + i] = maxima(column) > criticalM_[i];
        }
    }
}

void BandwidthTest::JudgeScore(const Table<double>& observed, std::vector<Verdict>& verdicts) const {
    const std::ptrdiff_t columns = observed.UpperBound2();
    const auto differences = Scores(observed, Difference);
    for (const bool adjusted : {false, true}) {
        const auto local =
            FilterZScores(adjusted ? weightAdjusted_ : weightUnadjusted_, differences, n_, columns);
        for (std::ptrdiff_t column = 1; column <= columns; ++column) {
            double global = 0;
            for (std::ptrdiff_t i = 1; i <= n_; ++i)
                global = global + local(i, column) * local(i, column);
            const double total = TotalOf(observed, column);
            const auto& both = moments_.at(total);
            const Moments& moments = adjusted ? both.Adjusted : both.Plain;
            const auto score = Standardise(DividedBy(global, adjusted ? total : total * total), moments);
            Decide(score, moments.DegreesOfFreedom, both.ChiCritical.data() + (adjusted ? Alphas.size() : 0),
                   adjusted ? 1 : 0, verdicts[static_cast<std::size_t>(column - 1)]);
        }
    }
}

std::vector<Verdict> BandwidthTest::Judge(const Table<double>& observed) const {
    std::vector<Verdict> verdicts(static_cast<std::size_t>(observed.UpperBound2()));
    JudgeM(observed, verdicts);
    if (HasScore()) JudgeScore(observed, verdicts);
    return verdicts;
}

} // namespace vastrel::validation
