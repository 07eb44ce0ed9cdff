#include "retrospective/RetroVariable.h"

#include "retrospective/MStatistic.h"
#include "retrospective/ScoreStatistic.h"
#include "retrospective/Weights.h"

namespace vastrel {

namespace {

void RunUnadjusted() {
    BuildScoreWeights();
    LocalScoreUnadjusted();
    ScoreMomentsPlain();
    FinishScoreUnadjusted();
}

void RunAdjustedScore() {
    BuildScoreWeights();
    LocalScoreAdjusted();
    ScoreMomentsAdjusted();
    FinishScoreAdjusted();
}

void RunM(void (*transform)()) {
    BuildMWeights();
    transform();
}

} // namespace

void RunSingleProcedures(RetroVariable variable) {
    switch (variable) {
    case RetroVariable::Unadjusted:
        return RunUnadjusted();
    case RetroVariable::AdjustedPoisson:
        RunAdjustedScore();
        return RunM(MTransformPearson);
    case RetroVariable::FreemanTukey:
        return RunM(MTransformFreemanTukey);
    case RetroVariable::Rossi:
        return RunM(MTransformRossi);
    }
}

void RunSweepProcedures(RetroVariable variable) {
    if (variable != RetroVariable::AdjustedPoisson) return RunSingleProcedures(variable);
    RunM(MTransformPearson);
    RunAdjustedScore();
}

} // namespace vastrel
