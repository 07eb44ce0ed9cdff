#pragma once

#include "core/layer/ResultTable.h"

#include <string>

namespace vastrel {

/// The number of columns that a dBASE table holds.
constexpr std::ptrdiff_t DbaseColumnLimit = 255;

/// The bytes of a dBASE table, and how many texts were longer than its longest field, 254 bytes, and are cut
/// there at the end of a character.
struct DbaseBytes {
    std::string Table;
    std::ptrdiff_t CutTexts = 0;
};

/// The rows as a dBASE table in UTF-8. Numbers stand in fields of type F, 24 places wide, with as many digits
/// as read back to the same 64-bit value; whole numbers in fields of type N. Run-time error 9 for more than
/// 255 columns, 6 for more rows than the format counts.
DbaseBytes DbaseTableBytes(const ResultTable& table);

} // namespace vastrel
