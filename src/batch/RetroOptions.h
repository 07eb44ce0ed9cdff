#pragma once

#include "batch/Command.h"
#include "batch/LayerOptions.h"
#include "core/retrospective/Bandwidth.h"
#include "core/retrospective/RetroVariable.h"

namespace vastrel {

/// The options OUTPUT of a range and of one bandwidth.
struct RetroOutputs {
    std::string Lists, Report, Map, Chart, Json;
    int MapStep = 0;
    LayerOptions Layer;

    CLI::Option* MapStepOption = nullptr;
    CLI::Option* ChartOption = nullptr;

    void AddTo(CLI::App& command);

    bool AsksForNothing() const;
};

/// The name of their group in the help.
constexpr const char* OutputGroup = "Output";

/// The options TEST and OUTPUT that the two retrospective commands share.
struct RetroOptions : RetroOutputs {
    std::string Variable = "unadjusted";
    std::string Sigma;
    SweepTexts Range{"0.2", "2.0", "0.2"};
    std::string Alpha = "0.05";
    std::string Part, State;

    CLI::Option* SigmaOption = nullptr;

    void AddTo(CLI::App& command);

    bool IsRange() const { return SigmaOption->count() == 0; }
    bool IsPart() const { return !State.empty(); }
    RetroVariable ChosenVariable() const;

    /// What goes together and what does not; WrongUse otherwise. `twoIDs` tells whether the rows carry two
    /// ids.
    void Check(bool twoIDs) const;

private:
    void AddPartTo(CLI::App& command);
};

} // namespace vastrel
