#pragma once

#include "core/text/RowLayout.h"

#include <string>

namespace vastrel {

/// The values that rows of lists and reports of the retrospective test are built of.
struct RowValues {
    std::string ID1, ID2;
    double Local = 0; // U(i) or M(i)
    double Z = 0;     // Z[U(i)]
    double Obs = 0, Exp = 0;
    double Sigma = 0;
    double Stat = 0; // global U, or the maximum M where no score is computed
    double Chi = 0, DF = 0, P = 0;
    double M = 0, MCritical = 0;
};

using RetroField = RowField<RowValues>;
using RetroFields = std::vector<RetroField>;
using RetroLayout = RowLayout<RowValues>;

/// The values by the names that a table of fields reads well with.
namespace RetroColumns {
constexpr auto ID1 = &RowValues::ID1, ID2 = &RowValues::ID2;
constexpr auto Local = &RowValues::Local, Z = &RowValues::Z, Obs = &RowValues::Obs, Exp = &RowValues::Exp;
constexpr auto Sigma = &RowValues::Sigma, Stat = &RowValues::Stat, Chi = &RowValues::Chi, DF = &RowValues::DF,
               P = &RowValues::P, M = &RowValues::M, MStar = &RowValues::MCritical;
} // namespace RetroColumns

} // namespace vastrel
