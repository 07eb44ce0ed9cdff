#pragma once

#include "InputParts.h"
#include "core/layer/WatchLayer.h"
#include "core/prospective/CusumParameters.h"

#include <functional>

namespace vastrel {

/// More Regions, or more periods, would only make an input slow.
constexpr std::ptrdiff_t MostWatched = 12;

/// The parameter boxes of a prospective screen: three lines of an input.
CusumTexts TakeTexts(InputParts& parts);

/// Takes the parameters into the store; false where they are refused.
bool TakeParameters(const CusumTexts& texts);

/// What becomes of the results of a run: chart, rows, report, cusum file, maps, tables and layer.
void ShowResults(const CusumOutputs& run, const WatchRegions& regions,
                 const std::function<void(std::ptrdiff_t period)>& draw,
                 const std::function<Layer(ResultTable rows)>& layerOf);

} // namespace vastrel
