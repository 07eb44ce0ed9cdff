#include "core/retrospective/MStatistic.h"

#include "core/numeric/CountDeviations.h"
#include "core/numeric/KernelRows.h"
#include "core/numeric/RunProcedure.h"
#include "core/platform/Platform.h"
#include "core/retrospective/MArithmetic.h"
#include "core/text/Numbers.h"
#include "core/workspace/Sorting.h"
#include "core/workspace/Workspace.h"

#include <array>

namespace vastrel {

namespace {

struct Transform {
    const char* Name;
    double (*Score)(double observed, double expected);
    Array1<double> Workspace::*Scores;
};

constexpr Transform Pearson{"MTransformPearson", PearsonScore, &Workspace::DevPearson};
constexpr Transform FreemanTukey{"MTransformFreemanTukey", FreemanTukeyScore, &Workspace::DevFreemanTukey};
constexpr Transform Rossi{"MTransformRossi", RossiScore, &Workspace::DevRossi};

auto OutputsOfM() {
    return std::array{&ws.LocalM,    &ws.LocalMSorted,       &ws.MapDrawM,
                      &ws.MapClassM, &ws.DisplayClassValues, &ws.DisplayDrawValues};
}

void Reset(const Transform& transform) {
    (ws.*transform.Scores).ReDim(ws.NumRegion);
    for (auto* values : OutputsOfM())
        values->ReDim(ws.NumRegion);
}

void Compute(const Transform& transform) {
    auto& scores = ws.*transform.Scores;
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        scores(i) = transform.Score(ws.ObsCount(i), ws.ExpCount(i));
    WeightedSums(ws.WeightM, scores, ws.NumRegion, ws.LocalM);
    for (auto* values : OutputsOfM())
        *values = ws.LocalM;
}

void RunTransform(const Transform& transform) {
    Reset(transform);
    RunProcedure(
        transform.Name, [&] { Compute(transform); }, [&] { Reset(transform); });
}

} // namespace

void MTransformPearson() {
    RunTransform(Pearson);
}
void MTransformFreemanTukey() {
    RunTransform(FreemanTukey);
}
void MTransformRossi() {
    RunTransform(Rossi);
}

double MaxLocalM() {
    SortValues(ws.LocalMSorted);
    return ws.LocalMSorted(ws.LocalMSorted.UpperBound());
}

std::optional<double> MCriticalValue() {
    std::optional<double> value;
    RunProcedure(
        "MCritical", [&] { value = CriticalM(ws.CurrentSigma, ws.AlphaLevel, ws.NumRegion); },
        [&] { value.reset(); });
    if (!value) return {};
    return ToNumber(Num(*value, "###0.0000"));
}

double MCritical() {
    const auto value = MCriticalValue();
    if (!value) Warn("Error!");
    return value.value_or(0);
}

} // namespace vastrel
