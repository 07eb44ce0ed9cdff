// The settings of a command in a file: a configuration, and the JSON of an earlier run. An input is a byte
// for the command and the file.
#include "CommandLine.h"
#include "InputFolder.h"
#include "InputParts.h"

#include <array>

using namespace vastrel;

namespace {

const std::array<std::vector<std::string>, 6> Commands{{
    {"again", "settings"},
    {"retrospective-points", "none.txt", "--config", "settings"},
    {"retrospective-polygons", "none.shp", "--config", "settings"},
    {"prospective-points", "--ids", "none.txt", "--config", "settings"},
    {"prospective-polygons", "none.shp", "--config", "settings"},
    {"h-value", "--config", "settings"},
}};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const auto& words = Commands.at(parts.TakeChoice(Commands.size()));
    WriteInput("settings", WithoutFolders(parts.Rest()));
    RunCommandLine(words);
    return 0;
}
