// The words of the command line, its surfaces and its texts. An input is a word a line.
#include "CommandLine.h"
#include "InputParts.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    std::vector<std::string> words;
    for (InputParts parts(data, size); !parts.IsEmpty();)
        words.push_back(WithoutFolders(parts.TakeLine()));
    RunCommandLine(words);
    return 0;
}
