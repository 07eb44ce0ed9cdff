#include "batch/JoinedParts.h"

#include "batch/Command.h"

#include <algorithm>

namespace vastrel {

namespace {

constexpr size_t MostNamed = 10;

std::string TextOf(const SweepShare& share) {
    return std::to_string(share.Number) + " of " + std::to_string(share.Of);
}

/// The first setting in which two runs differ, the command among them; empty where there is none.
std::string DifferentSetting(const EarlierRun& a, const EarlierRun& b) {
    if (a.Command != b.Command) return "the command";
    for (const auto& [run, other] : {std::pair{&a, &b}, std::pair{&b, &a}})
        for (const auto& [name, value] : run->Settings.items())
            if (!other->Settings.contains(name) || other->Settings.at(name) != value) return name;
    return "";
}

/// The same for the files that they have read.
std::string DifferentInput(const EarlierRun& a, const EarlierRun& b) {
    for (const auto& [run, other] : {std::pair{&a, &b}, std::pair{&b, &a}})
        for (const auto& file : run->Inputs)
            if (std::ranges::find(other->Inputs, file) == other->Inputs.end()) return file.Path;
    return "";
}

void RequireOneRun(const SweepPart& first, const SweepPart& part) {
    if (const auto setting = DifferentSetting(first.Run, part.Run); !setting.empty())
        throw InputRefused(part.Path + " was made with other settings than " + first.Path + ": " + setting +
                           " differs.");
    if (const auto input = DifferentInput(first.Run, part.Run); !input.empty())
        throw InputRefused(part.Path + " was made from other input than " + first.Path + ": " + input +
                           " differs.");
    if (part.Share.Of != first.Share.Of)
        throw InputRefused(part.Path + " is part " + TextOf(part.Share) + ", and " + first.Path +
                           " is part " + TextOf(first.Share) + ".");
}

} // namespace

JoinedParts::JoinedParts(const std::vector<std::string>& paths) {
    for (const auto& path : paths) {
        SweepPart part = ReadPart(path);
        if (!parts_.empty()) RequireOneRun(parts_.front(), part);
        for (const auto& other : parts_)
            if (other.Share == part.Share)
                throw InputRefused(other.Path + " and " + path + " are both part " + TextOf(part.Share) +
                                   ".");
        parts_.push_back(std::move(part));
    }
    std::ranges::sort(parts_, {}, [](const auto& part) { return part.Share.Number; });
    RequireAll();
}

void JoinedParts::RequireAll() const {
    const SweepShare& last = parts_.back().Share;
    const auto missing = static_cast<size_t>(last.Of) - parts_.size();
    if (missing == 0) return;
    std::vector<std::string> numbers;
    auto next = parts_.begin();
    for (std::ptrdiff_t number = 1; numbers.size() < std::min(missing, MostNamed); ++number)
        if (next != parts_.end() && next->Share.Number == number)
            ++next;
        else
            numbers.push_back(std::to_string(number));
    std::string text = CLI::detail::join(numbers, ", ");
    if (missing > MostNamed) text += " and " + std::to_string(missing - MostNamed) + " more";
    throw InputRefused((missing == 1 ? "Part " : "Parts ") + text + " of " + std::to_string(last.Of) +
                       (missing == 1 ? " is missing." : " are missing."));
}

void JoinedParts::Require(std::ptrdiff_t steps, std::ptrdiff_t regions) const {
    for (const auto& part : parts_) {
        const bool hasSteps = static_cast<std::ptrdiff_t>(part.Steps.size()) == part.Share.CountOf(steps);
        const bool hasRegions = std::ranges::all_of(
            part.Steps, [&](const auto& step) { return step.Local.UpperBound() == regions; });
        if (!hasSteps || !hasRegions) throw InputRefused(part.Path + " does not hold the steps of its run.");
    }
}

const SweepStep& JoinedParts::Step(std::ptrdiff_t k) const {
    const auto of = static_cast<std::ptrdiff_t>(parts_.size());
    return parts_.at(static_cast<size_t>(k % of)).Steps.at(static_cast<size_t>(k / of));
}

} // namespace vastrel
