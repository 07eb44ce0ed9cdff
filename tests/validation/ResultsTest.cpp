#include "validation/Results.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;
using namespace vastrel::validation;

TEST(Results, GoOnWhereAnEarlierStartEnded) {
    const TemporaryFolder folder;
    const std::string path = folder / "results";
    {
        Results results(path);
        EXPECT_EQ(results.ReplicationsOf("b"), 0);
        results.Add("counts.csv", "what,hits", {"x", "1"});
        results.Finish("b", 1000);
        results.Add("counts.csv", "what,hits", {"y", "2"});
        results.Finish("a", 1000);
    }
    Results results(path);
    EXPECT_EQ(results.ReplicationsOf("b"), 1000);
    results.Add("counts.csv", "what,hits", {"x", "15"});
    results.Add("counts.csv", "what,hits", {"z", "16"});
    results.Finish("b", 10000);
    EXPECT_EQ(ReadFile(path + "/counts.csv"), "cell,what,hits\na,y,2\nb,x,15\nb,z,16\n");
    EXPECT_EQ(ReadFile(path + "/cells.csv"), "cell,replications\na,1000\nb,10000\n");
}
