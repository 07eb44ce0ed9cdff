#pragma once

#include "core/layer/ResultTable.h"

#include <string>

namespace vastrel {

/// The rows as comma-separated values: a header, then a line a row, each ended with LF. A text with a comma,
/// a quote or a line end stands between quotes, and a quote in it twice. Numbers read back to the same 64-bit
/// value.
std::string CsvText(const ResultTable& table);

} // namespace vastrel
