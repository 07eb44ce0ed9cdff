#include "core/display/PolygonLegend.h"

#include "core/display/LegendClasses.h"
#include "support/Arrays.h"
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
    RecorderSurface surface(FramedSurface(2500, 4000));
    PrintPolygonLegend(surface, variable);
    return surface.Operations();
}

/// By hand: in layout units the boxes stand at 100 to 300 across, from 800 to 1000 downwards and 300 further
/// each time, the texts at 400, 805 and so on; a fifteenth of that in pixels.
std::string Legend(const std::vector<std::string>& texts) {
    return "style solid\nfill 0xFF0000\nbox 6.667 53.333 20.000 66.667 0xFF0000\ntext 26.667 53.667 |" +
           texts[0] +
           "|\nstyle solid\nfill 0xFF8080\nbox 6.667 73.333 20.000 86.667 0xFF8080\ntext 26.667 73.667 |" +
           texts[1] +
           "|\nstyle solid\nfill 0xFFC0C0\nbox 6.667 93.333 20.000 106.667 0xFFC0C0\ntext 26.667 93.667 |" +
           texts[2] +
           "|\nstyle solid\nfill 0xC0C0FF\nbox 6.667 113.333 20.000 126.667 0xC0C0FF\ntext 26.667 113.667 |" +
           texts[3] +
           "|\nstyle solid\nfill 0x8080FF\nbox 6.667 133.333 20.000 146.667 0x8080FF\ntext 26.667 133.667 |" +
           texts[4] +
           "|\nstyle solid\nfill 0x0000FF\nbox 6.667 153.333 20.000 166.667 0x0000FF\ntext 26.667 153.667 |" +
           texts[5] + "|\nrefresh\n";
}

} // namespace

TEST(PolygonLegend, ShowsTheRangesOfAScore) {
    BuildScoreLegend();
    const std::string expected =
        Legend({" -3.0000   -   -3.0000", " -3.0000   -   -2.0000", " -2.0000   -    0.0000",
                "  0.0000   -    0.5000", "  0.5000   -    1.0000", "  1.0000   -    4.0000"});
    EXPECT_EQ(Printed(RetroVariable::Unadjusted), expected);
    EXPECT_EQ(Printed(RetroVariable::AdjustedPoisson), expected);
}

TEST(PolygonLegend, ShowsTheFixedTextsOfM) {
    BuildScoreLegend();
    const std::string expected = Legend({"            < -M*", "-M* =<  -  < -0.5M*", "-0.5M* =<  -  < 0",
                                         "0 =<  -  < 0.5M*", "0.5M* =<  -  < M*", "M* =< "});
    EXPECT_EQ(Printed(RetroVariable::FreemanTukey), expected);
    EXPECT_EQ(Printed(RetroVariable::Rossi), expected);
}

TEST(PolygonLegend, NeedsALegendThatWasBuilt) {
    ws = Workspace{};
    EXPECT_EQ(ErrorNumberOf([] { Printed(RetroVariable::Rossi); }), SubscriptOutOfRange);
}
