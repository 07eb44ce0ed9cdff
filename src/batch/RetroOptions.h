#pragma once

#include "batch/Command.h"
#include "batch/LayerOptions.h"
#include "core/retrospective/Bandwidth.h"
#include "core/retrospective/RetroVariable.h"

namespace vastrel {

/// The options TEST and OUTPUT that the two retrospective commands share.
struct RetroOptions {
    std::string Variable = "unadjusted";
    std::string Sigma;
    SweepTexts Range{"0.2", "2.0", "0.2"};
    std::string Alpha = "0.05";

    std::string Lists, Report, Map, Chart, Json;
    int MapStep = 0;
    LayerOptions Layer;

    CLI::Option* SigmaOption = nullptr;

    void AddTo(CLI::App& command);

    bool IsRange() const { return SigmaOption->count() == 0; }
    bool AsksForNothing() const;
    RetroVariable ChosenVariable() const;

    /// What goes together and what does not; WrongUse otherwise. `twoIDs` tells whether the rows carry two
    /// ids.
    void Check(bool twoIDs) const;
};

} // namespace vastrel
