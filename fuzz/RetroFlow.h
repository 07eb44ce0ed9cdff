#pragma once

#include "InputParts.h"
#include "core/retrospective/Bandwidth.h"
#include "core/retrospective/RetroRules.h"
#include "core/retrospective/RetroVariable.h"
#include "core/workspace/Arrays.h"

#include <functional>

namespace vastrel {

/// More Regions, or more steps of a range, would only make an input slow.
constexpr std::ptrdiff_t MostRegions = 12, MostSteps = 5;

/// What is chosen on the screen of a retrospective test: the head of an input, two bytes and four lines.
struct RetroChoice {
    explicit RetroChoice(InputParts& parts);

    RetroVariable Variable;
    double Alpha;
    std::string Sigma;
    SweepTexts Range;
};

/// Draws the local values by the legend in force.
using DrawValues = std::function<void(const Array1<double>& values)>;

/// The tests of one bandwidth and of a range on the dataset of the store, up to lists, report, map and layer.
void RunOneBandwidth(const RetroChoice& choice, const RetroRules& rules, const DrawValues& draw);
void RunRange(const RetroChoice& choice, const RetroRules& rules, const DrawValues& draw);

} // namespace vastrel
