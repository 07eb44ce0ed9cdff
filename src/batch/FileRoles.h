#pragma once

#include <CLI/CLI.hpp>

namespace vastrel {

/// Compares all files that the options of a parsed program and of its chosen command name, before any of them
/// is opened. WrongUse for an output that is an input, a file that belongs to an input shapefile, or another
/// output, by whatever spelling, link or hard link. Standard output may be named for several outputs ("-"),
/// and a run once more may write the file of its settings anew.
void RequireSeparateFiles(const CLI::App& program, bool onceMore = false);

} // namespace vastrel
