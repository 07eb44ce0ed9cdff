#include "support/BatchProgram.h"

#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <sys/wait.h>

namespace vastrel {

namespace {

std::string Quoted(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const BatchResult& result) {
    return stream << "status " << result.Status << "\n--- output\n"
                  << result.Output << "--- errors\n"
                  << result.Errors;
}

BatchResult RunBatch(const std::vector<std::string>& words) {
    const TemporaryFolder folder;
    std::string command = Quoted(BATCH_PROGRAM);
    for (const auto& word : words)
        command += " " + Quoted(word);
    command += " >" + Quoted(folder / "output") + " 2>" + Quoted(folder / "errors") + " </dev/null";
    const int ended = std::system(command.c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : 128 + WTERMSIG(ended), ReadFile(folder / "output"),
            ReadFile(folder / "errors")};
}

} // namespace vastrel
