#pragma once

#include <string>
#include <vector>

namespace vastrel {

/// The vector instructions that the kernels know on this architecture, the widest first; Baseline is what
/// every processor of the architecture has.
enum class InstructionSet {
#if defined(__x86_64__)
    Avx512,
    Avx2,
#endif
    Baseline
};

/// The set that the kernels take: the widest that this processor has, or the forced one.
InstructionSet ChosenInstructionSet();

/// The names of the sets that this processor has, the widest first.
std::vector<std::string> OfferedInstructionSets();

/// Makes the kernels take an instruction set by its name; an empty name gives the choice back. Run-time error
/// 5 for a set that this processor lacks. For tests and benchmarks; the number of threads is forced by
/// ForceWorkers.
void ForceInstructionSet(const std::string& name);

} // namespace vastrel
