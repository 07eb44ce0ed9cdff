#pragma once

#include <string>
#include <vector>

namespace vastrel {

/// The rows of the info window for a Region, counted from 0: name and value of each column of its row in the
/// attribute table, which stays on that row. Empty for a Region at or past the row count. A null is 16
/// blanks. Run-time error 91 where no table was ever opened.
std::vector<std::string> InfoListRows(long region);

} // namespace vastrel
