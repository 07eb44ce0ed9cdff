#include "batch/RetroOptions.h"

#include "batch/Pictures.h"
#include "batch/SweepPart.h"
#include "core/layer/RetroLayer.h"
#include "core/text/Numbers.h"

#include <map>
#include <optional>

namespace vastrel {

namespace {

const std::map<std::string, RetroVariable> Variables{{"unadjusted", RetroVariable::Unadjusted},
                                                     {"adjusted", RetroVariable::AdjustedPoisson},
                                                     {"freeman-tukey", RetroVariable::FreemanTukey},
                                                     {"rossi", RetroVariable::Rossi}};

/// The number of steps where the texts tell it: they may yet be refused with a message, or raise an error.
std::optional<std::ptrdiff_t> StepsOf(const SweepTexts& texts) {
    if (!IsNumeric(texts.From) || !IsNumeric(texts.To) || !IsNumeric(texts.Step)) return std::nullopt;
    try {
        return SweepStepCount({ToNumber(texts.From), ToNumber(texts.To), ToNumber(texts.Step)});
    } catch (const RunTimeError&) { // the run tells it
        return std::nullopt;
    }
}

} // namespace

void RetroOutputs::AddTo(CLI::App& command) {
    command.add_option("--lists", Lists, "the rows of both lists")->group(OutputGroup);
    command.add_option("--report", Report, "the report file")->group(OutputGroup);
    command.add_option("--map", Map, "the map (.png or .svg)")->group(OutputGroup);
    MapStepOption = command.add_option("--map-step", MapStep, "step of a range to map, counted from 1")
                        ->group(OutputGroup);
    ChartOption =
        command.add_option("--chart", Chart, "the chart of a range (.png, .svg or .pdf)")->group(OutputGroup);
    command.add_option("--json", Json, "every number")->group(OutputGroup);
    Layer.AddTo(command);
}

bool RetroOutputs::AsksForNothing() const {
    return Lists.empty() && Report.empty() && Map.empty() && Chart.empty() && Json.empty() &&
           Layer.AsksForNothing();
}

void RetroOptions::AddTo(CLI::App& command) {
    command.add_option("--variable", Variable, "unadjusted, adjusted, freeman-tukey or rossi")
        ->check(CLI::IsMember(Variables))
        ->capture_default_str()
        ->group("Test");
    SigmaOption = command.add_option("--sigma", Sigma, "one bandwidth")->group("Test");
    for (const auto& [name, text, help] : {std::tuple{"--from", &Range.From, "first bandwidth of a range"},
                                           std::tuple{"--to", &Range.To, "last bandwidth of a range"},
                                           std::tuple{"--step", &Range.Step, "step of a range"}})
        command.add_option(name, *text, help)->capture_default_str()->excludes(SigmaOption)->group("Test");
    command.add_option("--alpha", Alpha, "significance level, 0.05 or 0.01")
        ->check(CLI::IsMember({"0.05", "0.01"}))
        ->capture_default_str()
        ->group("Test");
    RetroOutputs::AddTo(command);
    MapStepOption->excludes(SigmaOption);
    ChartOption->excludes(SigmaOption);
    AddPartTo(command);
}

/// A part has no other output: what a run writes comes of all its steps.
void RetroOptions::AddPartTo(CLI::App& command) {
    const auto outputs =
        command.get_options([](const CLI::Option* option) { return option->get_group() == OutputGroup; });
    CLI::Option* part =
        command.add_option("--part", Part, "K/N: part K of N of a range, for join")->group(OutputGroup);
    CLI::Option* state = command.add_option("--state", State, "the file of the part")->group(OutputGroup);
    part->needs(state)->excludes(SigmaOption);
    state->needs(part);
    for (CLI::Option* output : outputs)
        part->excludes(output);
}

RetroVariable RetroOptions::ChosenVariable() const {
    return Variables.at(Variable);
}

void RetroOptions::Check(bool twoIDs) const {
    if (IsPart()) ParseShare(Part);
    Layer.Check();
    if (const auto steps = StepsOf(Range); steps && IsRange())
        Layer.RequireRoomFor(RangeColumnCount(twoIDs, *steps));
    RequirePictureEnding(Map, {".png", ".svg"});
    RequirePictureEnding(Chart, {".png", ".svg", ".pdf"});
    if (MapStep != 0 && Map.empty()) throw WrongUse("--map-step goes with --map.");
    if (!Map.empty() && IsRange() && MapStep < 1) throw WrongUse("--map of a range needs --map-step.");
}

} // namespace vastrel
