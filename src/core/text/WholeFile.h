#pragma once

#include <cstdint>
#include <string>

namespace vastrel {

/// The bytes of a file, from one opening and one reading. What happens to the file later is not seen. A pipe
/// and a device are read to their end as well; a pipe without a writer is waited for.
///
/// Run-time error 53 where there is none, 75 for a directory and where reading breaks off, 70 where reading
/// is not permitted, 7 for more than `limit` bytes.
std::string ReadWholeFile(const std::string& path, std::uint64_t limit);

/// The same with the limit of an input: half of the memory that is free, and no more than 4 GB of what has no
/// size beforehand, so that an endless input ends.
std::string ReadWholeFile(const std::string& path);

} // namespace vastrel
