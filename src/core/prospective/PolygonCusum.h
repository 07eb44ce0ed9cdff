#pragma once

#include "core/prospective/CusumEngine.h"

#include <string>

namespace vastrel {

/// The results of a run on polygons, in the store.
CusumOutputs PolygonOutputs();

/// The run on the polygons of the store: weights from RegionCentroid and TotalShapeArea, filter, recursion,
/// with KValue and CurrentSigma. `z` holds RunPeriodCount columns for NumRegion Regions and holds the
/// filtered z-scores afterwards. A continued run goes on from PreviousCusum; its results cover the new
/// periods alone. FIR is not served: nothing happens.
///
/// Run-time errors: those of the engine; 9 where no saved table was read. The results stand at zero, or
/// empty, after an error.
void RunPolygonCusum(Table<double>& z, StartOption start, const Array1<std::string>& labels);

/// PreviousMaxCusum: the largest value of each saved period over NumRegion rows.
void findMaxPreviousCusum();

/// The label of a Region of which the names of the id columns and their values in its record are known: the
/// primary id, and behind it the secondary one in parentheses with a trailing blank. Without a primary column
/// the label is empty, whatever the other is.
std::string CusumLabel(const std::string& primaryField, const std::string& primary,
                       const std::string& secondaryField, const std::string& secondary);

} // namespace vastrel
