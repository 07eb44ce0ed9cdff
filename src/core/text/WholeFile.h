#pragma once

#include <cstdint>
#include <istream>
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

/// The rest of a stream, of which errors tell the name. Run-time error 75 where reading breaks off, 7 for
/// more than `limit` bytes.
std::string ReadToEnd(std::istream& stream, const std::string& name, std::uint64_t limit);

/// The limit of an input that has no size beforehand, in bytes.
std::uint64_t LargestPipe();

} // namespace vastrel
