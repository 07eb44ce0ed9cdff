#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vastrel {

/// Runs the batch program's command line in the process's own folder, in which it finds no data: a run ends
/// where it would open its first file of those, and only what needs none comes to its result. Wrong use and
/// refusals are how words are refused; standard output and standard error stay silent.
void RunCommandLine(const std::vector<std::string>& words);

/// The text with nothing in it that leads out of that folder.
std::string WithoutFolders(std::string_view text);

} // namespace vastrel
