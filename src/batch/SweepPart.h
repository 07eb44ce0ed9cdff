#pragma once

#include "batch/Settings.h"
#include "core/retrospective/Sweep.h"

namespace vastrel {

/// A part of a range of bandwidths, as --state keeps it: the steps of a share, and the run that they belong
/// to. docs/formats/sweep-part.md describes the file.
struct SweepPart {
    std::string Path; // as it is named
    EarlierRun Run;
    SweepShare Share;
    std::vector<SweepStep> Steps; // of the share, in order
};

/// The share that a text K/N names: part K of N, counted from 1. WrongUse for any other text.
SweepShare ParseShare(const std::string& text);

/// The file of a share of the last sweep. `header` holds Program, Settings and Inputs.
std::string BytesOfPart(const nlohmann::ordered_json& header, const SweepShare& share);

/// Reads one. InputRefused, naming it, where it is not there, is not whole, or was written by another version
/// of the program; run-time errors 75, 70 and 7 as for ReadWholeFile.
SweepPart ReadPart(const std::string& path);

} // namespace vastrel
