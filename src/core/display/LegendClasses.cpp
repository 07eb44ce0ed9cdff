#include "core/display/LegendClasses.h"

#include "core/retrospective/MStatistic.h"
#include "core/text/Numbers.h"
#include "core/workspace/Sorting.h"

#include <array>
#include <cmath>

namespace vastrel {

namespace {

void TakeMLimits() {
    const double critical = MCritical();
    ws.LegendWork(1) = -critical;
    ws.LegendWork(2) = -0.5 * critical;
    ws.LegendWork(3) = 0;
    ws.LegendWork(4) = 0.5 * critical;
    ws.LegendWork(5) = critical;
}

/// The element at a share of one side's n values, counted from 1 with element 0 being 0; `before` is how many
/// sorted values stand in front of that side.
double AtShare(const Array1<double>& sorted, std::ptrdiff_t before, double share) {
    const auto index = static_cast<std::ptrdiff_t>(std::floor(share));
    return index == 0 ? 0 : sorted(before + index);
}

void TakeScoreLimits(const Array1<double>& sorted) {
    std::ptrdiff_t negative = 0;
    while (negative < ws.NumRegion && sorted(negative + 1) < 0)
        ++negative;
    const auto below = static_cast<double>(negative);
    const auto above = static_cast<double>(ws.NumRegion - negative);
    ws.LegendWork(1) = AtShare(sorted, 0, below / 3);
    ws.LegendWork(2) = AtShare(sorted, 0, 2 * below / 3);
    ws.LegendWork(3) = 0;
    ws.LegendWork(4) = AtShare(sorted, negative, above / 3);
    ws.LegendWork(5) = AtShare(sorted, negative, 2 * above / 3);
}

/// The first five tests of both ladders, one after the other; 0 where none fits.
int LadderClass(const Array1<double>& limits, double value) {
    if (value < limits(1)) return 1;
    for (int i = 1; i < LegendLimitCount; ++i)
        if (value >= limits(i) && value < limits(i + 1)) return i + 1;
    return 0;
}

int ClassBy(const Array1<double>& limits, int lastLimit, double value) {
    const int found = LadderClass(limits, value);
    if (found != 0) return found;
    return value >= limits(lastLimit) ? 6 : 0;
}

} // namespace

void SetLegendColors() {
    ws.LegendColors.ReDim(6);
    for (int i = 1; i <= 6; ++i)
        ws.LegendColors(i) = ClassColours[static_cast<size_t>(i - 1)];
}

const Array1<double>& MapDrawValues(RetroVariable variable) {
    return MapsScore(variable) ? ws.MapDrawScore : ws.MapDrawM;
}

Array1<double>& MapClassValues(RetroVariable variable) {
    return MapsScore(variable) ? ws.MapClassScore : ws.MapClassM;
}

void BuildLegend(Array1<double>& values, RetroVariable variable) {
    SortValues(values);
    ws.LegendLimits.ReDim(LegendLimitCount + 1);
    ws.LegendWork.ReDim(LegendLimitCount + 1);
    ws.LegendMin = values(1);
    ws.LegendMax = values(ws.NumRegion);
    if (MapsScore(variable))
        TakeScoreLimits(values);
    else
        TakeMLimits();
    for (int i = 1; i <= LegendLimitCount + 1; ++i)
        ws.LegendLimits(i) = ws.LegendWork(i);
    SetLegendColors();
}

int ClassOf(double value) {
    return ClassBy(ws.LegendLimits, 6, value);
}

int PointClassOf(double value) {
    return ClassBy(ws.LegendWork, 5, value);
}

Colour ClassColor(double value) {
    const int found = ClassOf(value);
    return found == 0 ? Colours::Black : static_cast<Colour>(ws.LegendColors(found));
}

std::string RangeText(int i) {
    const auto& limits = ws.LegendLimits;
    const double from = i == 0 ? ws.LegendMin : limits(i);
    const double to = i == LegendLimitCount ? ws.LegendMax : limits(i + 1);
    const bool fromNegative = i == 0 || (i < LegendLimitCount && from < 0);
    const bool toNegative = i == 0 || (fromNegative && to < 0);
    return Num(from, fromNegative ? " 0.0000" : "  0.0000") + (toNegative ? "   -  " : "   -   ") +
           Num(to, " 0.0000");
}

std::string MLegendText(int i) {
    static const std::array<const char*, 6> texts = {"            < -M*", "-M* =<  -  < -0.5M*",
                                                     "-0.5M* =<  -  < 0", "0 =<  -  < 0.5M*",
                                                     "0.5M* =<  -  < M*", "M* =< "};
    return texts.at(static_cast<size_t>(i));
}

} // namespace vastrel
