#include "core/retrospective/MStatistic.h"

#include "core/retrospective/Weights.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/RetroData.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

/// One Region alone: M is the transform itself.
void TakeOne(double observed, double expected) {
    TakeRetroRegions({{0, 0, observed, expected}}, 1);
    ws.CurrentSigma = 1;
    BuildMWeights();
}

double MOfOne(void (*transform)(), double observed, double expected) {
    TakeOne(observed, expected);
    transform();
    return ws.LocalM(1);
}

void ExpectOutputsOfMZero(std::ptrdiff_t n) {
    for (const auto* values : {&ws.LocalM, &ws.LocalMSorted, &ws.MapDrawM, &ws.MapClassM,
                               &ws.DisplayClassValues, &ws.DisplayDrawValues})
        EXPECT_EQ(*values, Array1<double>(n));
}

} // namespace

TEST(MTransforms, AreWorkedOutByHand) {
    EXPECT_EQ(MOfOne(MTransformPearson, 9, 4), 2.5);                         // 5 / 2
    EXPECT_NEAR(MOfOne(MTransformFreemanTukey, 9, 4), 2.03917203455, 1e-11); // 3 + sqrt 10 - sqrt 17
    EXPECT_EQ(MOfOne(MTransformRossi, 9, 4), 2.25);                          // (9 - 12 + 12) / 4
}

TEST(MTransforms, AreZeroWhereAllIsAsExpectedButForFreemanTukey) {
    EXPECT_EQ(MOfOne(MTransformPearson, 4, 4), 0);
    EXPECT_EQ(MOfOne(MTransformRossi, 4, 4), 0);
    EXPECT_NEAR(MOfOne(MTransformFreemanTukey, 4, 4), 0.11296235188, 1e-11); // 2 + sqrt 5 - sqrt 17
}

TEST(MTransforms, TakeAnObservedCountOfZero) {
    EXPECT_EQ(MOfOne(MTransformPearson, 0, 4), -2);
    EXPECT_EQ(MOfOne(MTransformRossi, 0, 4), -3);                             // -12 / 4
    EXPECT_NEAR(MOfOne(MTransformFreemanTukey, 0, 4), -3.12310562562, 1e-11); // 1 - sqrt 17
}

TEST(MTransforms, DivideByAnExpectedCountOfZeroButForFreemanTukey) {
    EXPECT_NEAR(MOfOne(MTransformFreemanTukey, 9, 0), 5.16227766017, 1e-11); // 3 + sqrt 10 - 1
    for (const auto transform : {MTransformPearson, MTransformRossi}) {
        TakeOne(9, 0);
        EXPECT_EQ(ErrorNumberOf(transform), DivisionByZero);
        ExpectOutputsOfMZero(1);
    }
    EXPECT_EQ(ws.DevRossi, Array1<double>(1));
}

TEST(MTransforms, StopAtANegativeCount) {
    TakeOne(-2, 4);
    EXPECT_EQ(ErrorNumberOf(MTransformFreemanTukey), InvalidProcedureCall);
    ExpectOutputsOfMZero(1);
    EXPECT_EQ(ws.DevFreemanTukey, Array1<double>(1));
    EXPECT_EQ(ErrorNumberOf(MTransformRossi), InvalidProcedureCall);
}

TEST(MTransforms, WeighTheScoresOfAllRegions) {
    // Pearson scores 1 and -2; weights a = 0.855..., b = 0.518... for a distance of one mean side.
    TakeRetroRegions({{0, 0, 6, 4}, {1, 0, 3, 9}}, 2);
    ws.CurrentSigma = 1;
    BuildMWeights();
    MTransformPearson();
    EXPECT_EQ(ws.DevPearson(1), 1);
    EXPECT_EQ(ws.DevPearson(2), -2);
    EXPECT_NEAR(ws.LocalM(1), 0.8550196364002437 - 2 * 0.5185956241330958, 1e-14);
    EXPECT_NEAR(ws.LocalM(2), 0.5185956241330958 - 2 * 0.8550196364002437, 1e-14);
    for (const auto* values :
         {&ws.LocalMSorted, &ws.MapDrawM, &ws.MapClassM, &ws.DisplayClassValues, &ws.DisplayDrawValues})
        EXPECT_EQ(*values, ws.LocalM);
}

TEST(MaxLocalM, IsTheLargestInASignedComparison) {
    ws = Workspace{};
    ws.LocalMSorted.ReDim(4);
    const double values[] = {0.5, -9, 2, 2};
    std::copy(std::begin(values), std::end(values), ws.LocalMSorted.data() + 1);
    EXPECT_EQ(MaxLocalM(), 2);
    EXPECT_EQ(ws.LocalMSorted(1), -9);
    EXPECT_EQ(MaxLocalM(), 2); // a second call is harmless

    ws.LocalMSorted.ReDim(2);
    ws.LocalMSorted(1) = -3;
    ws.LocalMSorted(2) = -1.5;
    EXPECT_EQ(MaxLocalM(), -1.5); // element 0 is none of the values
}

TEST(MCritical, IsTheWorkedExample) {
    ScriptedPlatform silent;
    ws = Workspace{};
    ws.NumRegion = 100;
    ws.CurrentSigma = 1;
    ws.AlphaLevel = 0.05;
    EXPECT_EQ(MCritical(), 3.1565); // x = 0.00362, y = 9.9634616
}

TEST(MCritical, HasFourDecimals) {
    ScriptedPlatform silent;
    ws = Workspace{};
    ws.NumRegion = 207;
    ws.AlphaLevel = 0.01;
    for (const double sigma : {0.00000001, 0.5, 2.0}) {
        ws.CurrentSigma = sigma;
        const double x = (sigma * sigma * 0.81 + 1) * 0.04 / 207;
        const double exact = std::sqrt(-std::sqrt(3.14159265) * std::log(x));
        EXPECT_EQ(MCritical(), std::round(exact * 10000) / 10000) << sigma;
    }
}

TEST(MCritical, ShowsItsMessageAtEachCallAndIsZero) {
    ScriptedPlatform platform;
    ws = Workspace{};
    ws.NumRegion = 10;
    ws.CurrentSigma = 20; // x = 325 * 0.2 / 10
    ws.AlphaLevel = 0.05;
    platform.ExpectMessage("Error!");
    EXPECT_EQ(MCritical(), 0);
    platform.ExpectMessage("Error!");
    EXPECT_EQ(MCritical(), 0);
    EXPECT_FALSE(MCriticalValue()); // without the message

    ws.AlphaLevel = 0; // x = 0
    platform.ExpectMessage("Error!");
    EXPECT_EQ(MCritical(), 0);

    ws.AlphaLevel = 0.25; // x = 1 to the last bit: y = 0
    ws.NumRegion = 1;
    ws.CurrentSigma = 0.00000001;
    platform.ExpectMessage("Error!");
    EXPECT_EQ(MCritical(), 0);
}
