#include "core/retrospective/RetroProcedures.h"

#include "core/workspace/Workspace.h"
#include "support/RetroData.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

void TakeThree() {
    TakeRetroRegions({{0, 0, 9, 4}, {1, 0, 3, 6}, {0, 1, 5, 7}}, 3);
    ws.CurrentSigma = 1;
}

} // namespace

TEST(RetroVariable, TellsScoreFromM) {
    EXPECT_TRUE(MapsScore(RetroVariable::Unadjusted));
    EXPECT_TRUE(MapsScore(RetroVariable::AdjustedPoisson));
    EXPECT_FALSE(MapsScore(RetroVariable::FreemanTukey));
    EXPECT_FALSE(MapsScore(RetroVariable::Rossi));
    EXPECT_FALSE(HasM(RetroVariable::Unadjusted));
    EXPECT_TRUE(HasM(RetroVariable::AdjustedPoisson));
}

TEST(RetroVariable, RunsOnlyTheProceduresOfItsOwn) {
    TakeThree();
    RunSingleProcedures(RetroVariable::Unadjusted);
    EXPECT_TRUE(ws.LocalU.IsAllocated());
    EXPECT_FALSE(ws.LocalUAdjusted.IsAllocated());
    EXPECT_FALSE(ws.WeightM.IsAllocated());
    EXPECT_NE(ws.ScoreChi, 0);

    TakeThree();
    RunSingleProcedures(RetroVariable::Rossi);
    EXPECT_FALSE(ws.WeightUnadjusted.IsAllocated());
    EXPECT_EQ(ws.DevRossi(1), 2.25); // (9 - 12 + 2 * 6) / 4
    EXPECT_FALSE(ws.DevFreemanTukey.IsAllocated());

    TakeThree();
    RunSingleProcedures(RetroVariable::FreemanTukey);
    EXPECT_TRUE(ws.DevFreemanTukey.IsAllocated());
    EXPECT_FALSE(ws.DevRossi.IsAllocated());
}

TEST(RetroVariable, EndsAdjustedWithOtherMapValuesInASingleRunThanInASweep) {
    TakeThree();
    RunSingleProcedures(RetroVariable::AdjustedPoisson);
    EXPECT_EQ(ws.DisplayDrawValues, ws.LocalM);
    EXPECT_EQ(ws.DisplayClassValues, ws.LocalM);
    const auto u = ws.LocalUAdjusted;
    const auto m = ws.LocalM;
    EXPECT_NE(u, m);

    TakeThree();
    RunSweepProcedures(RetroVariable::AdjustedPoisson);
    EXPECT_EQ(ws.DisplayDrawValues, u);
    EXPECT_EQ(ws.DisplayClassValues, u);
    EXPECT_EQ(ws.LocalM, m);
    EXPECT_EQ(ws.DevPearson(1), 2.5);
}

TEST(RetroVariable, HoldsNoTableOfWeightsAfterARun) {
    for (const auto variable : {RetroVariable::Unadjusted, RetroVariable::AdjustedPoisson,
                                RetroVariable::FreemanTukey, RetroVariable::Rossi}) {
        TakeThree();
        RunSingleProcedures(variable);
        EXPECT_FALSE(ws.WeightM.IsAllocated());
        for (const auto* table :
             {&ws.WeightUnadjusted, &ws.WeightAdjusted, &ws.ScoreGramPlain, &ws.ScoreGramAdjusted})
            EXPECT_FALSE(table->IsAllocated());
    }
}

TEST(RetroVariable, RunsTheOthersAlikeInASweep) {
    TakeThree();
    RunSingleProcedures(RetroVariable::Unadjusted);
    const auto u = ws.LocalU;
    TakeThree();
    RunSweepProcedures(RetroVariable::Unadjusted);
    EXPECT_EQ(ws.LocalU, u);
}
