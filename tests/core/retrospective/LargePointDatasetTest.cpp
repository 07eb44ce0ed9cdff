#include "core/retrospective/PointDataset.h"

#include "core/retrospective/Weights.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/PeakMemory.h"
#include "support/RaisedError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(LargePointDataset, LoadsMoreRegionsThanTheTestsTake) {
    std::string bytes;
    for (int i = 1; i <= 40000; ++i)
        bytes += std::to_string(i) + "," + std::to_string(i % 200) + "," + std::to_string(i / 200) + ",1,1\n";
    ws = Workspace{};
    const TemporaryFolder folder;
    ASSERT_TRUE(LoadPointDataset(folder.Write("points.txt", bytes), PointFormat::ObsExp));
    EXPECT_EQ(ws.NumTextRegion, 40000);
    EXPECT_EQ(ws.RegionCentroid(40000), (RegionPoint{"40000", 0, 200}));
    ws.bTextfileData = true;
    ws.CurrentSigma = 1;
    const auto before = PeakMemory(); // a single matrix would be 12.8 GB
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), Overflow);
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    EXPECT_LT(PeakMemory() - before, HundredMegabytes);
    EXPECT_FALSE(ws.WeightUnadjusted.IsAllocated());
    EXPECT_FALSE(ws.WeightM.IsAllocated());
}

TEST(LargePointDataset, TakesBoundedMemoryForALineOfCommas) {
    const TemporaryFolder folder;
    const std::string commas(TextFile::LongestLine, ',');
    const std::string first = folder.Write("first.txt", commas);
    const std::string later = folder.Write("later.txt", "A,1,2,3,4\n" + commas + "\n");
    ws = Workspace{};
    const auto memory = PeakMemory();
    EXPECT_FALSE(LoadPointDataset(first, PointFormat::ObsExp));
    EXPECT_EQ(ErrorNumberOf([&] { LoadPointDataset(later, PointFormat::ObsExp); }), TypeMismatch);
    EXPECT_LT(PeakMemory() - memory, WithinLimit(HundredMegabytes));
}
