#include "support/BatchProgram.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace vastrel;

namespace {

using Words = std::vector<std::string>;

/// A watch of four points: with k = 0.5 the cusums are A 0.5 1 5.5, B 5.5 11 8.5, and 0 for the others.
class SignalStatus : public testing::Test {
protected:
    SignalStatus() {
        folder_.Write("ids.txt", "A,0,0\nB,10,0\nC,10,10\nD,0,10\n");
        folder_.Write("z.txt", "1,1,5\n6,6,-2\n0,0,0\n0,0,0\n");
    }

    BatchResult Watch(const Words& more) const {
        Words words{"prospective-points", "--ids",   folder_ / "ids.txt", "--z",
                    folder_ / "z.txt",    "--lists", "/dev/null"};
        words.insert(words.end(), more.begin(), more.end());
        return RunBatch(words);
    }

    TemporaryFolder folder_;
};

} // namespace

TEST_F(SignalStatus, IsThatOfTheLastPeriod) {
    EXPECT_EQ(Watch({"--h", "8.4", "--signal-status", "10"}), (BatchResult{10, "", ""}));
    EXPECT_EQ(Watch({"--h", "8.4", "--signal-status", "99"}).Status, 99);
    EXPECT_EQ(Watch({"--h", "8.5", "--signal-status", "10"}), (BatchResult{0, "", ""})); // equal is no signal
    EXPECT_EQ(Watch({"--h", "10", "--signal-status", "10"}).Status, 0); // B signalled in period 2
    EXPECT_EQ(Watch({"--h", "1"}).Status, 0);
}

TEST_F(SignalStatus, ComesWithTheFilesWritten) {
    const auto json = folder_ / "out.json";
    EXPECT_EQ(Watch({"--h", "1", "--signal-status", "42", "--json", json}).Status, 42);
    EXPECT_EQ(nlohmann::json::parse(ReadFile(json))["Settings"]["signal-status"], "42");
    EXPECT_EQ(RunBatch({"again", json}).Status, 42);
    EXPECT_EQ(Watch({"--h", "1", "--signal-status", "42", "--json", "/dev/full"}).Status, 4);
    EXPECT_EQ(Watch({"--h", "x", "--signal-status", "42"}).Status, 3);
}

TEST_F(SignalStatus, LiesBetween10And99) {
    for (const std::string status : {"9", "100", "0", "-10", "x", ""})
        EXPECT_EQ(Watch({"--signal-status", status}).Status, 2) << status;
}
