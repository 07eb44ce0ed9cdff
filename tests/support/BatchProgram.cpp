#include "support/BatchProgram.h"

#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace vastrel {

namespace {

std::string Quoted(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string CommandOf(const std::vector<std::string>& words) {
    std::string command = Quoted(BATCH_PROGRAM);
    for (const auto& word : words)
        command += " " + Quoted(word);
    return command;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const BatchResult& result) {
    return stream << "status " << result.Status << "\n--- output\n"
                  << result.Output << "--- errors\n"
                  << result.Errors;
}

BatchResult RunBatch(const std::vector<std::string>& words) {
    BatchResult result = RunBatchWithNotes(words);
    const size_t at = result.Errors.find(DegreesNote);
    if (at != std::string::npos) result.Errors.erase(at, DegreesNote.size());
    return result;
}

BatchResult RunBatchWithNotes(const std::vector<std::string>& words) {
    const TemporaryFolder folder;
    std::string command = CommandOf(words);
    command += " >" + Quoted(folder / "output") + " 2>" + Quoted(folder / "errors") + " </dev/null";
    const int ended = std::system(command.c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : 128 + WTERMSIG(ended), ReadFile(folder / "output"),
            ReadFile(folder / "errors")};
}

std::string ShownOnTerminal(const std::vector<std::string>& words) {
    const TemporaryFolder folder;
    const std::string command = "script --quiet --command " + Quoted(CommandOf(words)) + " " +
                                Quoted(folder / "log") + " >" + Quoted(folder / "shown") + " </dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return ReadFile(folder / "shown");
}

} // namespace vastrel
