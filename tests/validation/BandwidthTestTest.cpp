#include "validation/BandwidthTest.h"

#include "core/numeric/Approximations.h"
#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/RetroProcedures.h"
#include "core/text/Numbers.h"
#include "support/ProjectFolder.h"
#include "validation/Counts.h"

#include <gtest/gtest.h>

using namespace vastrel;
using namespace vastrel::validation;

namespace {

constexpr double Total = 207 * 5;

/// One run of the program on a column of counts.
void RunProgram(const StudyMap& map, const Array1<double>& expected, const Table<double>& counts,
                std::ptrdiff_t column, double sigma, RetroVariable variable) {
    TakeMap(map);
    ws.CurrentSigma = sigma;
    ws.ExpCount = expected;
    ws.ObsCount.ReDim(map.Count());
    ws.ExpRatio.ReDim(map.Count());
    for (std::ptrdiff_t i = 1; i <= map.Count(); ++i) {
        ws.ObsCount(i) = counts(i, column);
        ws.TotalObs = ws.TotalObs + counts(i, column);
        ws.ExpRatio(i) = expected(i) / Total;
    }
    ASSERT_EQ(ws.TotalObs, Total);
    RunSingleProcedures(variable);
}

bool Took(const Verdict& verdict, const std::string& statistic, const std::string& rule) {
    for (std::size_t d = 0; d < Decisions().size(); ++d)
        if (Decisions()[d].Statistic == statistic && Decisions()[d].Rule == rule) return verdict.Made[d];
    ADD_FAILURE() << "No decision " << statistic << " " << rule;
    return false;
}

void ExpectSameM(const Verdict& verdict, std::size_t value) {
    const std::string& statistic = ValueNames()[value];
    EXPECT_EQ(verdict.Values[value], MaxLocalM());
    for (const double alpha : Alphas) {
        ws.AlphaLevel = alpha;
        EXPECT_EQ(Took(verdict, statistic, "above M* " + GeneralText(alpha)), MaxLocalM() > MCritical());
    }
}

void ExpectSameScore(const Verdict& verdict, std::size_t value) {
    const std::string& statistic = ValueNames()[value];
    const double chiZ = ChiSquareToNormal(ws.ScoreChi, ws.ScoreDF);
    EXPECT_EQ(verdict.Values[value], chiZ);
    for (const double limit : PValueLimits) {
        EXPECT_EQ(Took(verdict, statistic, "normal p below " + GeneralText(limit)),
                  NormalPValue(ws.ScoreZ) < limit);
        EXPECT_EQ(Took(verdict, statistic, "chi-squared p below " + GeneralText(limit)),
                  ChiSquarePValue(ws.ScoreChi, ws.ScoreDF) < limit);
    }
    for (const double alpha : Alphas) {
        EXPECT_EQ(Took(verdict, statistic, "chi above chi* " + GeneralText(alpha)),
                  ws.ScoreChi > ChiCritical(alpha, ws.ScoreDF));
        EXPECT_EQ(Took(verdict, statistic, "normal z above 0 and p below " + GeneralText(alpha)),
                  ws.ScoreZ > 0 && NormalPValue(ws.ScoreZ) < alpha);
        EXPECT_EQ(Took(verdict, statistic, "chi-squared z above 0 and p below " + GeneralText(alpha)),
                  chiZ > 0 && NormalPValue(chiZ) < alpha);
    }
}

} // namespace

TEST(BandwidthTest, SaysOfManyDatasetsWhatTheProgramSaysOfEach) {
    const auto map = CountryMap(ProjectFolder() + "/samples");
    const auto expected = ExpectedCounts(map, 5);
    // Half of the datasets have a cluster, so that both answers to every question come up.
    for (const double risk : {1.0, 1.6}) {
        const auto means = WithCluster(expected, Disc(map, 0.05), risk);
        const auto counts = DrawCounts("test", CountModel::Multinomial, means, 4).at(0);
        for (const double sigma : {0.4, 1.0, 3.0}) {
            const auto verdicts = BandwidthTest(map, expected, sigma, {Total}).Judge(counts);
            ASSERT_EQ(verdicts.size(), 4U);
            for (std::ptrdiff_t column = 1; column <= 4; ++column) {
                const auto& verdict = verdicts[static_cast<std::size_t>(column - 1)];
                const auto run = [&](RetroVariable variable) {
                    RunProgram(map, expected, counts, column, sigma, variable);
                };
                run(RetroVariable::AdjustedPoisson);
                ExpectSameM(verdict, 0);
                ExpectSameScore(verdict, 4);
                run(RetroVariable::FreemanTukey);
                ExpectSameM(verdict, 1);
                run(RetroVariable::Rossi);
                ExpectSameM(verdict, 2);
                run(RetroVariable::Unadjusted);
                ExpectSameScore(verdict, 3);
            }
        }
    }
    ws = Workspace{};
}

TEST(BandwidthTest, OfBandwidthsTakesWhatAnyOfThemSays) {
    Verdict first, second;
    first.Made[2] = true;
    first.Values = {1, 5, 0, 0, 2};
    second.Made[7] = true;
    second.Values = {3, 4, 0, 0, 1};
    second.Stopped = {false, true};
    first.Add(second);
    EXPECT_EQ(first.Made.to_ulong(), (1U << 2) + (1U << 7));
    EXPECT_EQ(first.Values, (std::array<double, ValueCount>{3, 5, 0, 0, 2}));
    EXPECT_EQ(first.Stopped, (std::array<bool, 2>{false, true}));
}

TEST(PValueCut, IsThePValueOfTheProgram) {
    for (const double limit : PValueLimits) {
        const PValueCut cut(limit);
        for (const double z : {-5.0, -4.51, -1.645, 0.0, 0.253, 0.841, 1.2816, 1.6448, 1.6449, 2.0537, 2.3263,
                               2.5758, 3.0902, 4.5, 4.6})
            EXPECT_EQ(cut.Below(z), NormalPValue(z) < limit) << z << " " << limit;
    }
}
