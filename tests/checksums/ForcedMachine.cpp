// Linked with the sources of the batch program, this makes it take the instruction set and the number of
// workers that the environment names, for the checksums of every machine. Status 77 where the processor lacks
// the set.
#include "core/numeric/InstructionSet.h"
#include "core/numeric/RowWorkers.h"
#include "core/platform/RunTimeError.h"

#include <cstdlib>

namespace {

const bool forced = [] {
    constexpr int skipped = 77;
    try {
        vastrel::ForceInstructionSet(std::getenv("TEST_INSTRUCTION_SET"));
        vastrel::ForceWorkers(std::atoi(std::getenv("TEST_WORKERS")));
    } catch (const vastrel::RunTimeError&) {
        std::_Exit(skipped);
    }
    return true;
}();

} // namespace
