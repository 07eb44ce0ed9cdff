#pragma once

#include "core/retrospective/RetroVariable.h"

#include <string>
#include <utility>
#include <vector>

namespace vastrel {

/// One Region of a test's dataset.
struct RetroRegion {
    double X = 0, Y = 0;
    double Obs = 0, Exp = 0;
};

/// Puts a polygon dataset of these Regions into a fresh store: ids "1", "2", ..., a study area, the shares of
/// the expected counts, alpha 0.05.
void TakeRetroRegions(const std::vector<RetroRegion>& regions, double area);

/// Loads the golden point dataset of five Regions into a fresh store, plotted as on the point screen.
void TakeFivePoints();

/// The variables as the golden files name them.
inline constexpr std::pair<const char*, RetroVariable> GoldenVariables[] = {
    {"unadjusted", RetroVariable::Unadjusted},
    {"adjusted", RetroVariable::AdjustedPoisson},
    {"freeman-tukey", RetroVariable::FreemanTukey},
    {"rossi", RetroVariable::Rossi}};

/// The golden file of that dataset, say GoldenFive("rossi", "range", "lists").
std::string GoldenFive(const std::string& variable, const std::string& kind, const std::string& what);

} // namespace vastrel
