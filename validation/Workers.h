#pragma once

#include <functional>

namespace vastrel::validation {

/// How many threads a study uses.
void UseWorkers(int workers);

/// Runs part(0) .. part(count - 1), each once, over the threads, and joins them. The procedures inside use
/// one thread each meanwhile. The first exception of a part is thrown again.
void RunParts(long count, const std::function<void(long)>& part);

} // namespace vastrel::validation
