#pragma once

#include "batch/Command.h"
#include "batch/LayerOptions.h"
#include "core/prospective/CusumParameters.h"

namespace vastrel {

/// The parameters and the options WATCH that the two prospective commands share.
struct WatchOptions {
    CusumTexts Parameters;
    std::string Lists, Report, Cusum, Maps, Chart, Json;
    LayerOptions Layer;
    int SignalStatus = 0; // 0 for none

    void AddTo(CLI::App& command);

    /// What goes together and what does not; WrongUse otherwise.
    void Check() const;

    bool AsksForNothing() const;
};

/// The path of the picture of a period in a folder, numbered with as many digits as the last one has.
std::string PeriodPicture(const std::string& folder, std::ptrdiff_t period, std::ptrdiff_t lastPeriod);

/// Whether a name without folder is that of the picture of some period.
bool IsPeriodPicture(const std::string& name);

} // namespace vastrel
