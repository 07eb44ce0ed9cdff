#include "core/numeric/InstructionSet.h"

#include "core/platform/RunTimeError.h"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace vastrel {

namespace {

struct KnownSet {
    InstructionSet Set;
    const char* Name;
    bool (*IsOffered)();
};

/// In the order of the enumeration.
constexpr KnownSet KnownSets[] = {
#if defined(__x86_64__)
    {InstructionSet::Avx512, "avx512", [] { return static_cast<bool>(__builtin_cpu_supports("avx512f")); }},
    {InstructionSet::Avx2, "avx2",
     [] {
         return static_cast<bool>(__builtin_cpu_supports("avx2")) &&
                static_cast<bool>(__builtin_cpu_supports("fma"));
     }},
#endif
    {InstructionSet::Baseline, "baseline", [] { return true; }},
};

std::atomic<const KnownSet*> forcedSet = nullptr;

} // namespace

InstructionSet ChosenInstructionSet() {
    if (const KnownSet* forced = forcedSet) return forced->Set;
    return std::find_if(std::begin(KnownSets), std::end(KnownSets),
                        [](const KnownSet& known) { return known.IsOffered(); })
        ->Set;
}

std::vector<std::string> OfferedInstructionSets() {
    std::vector<std::string> names;
    for (const KnownSet& known : KnownSets)
        if (known.IsOffered()) names.emplace_back(known.Name);
    return names;
}

void ForceInstructionSet(const std::string& name) {
    if (name.empty()) {
        forcedSet = nullptr;
        return;
    }
    for (const KnownSet& known : KnownSets) {
        if (name != known.Name || !known.IsOffered()) continue;
        forcedSet = &known;
        return;
    }
    RaiseCustomary(InvalidProcedureCall, "ForceInstructionSet", "This processor has no " + name + ".");
}

} // namespace vastrel
