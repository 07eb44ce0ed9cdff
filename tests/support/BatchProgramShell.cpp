#include "support/BatchProgramShell.h"

#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <sys/wait.h>

namespace vastrel {

BatchResult RunShell(const std::string& script) {
    const TemporaryFolder folder;
    const auto file = folder.Write("script", "BATCH='" BATCH_PROGRAM "'\n" + script + "\n");
    const std::string command =
        "sh '" + file + "' >'" + (folder / "output") + "' 2>'" + (folder / "errors") + "' </dev/null";
    const int ended = std::system(command.c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : 128 + WTERMSIG(ended), ReadFile(folder / "output"),
            ReadFile(folder / "errors")};
}

} // namespace vastrel
