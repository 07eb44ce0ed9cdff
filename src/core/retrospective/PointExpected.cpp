#include "core/retrospective/PointExpected.h"

#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

double Sum(const Array1<double>& values) {
    double sum = 0;
    for (std::ptrdiff_t i = 1; i <= values.UpperBound(); ++i)
        sum = sum + values(i);
    return sum;
}

} // namespace

void SharesOfExpected() {
    const double total = Sum(ws.ObsCount);
    for (std::ptrdiff_t i = 1; i <= ws.ExpCount.UpperBound(); ++i)
        ws.ExpRatio(i) = ws.ExpCount(i) / total;
    ws.TotalObs = total;
}

void ExpectedFromPopulation() {
    const double population = Sum(ws.PopBase);
    const double total = Sum(ws.ObsCount);
    ws.TotalObs = total;
    for (std::ptrdiff_t i = 1; i <= ws.PopBase.UpperBound(); ++i) {
        ws.ExpCount(i) = (total / population) * ws.PopBase(i);
        ws.ExpRatio(i) = ws.PopBase(i) / population;
    }
}

} // namespace vastrel
