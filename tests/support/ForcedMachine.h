#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace vastrel {

/// A machine that the dense product can be made to take this one for; the empty name and 0 workers are the
/// machine as it is.
struct Machine {
    std::string InstructionSet;
    int Workers = 1;
};

std::ostream& operator<<(std::ostream& stream, const Machine& machine);

/// This machine as it is, every instruction set that it has with 1, 2 and 3 workers, and the widest with 7.
std::vector<Machine> Machines();

/// Forces a machine for as long as it lives; what was forced for the whole test run comes back.
class ForcedMachine {
public:
    explicit ForcedMachine(const Machine& machine);
    ~ForcedMachine();
    ForcedMachine(const ForcedMachine&) = delete;
    ForcedMachine& operator=(const ForcedMachine&) = delete;
};

/// Runs a test's body with each of the machines forced; what fails is told with the machine.
void OnEveryMachine(const std::function<void()>& body, const std::vector<Machine>& machines = Machines());

} // namespace vastrel
