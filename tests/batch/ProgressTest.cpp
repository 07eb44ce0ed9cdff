#include "support/BatchProgram.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using Words = std::vector<std::string>;

const Words Sweep{"retrospective-points",
                  InProject("samples/country_exp.txt"),
                  "--format",
                  "obs-exp",
                  "--lists",
                  "/dev/null"};

Words With(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

} // namespace

TEST(Progress, TellsStepAndTimeLeftOnATerminal) {
    const auto shown = ShownOnTerminal(Sweep);
    EXPECT_EQ(shown.rfind("Step 1 of 10, 1 s left", 0), 0u) << shown; // guessed: well below a second
    const std::string gone = "\r\033[K";
    ASSERT_GE(shown.size(), gone.size());
    EXPECT_EQ(shown.substr(shown.size() - gone.size()), gone);
    EXPECT_EQ(shown.find('\n'), std::string::npos) << "one line, whatever the steps";
    EXPECT_EQ(ShownOnTerminal(With(Sweep, {"--sigma", "1"})).rfind("Step 1 of 1, 1 s left", 0), 0u);
}

TEST(Progress, IsSilencedByQuiet) {
    EXPECT_EQ(ShownOnTerminal(With(Sweep, {"--quiet"})), "");
}

TEST(Progress, SaysNothingWithoutATerminal) {
    EXPECT_EQ(RunBatchWithNotes(Sweep), (BatchResult{0, "", ""}));
}
