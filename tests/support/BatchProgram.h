#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace vastrel {

/// How a call of the batch program ended.
struct BatchResult {
    int Status = 0;
    std::string Output;
    std::string Errors;
    bool operator==(const BatchResult&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const BatchResult& result);

/// Runs the built batch program with these words and waits for its end.
BatchResult RunBatch(const std::vector<std::string>& words);

} // namespace vastrel
