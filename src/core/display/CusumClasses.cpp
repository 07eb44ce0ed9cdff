#include "core/display/CusumClasses.h"

#include "core/workspace/Workspace.h"

#include <array>

namespace vastrel {

namespace {

struct CusumClass {
    const char* Label = "";
    PointSymbol Symbol;
};

constexpr std::array<CusumClass, CusumClassCount> Classes = {{{"< 25%", {2, 0xFFFFFF}},
                                                              {"< 50%", {2, 0xFFFF00}},
                                                              {"< 75%", {2, 0xFF8080}},
                                                              {"< 100%", {4, 0xC00000}},
                                                              {"SIGNAL", {6, 0x0000FF}}}};

const CusumClass& ClassAt(int cusumClass) {
    return Classes.at(static_cast<size_t>(cusumClass));
}

} // namespace

int CusumClassOf(double cusum, double h) {
    if (cusum > h) return SignalClass;
    if (cusum > (h / 4) * 3) return 3;
    if (cusum > h / 2) return 2;
    return cusum > h / 4 ? 1 : 0;
}

const char* CusumClassLabel(int cusumClass) {
    return ClassAt(cusumClass).Label;
}

PointSymbol CusumSymbol(int cusumClass) {
    return ClassAt(cusumClass).Symbol;
}

Colour CusumColor(std::ptrdiff_t region, std::ptrdiff_t period) {
    return CusumSymbol(CusumClassOf(ws.CusumValue(region, period), ws.HValue)).Outline;
}

} // namespace vastrel
