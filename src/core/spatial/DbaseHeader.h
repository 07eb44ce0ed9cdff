#pragma once

#include "core/spatial/BinaryFile.h"

namespace vastrel {

/// The sizes that the header of a dBASE table tells: 32 bytes, then 32 bytes a column, then a terminator.
struct DbaseHeader {
    std::int64_t RowCount = 0;
    int HeaderLength = 0;
    int RowLength = 0; // with the byte that marks a deleted row
    int LanguageByte = 0;
};

/// Reads the header and holds it against the columns and the size of the file, before anything relies on it:
/// run-time error 62 for a file that is cut off, 13 for a header that contradicts itself. A header whose
/// terminator is missing is accepted where the columns fill a row exactly.
DbaseHeader CheckedDbaseHeader(BinaryFile& file);

} // namespace vastrel
