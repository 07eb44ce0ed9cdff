#pragma once

#include "support/BatchProgram.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace vastrel {

/// The variables, as the options of the screens and in the words of the batch program.
inline constexpr std::pair<const char*, const char*> RetroVariables[] = {{"optUnadjusted", "unadjusted"},
                                                                         {"optAdjusted_Generic", "adjusted"},
                                                                         {"optStandard", "freeman-tukey"},
                                                                         {"optRossi", "rossi"}};

/// What the batch program writes of a test: the rows of both lists and the report. Both programs do the same
/// work on the same core, so that the screen has the same rows and writes the same bytes.
struct RetroBatch {
    std::string Lists, Report;
};

/// Runs the batch program; the words name the dataset, then the test.
inline RetroBatch RunRetroBatch(const std::vector<std::string>& dataset,
                                const std::vector<std::string>& test) {
    const TemporaryFolder folder;
    std::vector<std::string> words{"--quiet"};
    words.insert(words.end(), dataset.begin(), dataset.end());
    words.insert(words.end(), test.begin(), test.end());
    words.insert(words.end(), {"--lists", folder / "lists", "--report", folder / "report"});
    const BatchResult batch = RunBatch(words);
    EXPECT_EQ(batch.Status, 0) << batch;
    if (batch.Status != 0) return {};
    return {ReadFile(folder / "lists"), ReadFile(folder / "report")};
}

/// The rows of both lists of a screen, as the batch program writes them.
inline std::string JoinedLists(const std::vector<std::string>& global,
                               const std::vector<std::string>& local) {
    std::string text;
    for (const auto& row : global)
        text += row + "\n";
    text += "\n";
    for (const auto& row : local)
        text += row + "\n";
    return text;
}

} // namespace vastrel
