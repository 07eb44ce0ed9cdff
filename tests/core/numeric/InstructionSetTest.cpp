#include "core/numeric/InstructionSet.h"

#include "core/numeric/RowWorkers.h"
#include "core/platform/RunTimeError.h"
#include "support/ForcedMachine.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <set>

using namespace vastrel;

TEST(InstructionSet, IsForcedByItsName) {
    const ForcedMachine restored({"", 0}); // what the whole run is forced to comes back
    EXPECT_EQ(OfferedInstructionSets().back(), "baseline");
    const InstructionSet widest = ChosenInstructionSet();
    ForceInstructionSet("baseline");
    EXPECT_EQ(ChosenInstructionSet(), InstructionSet::Baseline);
    EXPECT_EQ(ErrorNumberOf([] { ForceInstructionSet("abacus"); }), InvalidProcedureCall);
    EXPECT_EQ(ChosenInstructionSet(), InstructionSet::Baseline); // a refusal leaves the choice
    ForceInstructionSet(OfferedInstructionSets().front());
    EXPECT_EQ(ChosenInstructionSet(), widest);
    ForceInstructionSet("");
    EXPECT_EQ(ChosenInstructionSet(), widest);
}

TEST(InstructionSet, EveryOneHasItsTurnWhereATestRunsOnEveryMachine) {
    std::set<InstructionSet> sets;
    std::set<int> workers;
    OnEveryMachine([&] {
        sets.insert(ChosenInstructionSet());
        workers.insert(WorkersFor(1000));
    });
    EXPECT_EQ(sets.size(), OfferedInstructionSets().size());
    EXPECT_EQ(workers, (std::set<int>{1, 2, 3, 7}));
}
