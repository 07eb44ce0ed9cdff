#include "core/spatial/StudyArea.h"

#include "core/display/MapSizes.h"
#include "core/display/PointView.h"
#include "core/retrospective/Weights.h"
#include "core/spatial/PlotArea.h"
#include "support/Arrays.h"
#include "support/Points.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

namespace vastrel {

std::ostream& operator<<(std::ostream& stream, const PlotPoint& point) {
    return stream << "(" << point.X << ", " << point.Y << ")";
}

} // namespace vastrel

using namespace vastrel;

namespace {

using Positions = std::vector<PlotPoint>;

/// Twice the area of a triangle, positive where c lies to the left of the way from a to b.
std::int64_t Turn(PlotPoint a, PlotPoint b, PlotPoint c) {
    return static_cast<std::int64_t>(b.X - a.X) * (c.Y - a.Y) -
           static_cast<std::int64_t>(b.Y - a.Y) * (c.X - a.X);
}

/// The hull by another method, in whole numbers: the monotone chain of A. M. Andrew (1979), turned so that
/// it begins at the lowest point.
Positions MonotoneChain(Positions points) {
    const auto leftToRight = [](PlotPoint a, PlotPoint b) {
        return std::pair(a.X, a.Y) < std::pair(b.X, b.Y);
    };
    std::sort(points.begin(), points.end(), leftToRight);
    Positions hull;
    for (int side = 0; side < 2; ++side) {
        const size_t start = hull.size();
        for (const auto& point : points) {
            while (hull.size() >= start + 2 && Turn(hull[hull.size() - 2], hull.back(), point) <= 0)
                hull.pop_back();
            hull.push_back(point);
        }
        hull.pop_back();
        std::reverse(points.begin(), points.end());
    }
    const auto lowest = std::min_element(hull.begin(), hull.end(), [](PlotPoint a, PlotPoint b) {
        return std::pair(a.Y, a.X) < std::pair(b.Y, b.X);
    });
    std::rotate(hull.begin(), lowest, hull.end());
    return hull;
}

/// The hull that the wrap brings to the front.
Positions Hull(const Positions& points) {
    auto array = ArrayFrom1(points);
    const auto count = WrapHull(array);
    auto wrapped = From1(array);
    EXPECT_TRUE(std::is_permutation(wrapped.begin(), wrapped.end(), points.begin()));
    wrapped.resize(static_cast<size_t>(count));
    return wrapped;
}

double OpenSum(const Positions& hull) {
    return OpenHullSum(ArrayFrom1(hull), static_cast<std::ptrdiff_t>(hull.size()));
}

/// A store whose points were plotted at these positions.
void SetPlotted(const Positions& points, double scaleX, double scaleY) {
    ws = Workspace{};
    ws.NumTextRegion = static_cast<double>(points.size());
    ws.PlottedPoints = ArrayFrom1(points);
    ws.ScaleX = scaleX;
    ws.ScaleY = scaleY;
}

/// Loads positions into the store and plots them on a surface.
void Plot(const std::vector<MapPosition>& at, const SurfaceSize& surface, double zoom) {
    FillPoints(at);
    PointView view;
    view.PointZoom = zoom;
    Array1<double> x(static_cast<std::ptrdiff_t>(at.size())), y = x;
    for (std::ptrdiff_t i = 1; i <= x.UpperBound(); ++i) {
        x(i) = ws.RegionCentroid(i).X;
        y(i) = ws.RegionCentroid(i).Y;
    }
    PlotAllPoints(view, surface, x, y);
}

} // namespace

// ---- The pseudo-angle

TEST(PseudoAngle, GrowsRoundTheCircle) {
    EXPECT_EQ(PseudoAngle({0, 0}, {1, 0}), 0);
    EXPECT_EQ(PseudoAngle({0, 0}, {3, 1}), 22.5F); // 1/4
    EXPECT_EQ(PseudoAngle({0, 0}, {7, 7}), 45);
    EXPECT_EQ(PseudoAngle({0, 0}, {0, 9}), 90);
    EXPECT_EQ(PseudoAngle({0, 0}, {-3, 1}), 157.5F); // 2 - 1/4
    EXPECT_EQ(PseudoAngle({0, 0}, {-1, 0}), 180);
    EXPECT_EQ(PseudoAngle({0, 0}, {-3, -1}), 202.5F); // 2 + 1/4
    EXPECT_EQ(PseudoAngle({0, 0}, {0, -1}), 270);     // 4 - 1
    EXPECT_EQ(PseudoAngle({0, 0}, {3, -1}), 337.5F);  // 4 - 1/4
    EXPECT_EQ(PseudoAngle({100, -20}, {103, -19}), 22.5F);
}

