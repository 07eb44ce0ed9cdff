#include "support/ForcedMachine.h"

#include "core/numeric/DenseProduct.h"
#include "core/numeric/InstructionSet.h"
#include "core/numeric/RowWorkers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace vastrel {

namespace {

std::string FromEnvironment(const char* name, const char* otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : text;
}

void Force(const Machine& machine) {
    ForceInstructionSet(machine.InstructionSet);
    ForceWorkers(machine.Workers);
}

/// The machine of the whole test run: the environment of the test program may name it, so that all tests can
/// be run on one instruction set after the other. Empty and 0 leave the choice to the program.
Machine MachineOfTheRun() {
    return {FromEnvironment("TEST_INSTRUCTION_SET", ""),
            std::atoi(FromEnvironment("TEST_WORKERS", "0").c_str())};
}

class WholeRun : public testing::Environment {
    void SetUp() override {
        const Machine machine = MachineOfTheRun();
        const auto offered = OfferedInstructionSets();
        if (!machine.InstructionSet.empty() &&
            std::find(offered.begin(), offered.end(), machine.InstructionSet) == offered.end())
            GTEST_SKIP() << "This processor has no " << machine.InstructionSet << ".";
        Force(machine);
    }
};

const auto* const wholeRun = testing::AddGlobalTestEnvironment(new WholeRun);

} // namespace

std::ostream& operator<<(std::ostream& stream, const Machine& machine) {
    if (machine.Workers == 0) return stream << "as it is";
    return stream << machine.InstructionSet << ", " << machine.Workers << " workers";
}

std::vector<Machine> Machines() {
    std::vector<Machine> machines{{"", 0}};
    for (const auto& set : OfferedInstructionSets())
        for (const int workers : {1, 2, 3})
            machines.push_back({set, workers});
    machines.push_back({OfferedInstructionSets().front(), 7}); // more than most machines have
    return machines;
}

ForcedMachine::ForcedMachine(const Machine& machine) {
    Force(machine);
}

ForcedMachine::~ForcedMachine() {
    Force(MachineOfTheRun());
}

void OnEveryMachine(const std::function<void()>& body, const std::vector<Machine>& machines) {
    for (const auto& machine : machines) {
        SCOPED_TRACE(machine);
        const ForcedMachine forced(machine);
        body();
    }
}

} // namespace vastrel
