#include "core/display/PointLegend.h"

#include "core/display/LegendClasses.h"
#include "support/Arrays.h"
#include "support/Golden.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// Limits -3 -2 0 0.5 1 in a range from -3 to 4.
void BuildScoreLegend() {
    ws = Workspace{};
    ws.NumRegion = 6;
    auto values = ArrayFrom1<double>({4, 1, 0.5, -1, -2, -3});
    BuildLegend(values, RetroVariable::Unadjusted);
}

std::string Printed(RetroVariable variable) {
    RecorderSurface surface(FramedSurface(2500, 2200));
    PrintPointLegend(surface, variable);
    return surface.Operations();
}

} // namespace

TEST(PointLegend, ShowsTheSymbolsWithTheirRanges) {
    BuildScoreLegend();
    EXPECT_EQ(Printed(RetroVariable::Unadjusted), Golden("PointLegendScore.txt"));
    EXPECT_EQ(Printed(RetroVariable::AdjustedPoisson), Golden("PointLegendScore.txt"));
}

TEST(PointLegend, LeavesTheTextsOfMToAPicture) {
    BuildScoreLegend();
    EXPECT_EQ(Printed(RetroVariable::FreemanTukey), Golden("PointLegendM.txt"));
    EXPECT_EQ(Printed(RetroVariable::Rossi), Golden("PointLegendM.txt"));
}

TEST(PointLegend, NeedsALegendThatWasBuilt) {
    ws = Workspace{};
    EXPECT_EQ(ErrorNumberOf([] { Printed(RetroVariable::Rossi); }), SubscriptOutOfRange);
}