TEST(PseudoAngle, IsFortyTimesNinetyInOnePlace) {
    EXPECT_EQ(PseudoAngle({5, 6}, {5, 6}), 3600);
}

TEST(PseudoAngle, RoundsEachStepToAFloat) {
    // By single steps of 32 bits in Python: 2/3 is 0.66666669, 2 less that 1.3333333, times 90.
    EXPECT_EQ(PseudoAngle({0, 0}, {1, 2}), 60.0F);
    EXPECT_EQ(PseudoAngle({0, 0}, {-1, 2}), 119.99999237060547F);
    // A direction just below the axis: 4 - 1/20000001 is 4 in 24 bits.
    EXPECT_EQ(PseudoAngle({0, 1}, {20000000, 0}), 360);
    EXPECT_EQ(PseudoAngle({0, 1}, {2000000, 0}), 359.9999694824219F);
    // 33333/133333 and 33334/133337 are one float.
    EXPECT_EQ(PseudoAngle({0, 0}, {100000, 33333}), PseudoAngle({0, 0}, {100003, 33334}));
}

TEST(PseudoAngle, DoesNotOverflow) {
    constexpr std::int32_t least = -2147483647 - 1, greatest = 2147483647;
    EXPECT_EQ(PseudoAngle({least, least}, {greatest, greatest}), 45);
}

// ---- The wrap

TEST(WrapHull, AgreesWithAnotherMethodOnPointsInGeneralPosition) {
    std::mt19937 random(3);
    int compared = 0;
    for (int set = 0; set < 400; ++set) {
        const int count = std::uniform_int_distribution<int>(3, 40)(random);
        Positions points;
        while (static_cast<int>(points.size()) < count) {
            const PlotPoint point{std::uniform_int_distribution<std::int32_t>(0, 368)(random),
                                  std::uniform_int_distribution<std::int32_t>(0, 280)(random)};
            bool general = true; // in no other's place, and in line with no other two
            for (size_t i = 0; i < points.size(); ++i) {
                general = general && !(points[i] == point);
                for (size_t j = 0; j < i; ++j)
                    general = general && Turn(points[i], points[j], point) != 0;
            }
            if (general) points.push_back(point);
        }
        EXPECT_EQ(Hull(points), MonotoneChain(points));
        ++compared;
    }
    EXPECT_EQ(compared, 400);
}

TEST(WrapHull, AgreesOnPositionsOfBothSigns) {
    const Positions points = {{-40, 3}, {17, -60}, {5, 5}, {90, 81}, {-71, 44}, {2, 100}, {60, -13}, {-1, 0}};
    EXPECT_EQ(Hull(points), (Positions{{17, -60}, {60, -13}, {90, 81}, {2, 100}, {-71, 44}, {-40, 3}}));
    EXPECT_EQ(Hull(points), MonotoneChain(points));
}

TEST(WrapHull, BeginsAtTheLowestPointAndThereTheLeftmost) {
    EXPECT_EQ(Hull({{9, 1}, {5, 9}, {3, 1}, {1, 5}}), (Positions{{3, 1}, {9, 1}, {5, 9}, {1, 5}}));
}

TEST(WrapHull, ReordersThePointsBySwaps) {
    auto points = ArrayFrom1<PlotPoint>({{5, 5}, {0, 10}, {10, 10}, {0, 0}, {10, 0}, {6, 4}});
    EXPECT_EQ(WrapHull(points), 4);
    // By hand: (0, 0) changes with (5, 5); then (10, 0) with (0, 10); (10, 10) stands; (0, 10) with (5, 5).
    EXPECT_EQ(From1(points), (Positions{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {5, 5}, {6, 4}}));
}

