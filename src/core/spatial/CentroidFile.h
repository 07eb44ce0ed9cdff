#pragma once

#include <string>

namespace vastrel {

constexpr const char* CentroidFilter = "Text File (*.txt)|*.txt";

/// The centroids of the store as the text of a centroid file: a header, then a line a Region with its index,
/// X and Y, joined by commas. Every line ends with CR LF. The widths of header and data differ; meant so.
/// Run-time error 6 for more than 32767 Regions.
std::string CentroidFileText();

/// The command: computes areas and centroids anew, asks for a file and writes it. A cancel or an empty path
/// ends it without a message and without a file.
void mnuGetCentroid();

} // namespace vastrel
