#include "core/display/Pan.h"

#include "core/display/PointView.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(Pan, FollowsTheMouseFromItsPress) {
    MapPan pan;
    PressPan(pan, 10, 20);
    EXPECT_TRUE(pan.bPanning);
    EXPECT_EQ(pan.PanStartX, 10);
    EXPECT_EQ(pan.PanStartY, 20);
    EXPECT_EQ(pan.PanDX, 0);
    MovePan(pan, 13, 15);
    EXPECT_EQ(pan.PanDX, 3);
    EXPECT_EQ(pan.PanDY, -5);
    MovePan(pan, 14, 14); // from the press, not from the move before
    EXPECT_EQ(pan.PanDX, 4);
    EXPECT_EQ(pan.PanDY, -6);
    EXPECT_EQ(pan.PanSettledX, 0);
}

TEST(Pan, AddsTheSameDragAtEveryReleaseUntilADoubleClick) {
    MapPan pan;
    PressPan(pan, 0, 0);
    MovePan(pan, 7, -2);
    ReleasePan(pan);
    EXPECT_FALSE(pan.bPanning);
    EXPECT_EQ(pan.PanSettledX, 7);
    EXPECT_EQ(pan.PanSettledY, -2);
    EXPECT_EQ(pan.PanDX, 7); // not cleared
    EXPECT_EQ(pan.PanDY, -2);
    ReleasePan(pan);
    ReleasePan(pan);
    EXPECT_EQ(pan.PanSettledX, 21);
    EXPECT_EQ(pan.PanSettledY, -6);
    DropPanOffset(pan);
    EXPECT_EQ(pan.PanDX, 0);
    EXPECT_EQ(pan.PanDY, 0);
    EXPECT_EQ(pan.PanSettledX, 21);
    ReleasePan(pan);
    EXPECT_EQ(pan.PanSettledX, 21);
    EXPECT_EQ(pan.PanSettledY, -6);
}

TEST(Pan, KeepsTheDragWhenTheSettledSumGoes) {
    MapPan pan;
    PressPan(pan, 0, 0);
    MovePan(pan, 7, -2);
    ReleasePan(pan);
    DropSettledPan(pan);
    EXPECT_EQ(pan.PanSettledX, 0);
    EXPECT_EQ(pan.PanSettledY, 0);
    EXPECT_EQ(pan.PanDX, 7);
    EXPECT_EQ(pan.PanDY, -2);
}

TEST(Pan, IsTheSameOnPointMaps) {
    PointView view;
    PressPan(view, 1, 1);
    MovePan(view, 4, 6);
    ReleasePan(view);
    EXPECT_EQ(view.PanSettledX, 3);
    EXPECT_EQ(view.PanSettledY, 5);
    EXPECT_EQ(view.PanDY, 5);
}