TEST(WrapHull, TakesTheEarlierOfTwoInOneDirection) {
    // Of (5, 0) and (10, 0) the one that stands first is kept; the nearer one is then a hull point too.
    EXPECT_EQ(Hull({{0, 0}, {10, 0}, {5, 0}, {10, 10}, {0, 10}}),
              (Positions{{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
    EXPECT_EQ(Hull({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}),
              (Positions{{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}));
}

TEST(WrapHull, EndsWhereTheWayBackIsAsGoodAsTheNext) {
    // At (0, 10) the way back and the way to (0, 5) are one direction.
    EXPECT_EQ(Hull({{0, 0}, {10, 0}, {10, 5}, {10, 10}, {5, 10}, {0, 10}, {0, 5}}),
              (Positions{{0, 0}, {10, 0}, {10, 5}, {10, 10}, {5, 10}, {0, 10}}));
}

TEST(WrapHull, DropsAPointThatOnlyExactAnglesTellApart) {
    // Both lie in the same direction from (0, 0) as floats go; exactly, (100000, 33333) lies to the right of
    // the other and belongs to the hull.
    const PlotPoint a{100000, 33333}, b{100003, 33334}, top{50000, 60000}, left{0, 40000};
    EXPECT_EQ(Hull({{0, 0}, a, b, top, left}), (Positions{{0, 0}, a, b, top, left}));
    EXPECT_EQ(Hull({{0, 0}, b, a, top, left}), (Positions{{0, 0}, b, top, left}));
    EXPECT_EQ(MonotoneChain({{0, 0}, b, a, top, left}).size(), 5U);
}

TEST(WrapHull, TakesEachOfSeveralPointsInOnePlaceOnce) {
    EXPECT_EQ(Hull({{0, 0}, {10, 0}, {10, 0}, {10, 10}, {10, 10}, {0, 10}, {0, 0}}),
              (Positions{{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
}

TEST(WrapHull, HasOnePointWhereAllAreInOnePlace) {
    // No point is kept, and the way back, 3600, does not end it.
    EXPECT_EQ(Hull({{3, 4}, {3, 4}, {3, 4}, {3, 4}}), (Positions{{3, 4}}));
    EXPECT_EQ(Hull({{3, 4}}), (Positions{{3, 4}}));
    auto none = Array1<PlotPoint>();
    EXPECT_EQ(WrapHull(none), 0);
}

TEST(WrapHull, GoesAlongALineAndBack) {
    EXPECT_EQ(Hull({{3, 4}, {8, 4}}), (Positions{{3, 4}, {8, 4}}));
    EXPECT_EQ(Hull({{3, 4}, {8, 4}, {3, 4}, {8, 4}}), (Positions{{3, 4}, {8, 4}}));
    EXPECT_EQ(Hull({{0, 0}, {0, 5}, {0, 9}}), (Positions{{0, 0}, {0, 5}, {0, 9}}));
    EXPECT_EQ(Hull({{0, 3}, {0, 9}, {0, 0}}), (Positions{{0, 0}, {0, 9}}));
    EXPECT_EQ(Hull({{0, 0}, {5, 5}, {10, 10}, {3, 3}}), (Positions{{0, 0}, {5, 5}, {10, 10}}));
}

// ---- The sum

TEST(OpenHullSum, HasOneTermForATriangle) {
    // Places 2 and 3 alone: (10 * 10 - 0 * 0) / 2
    EXPECT_EQ(OpenSum({{0, 0}, {10, 0}, {0, 10}}), 50);
    // (7 * 11 - 3 * 2) / 2, whatever place 1 is
    EXPECT_EQ(OpenSum({{1, 1}, {7, 2}, {3, 11}}), 35.5);
    EXPECT_EQ(OpenSum({{5, 0}, {7, 2}, {3, 11}}), 35.5);
}

TEST(OpenHullSum, DependsOnTheOrigin) {
    // The triangle above, moved by (5, 7): (15 * 17 - 5 * 7) / 2
    EXPECT_EQ(OpenSum({{5, 7}, {15, 7}, {5, 17}}), 110);
    // A square of 100 at the origin and moved by (20, 30): the terms of places 2 3 and 3 4 are
    // (30 * 40 - 30 * 30) / 2 + (30 * 40 - 20 * 40) / 2.
    EXPECT_EQ(OpenSum({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), 100);
    EXPECT_EQ(OpenSum({{20, 30}, {30, 30}, {30, 40}, {20, 40}}), 350);
}

TEST(OpenHullSum, IsEmptyBelowThreePoints) {
    EXPECT_EQ(OpenSum({}), 0);
    EXPECT_EQ(OpenSum({{3, 4}}), 0);
    EXPECT_EQ(OpenSum({{3, 4}, {8, 9}}), 0);
}

TEST(OpenHullSum, StopsWhereAProductLeavesThirtyTwoBits) {
    // 65536 * 32767 = 2147418112 and 65536 * -32768 = -2147483648 fit; 46341 * 46341 = 2147488281 does not.
    EXPECT_EQ(OpenSum({{0, 0}, {65536, 1}, {1, 32767}}), 0.5 * (2147418112.0 - 1));
    EXPECT_EQ(OpenSum({{0, 0}, {65536, 1}, {1, -32768}}), 0.5 * (-2147483648.0 - 1));
    EXPECT_EQ(ErrorNumberOf([] { OpenSum({{0, 0}, {46341, 1}, {1, 46341}}); }), Overflow);
    EXPECT_EQ(ErrorNumberOf([] { OpenSum({{0, 0}, {1, 46341}, {46341, 1}}); }), Overflow);
    EXPECT_EQ(ErrorNumberOf([] { OpenSum({{0, 0}, {65536, 1}, {1, -32769}}); }), Overflow);
    // The difference of two products is no product: 2 * 10^9 - (-2 * 10^9).
    EXPECT_EQ(OpenSum({{0, 0}, {40000, -40000}, {50000, 50000}}), 2e9);
    // Place 1 is in no product.
    EXPECT_EQ(OpenSum({{2000000, 2000000}, {1, 2}, {3, 4}}), -1);
}

// ---- The study area

TEST(PlotAreaToMap, ScalesBackInBothDirections) {
    EXPECT_EQ(PlotAreaToMap(350, 2, 5), 35);
    EXPECT_EQ(PlotAreaToMap(-350, 2, 5), 35);
}

TEST(PointStudyArea, IsTheOpenSumInMapUnits) {
    SetPlotted({{25, 35}, {20, 40}, {30, 30}, {30, 40}, {20, 30}}, 2, 5);
    EXPECT_EQ(PointStudyArea(), 35); // 350 / 10
    EXPECT_EQ(From1(ws.PlottedPoints), (Positions{{20, 30}, {30, 30}, {30, 40}, {20, 40}, {25, 35}}));
    EXPECT_EQ(PointStudyArea(), 35); // once more, from the points as they were left
}

TEST(PointStudyArea, TakesTheSizeOfANegativeSum) {
    // Left of the origin: places 2 and 3 are (-10, 0) and (-10, 10), then (-20, 10):
    // (-10 * 10 - 0) / 2 + (-10 * 10 + 20 * 10) / 2 = -50 + 50 = 0. One lower, at y from -11 to -1:
    // (-10 * -1 - -10 * -11) / 2 + (-10 * -1 - -20 * -1) / 2 = -50 - 5.
    SetPlotted({{-20, -11}, {-10, -11}, {-10, -1}, {-20, -1}}, 1, 1);
    EXPECT_EQ(PointStudyArea(), 55);
}

TEST(PointStudyArea, IsZeroBelowThreeHullPointsWhateverTheScales) {
    SetPlotted({{3, 4}, {3, 4}, {3, 4}}, 0, 0);
    EXPECT_EQ(ErrorNumberOf([] { EXPECT_EQ(PointStudyArea(), 0); }), 0);
    SetPlotted({{3, 4}, {8, 4}}, 0, 0);
    EXPECT_EQ(ErrorNumberOf([] { EXPECT_EQ(PointStudyArea(), 0); }), 0);
    SetPlotted({}, 0, 0);
    EXPECT_EQ(PointStudyArea(), 0);
}

TEST(PointStudyArea, IsZeroWhereThePresentPointsWereNeverPlotted) {
    SetPlotted({{0, 0}, {10, 0}, {0, 10}}, 1, 1);
    ws.NumTextRegion = 4; // the three are of an earlier dataset
    EXPECT_EQ(PointStudyArea(), 0);
    ws.PlottedPoints.Clear();
    EXPECT_EQ(PointStudyArea(), 0);
}

TEST(PointStudyArea, StopsWhereThePointsWerePlottedWithoutAScale) {
    ws = Workspace{};
    ws.NumTextRegion = 3;
    ws.PlottedPoints.ReDim(3);
    ws.PlottedPoints(2) = {10, 0};
    ws.PlottedPoints(3) = {0, 10};
    EXPECT_EQ(ErrorNumberOf(PointStudyArea), DivisionByZero);
}

TEST(PointStudyArea, CanCancel) {
    // (-10 * 10 - 0) / 2 + (-10 * 10 + 20 * 10) / 2
    SetPlotted({{-20, 0}, {-10, 0}, {-10, 10}, {-20, 10}}, 1, 1);
    EXPECT_EQ(PointStudyArea(), 0);
}

TEST(PointStudyArea, FollowsTheSizeOfTheMap) {
    // Seven points with a hull of five. Expected by Python: positions by the definition of the view, the hull
    // by monotone chain, the sum and the two reciprocals.
    const std::vector<MapPosition> at = {{435.5, 881.25}, {436.0, 880.0}, {440.25, 885.5}, {437.75, 890.125},
                                         {433.1, 886.6},  {439.0, 882.3}, {436.4, 884.9}};
    Plot(at, RetroPointSurface(), 1.2);
    EXPECT_EQ(PointStudyArea(), 0x1.3912e77d1e366p+5); // 39.13, of a sum of 20942.5
    EXPECT_EQ(From1(ws.PlottedPoints),
              (Positions{{209, 23}, {267, 130}, {238, 204}, {169, 258}, {102, 105}, {157, 229}, {178, 144}}));
    Plot(at, ProspectivePointSurface(), 1.0);
    EXPECT_EQ(PointStudyArea(), 0x1.6b2223040df44p+5); // 45.39
    Plot(at, {3000, 3000, 196, 196}, 1.0);
    EXPECT_EQ(PointStudyArea(), 0x1.36df2e5e73463p+5); // 38.86
}

// ---- As the weights take it

TEST(TakePointDataset, SetsTheStoreOfATextDataset) {
    SetPlotted({{20, 30}, {30, 30}, {30, 40}, {20, 40}}, 2, 5);
    ws.bTextfileData = true;
    TakePointDataset();
    EXPECT_EQ(ws.NumRegion, 4);
    EXPECT_EQ(ws.TotalShapeArea, 35);
}

TEST(TakePointDataset, LeavesAPolygonDatasetAlone) {
    SetPlotted({{20, 30}, {30, 30}, {30, 40}, {20, 40}}, 2, 5);
    ws.bShapefileData = true;
    ws.NumRegion = 2;
    ws.TotalShapeArea = 9;
    TakePointDataset();
    EXPECT_EQ(ws.NumRegion, 2);
    EXPECT_EQ(ws.TotalShapeArea, 9);
}

TEST(TakePointDataset, LeavesNoAreaAndNoWeightsAfterAnOverflow) {
    FillPoints({{0, 0}, {1, 0}, {0, 1}});
    ws.CurrentSigma = 1;
    ws.PlottedPoints = ArrayFrom1<PlotPoint>({{0, 0}, {10, 0}, {0, 10}});
    ws.ScaleX = ws.ScaleY = 1;
    ws.ExpCount = ws.ExpRatio = ArrayFrom1<double>({1, 1, 1});
    BuildMWeights();
    BuildScoreWeights();
    ASSERT_TRUE(ws.WeightM.IsAllocated() && ws.WeightUnadjusted.IsAllocated());
    ws.PlottedPoints = ArrayFrom1<PlotPoint>({{0, 0}, {50000, 0}, {0, 50000}});
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), Overflow);
    EXPECT_FALSE(ws.WeightM.IsAllocated());
    EXPECT_FALSE(ws.WeightUnadjusted.IsAllocated());
    EXPECT_EQ(ws.TotalShapeArea, 0);
}
