#pragma once

#include "core/export/ExportArithmetic.h"

#include <string>
#include <vector>

namespace vastrel {

constexpr const char* ExportFilter = "Text File (*.txt)|*.txt";
constexpr const char* ExportNotSelected = "Data was not properly selected";

/// What the export puts in the place of sigma 0: every weight between two Regions vanishes, and z equals the
/// deviation.
constexpr double ExportSigmaForZero = 1e-9;

/// ExportWeights from RegionCentroid, TotalShapeArea, NumRegion and ExportSigma: GaussianWeights.
/// An ExportSigma of 0 becomes ExportSigmaForZero for good. Run-time errors: 7 where the weights would not
/// fit in memory, and the arithmetic faults, after which they stand at zero.
void BuildExportWeights();

/// ExportDeviation and ExportZ from ExportObs, ExportExp and ExportWeights. Run-time errors: 11 an expected
/// count of 0 (not for Standard), and the other arithmetic faults; both stand at zero then.
void ComputeExportZ(ExportOption option);

/// Fills ExportTable: the smoothed deviations of all periods, from the columns at the four indices of the
/// store. False where no option is chosen; nothing is told, and the table stands empty.
///
/// Run-time errors: those of the steps; 9 where the range of observed columns was turned round after its
/// check by more than one column; 3265 a column that does not exist; 94 a null and 13 a text in a column
/// between the checked ones; 3021 fewer rows than Regions. The table keeps the periods before the fault.
bool ComputeExport(ExportOption option);

/// The table as the lines of a file: a Region each, its values in "0.0000" joined by commas.
std::vector<std::string> ExportLines();

} // namespace vastrel
