#include "core/display/CusumClasses.h"

#include "core/workspace/Workspace.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(CusumClasses, TakeAValueEqualToALimitIntoTheLowerClass) {
    constexpr double h = 8, above = 1e-12;
    EXPECT_EQ(CusumClassOf(-3, h), 0); // a saved table may hold negative numbers
    EXPECT_EQ(CusumClassOf(0, h), 0);
    EXPECT_EQ(CusumClassOf(2, h), 0);
    EXPECT_EQ(CusumClassOf(2 + above, h), 1);
    EXPECT_EQ(CusumClassOf(4, h), 1);
    EXPECT_EQ(CusumClassOf(4 + above, h), 2);
    EXPECT_EQ(CusumClassOf(6, h), 2);
    EXPECT_EQ(CusumClassOf(6 + above, h), 3);
    EXPECT_EQ(CusumClassOf(8, h), 3); // equal to h is no signal
    EXPECT_EQ(CusumClassOf(8 + above, h), SignalClass);
}

TEST(CusumClasses, SignalEveryPositiveCusumWithAThresholdOfZero) {
    EXPECT_EQ(CusumClassOf(1e-300, 0), SignalClass);
    EXPECT_EQ(CusumClassOf(0, 0), 0);
}

TEST(CusumClasses, HaveFixedLabels) {
    const std::string labels[] = {"< 25%", "< 50%", "< 75%", "< 100%", "SIGNAL"};
    for (int i = 0; i < CusumClassCount; ++i)
        EXPECT_EQ(CusumClassLabel(i), labels[i]);
}

TEST(CusumClasses, HaveOneColourOnMapAndPoints) {
    const PointSymbol symbols[] = {{2, 0xFFFFFF}, {2, 0xFFFF00}, {2, 0xFF8080}, {4, 0xC00000}, {6, 0x0000FF}};
    for (int i = 0; i < CusumClassCount; ++i)
        EXPECT_EQ(CusumSymbol(i), symbols[i]) << i;
}

TEST(CusumColor, ReadsTheStore) {
    ws = Workspace{};
    ws.HValue = 4;
    ws.CusumValue.ReDim(2, 3);
    ws.CusumValue(2, 1) = 1.5;
    ws.CusumValue(2, 2) = 4;
    ws.CusumValue(2, 3) = 4.5;
    EXPECT_EQ(CusumColor(1, 1), 0xFFFFFFu);
    EXPECT_EQ(CusumColor(2, 1), 0xFFFF00u);
    EXPECT_EQ(CusumColor(2, 2), 0xC00000u);
    EXPECT_EQ(CusumColor(2, 3), 255u);
}
