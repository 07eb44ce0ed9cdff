#include "CommandLine.h"

#include "FuzzTarget.h"
#include "InputFolder.h"
#include "batch/ConsolePlatform.h"
#include "batch/Program.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace vastrel {

namespace {

/// Sends standard output and the program's own words to nowhere.
bool Silence() {
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (null < 0 || dup2(null, STDOUT_FILENO) < 0) std::abort();
    std::cerr.rdbuf(nullptr);
    return true;
}

/// Stands in the process's own folder for as long as it lives.
class InFolder {
public:
    InFolder() {
        if (chdir(InputFolder().c_str()) != 0) std::abort();
    }
    ~InFolder() {
        if (chdir(before_.c_str()) != 0) std::abort();
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    std::string before_ = std::filesystem::current_path().string();
};

} // namespace

void RunCommandLine(const std::vector<std::string>& words) {
    [[maybe_unused]] static const bool silent = Silence();
    const InFolder inFolder;
    RunOnInput([&] {
        ConsolePlatform console;
        Program program(console);
        try {
            program.Run(words);
        } catch (const CLI::ParseError& error) {
            std::ostringstream output;
            program.Parser().exit(error, output, output);
        } catch (const WrongUse&) {
        } catch (const InputRefused&) {
        }
    });
}

std::string WithoutFolders(std::string_view text) {
    std::string plain(text);
    std::replace(plain.begin(), plain.end(), '/', '_');
    return plain;
}

} // namespace vastrel
