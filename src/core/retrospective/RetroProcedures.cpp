#include "core/retrospective/RetroProcedures.h"

#include "core/retrospective/MStatistic.h"
#include "core/retrospective/ScoreStatistic.h"
#include "core/retrospective/Weights.h"
#include "core/workspace/Workspace.h"

#include <initializer_list>

namespace vastrel {

namespace {

using WeightTable = Table<double> Workspace::*;

/// Gives back tables that nothing reads any more, so that a run never holds more than five of them.
void Release(std::initializer_list<WeightTable> tables) {
    for (const auto table : tables)
        (ws.*table).Clear();
}

void RunUnadjusted() {
    BuildScoreWeights();
    LocalScoreUnadjusted();
    Release({&Workspace::WeightUnadjusted, &Workspace::WeightAdjusted, &Workspace::ScoreGramAdjusted});
    ScoreMomentsPlain();
    Release({&Workspace::ScoreGramPlain});
    FinishScoreUnadjusted();
}

void RunAdjustedScore() {
    BuildScoreWeights();
    LocalScoreAdjusted();
    Release({&Workspace::WeightUnadjusted, &Workspace::WeightAdjusted, &Workspace::ScoreGramPlain});
    ScoreMomentsAdjusted();
    Release({&Workspace::ScoreGramAdjusted});
    FinishScoreAdjusted();
}

void RunM(void (*transform)()) {
    BuildMWeights();
    transform();
    ws.WeightM.Clear();
}

} // namespace

void PrepareRun(RetroVariable variable) {
    ws.WeightM.Clear();
    Release({&Workspace::WeightUnadjusted, &Workspace::WeightAdjusted, &Workspace::ScoreGramPlain,
             &Workspace::ScoreGramAdjusted});
    TakePointCount();
    RequireMemoryForTables(TablesOfRun(MapsScore(variable)), 0);
}

namespace {

void RunProcedures(RetroVariable variable) {
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

} // namespace

void RunSingleProcedures(RetroVariable variable) {
    const TableMemoryScope scope;
    PrepareRun(variable);
    RunProcedures(variable);
}

void RunSweepProcedures(RetroVariable variable) {
    if (variable != RetroVariable::AdjustedPoisson) return RunProcedures(variable);
    RunM(MTransformPearson);
    RunAdjustedScore();
}

} // namespace vastrel
