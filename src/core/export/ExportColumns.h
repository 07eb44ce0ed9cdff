#pragma once

#include <string>

namespace vastrel {

/// The four lists of columns, in the order in which they are chosen.
enum class ExportList { ObsFrom, ObsTo, ExpFrom, ExpTo };

/// Takes the column with this number (from 0) as the choice in a list and checks every row of it, then the
/// range that it ends. False after a message; the number is taken all the same, and the list has to be
/// emptied. The check leaves the attribute table on its first row, or on the row that is refused.
bool TakeExportColumn(ExportList list, int column);

/// Takes the text of the bandwidth; false after the message for one that is not numeric. A negative bandwidth
/// is accepted: it turns the signs of all weights.
bool TakeExportSigma(const std::string& text);

} // namespace vastrel
