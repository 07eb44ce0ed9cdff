#pragma once

#include <ostream>
#include <string>
#include <string_view>
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

/// What the program notes where coordinates look like degrees, as the small ones of tests do.
constexpr std::string_view DegreesNote =
    "Note: the coordinates look like degrees. Distances are computed in the plane: project the data first.\n";

/// Runs the built batch program with these words and waits for its end. The note on degrees is left out, so
/// that tests of other things need not tell it.
BatchResult RunBatch(const std::vector<std::string>& words);

/// The same with all that it says.
BatchResult RunBatchWithNotes(const std::vector<std::string>& words);

/// What the program shows on a terminal, output and errors as they come.
std::string ShownOnTerminal(const std::vector<std::string>& words);

} // namespace vastrel
