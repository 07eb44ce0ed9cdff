#include "support/BatchProgramShell.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <set>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

/// A run on the sample of points; what follows are outputs.
std::string Points() {
    return "\"$BATCH\" retrospective-points '" + InProject("samples/country_pop.txt") +
           "' --format pop-case ";
}

Names NamesIn(const TemporaryFolder& folder) {
    Names names;
    for (const auto& entry : fs::directory_iterator(folder.Path()))
        names.insert(entry.path().filename().string());
    return names;
}

/// The outputs of one run, an old file among them, under limits that a shell sets.
class LimitedRun {
public:
    explicit LimitedRun(const std::string& limit) {
        folder_.Write("lists", "before");
        Result = RunShell("cd '" + folder_.Path() + "'; " + limit + "; exec " + Points() +
                          "--sigma 1 --lists lists --json json");
    }

    /// Whether the folder is as it was; with status 0 it holds all that is new. A loader that cannot start
    /// the program at all ends with 127.
    void ExpectAllOrNothing(const std::string& limit) const {
        if (Result.Status == 0) {
            EXPECT_EQ(NamesIn(folder_), (Names{"json", "lists"})) << limit;
            EXPECT_NE(ReadFile(folder_ / "lists"), "before") << limit;
            EXPECT_EQ(ReadFile(folder_ / "json").substr(0, 1), "{") << limit;
            return;
        }
        EXPECT_TRUE(Result.Status == 4 || Result.Status == 127) << limit << ": " << Result;
        EXPECT_EQ(NamesIn(folder_), Names{"lists"}) << limit;
        EXPECT_EQ(ReadFile(folder_ / "lists"), "before") << limit;
    }

    BatchResult Result;

private:
    TemporaryFolder folder_;
};

constexpr int NoDisk = 77;

/// A command on a disk of its own, which holds an old file "lists" and goes when the command ends. What it
/// leaves there is the output: the names, and the first bytes of "lists".
BatchResult OnADiskOf(int kilobytes, const std::string& command) {
    const TemporaryFolder disk;
    return RunShell("export BATCH; unshare --map-root-user --mount true || exit 77\n"
                    "unshare --map-root-user --mount sh <<'END'\n"
                    "mount -t tmpfs -o size=" +
                    std::to_string(kilobytes) + "k tmpfs '" + disk.Path() + "' && cd '" + disk.Path() +
                    "' || exit 77\nprintf before >lists\n" + command +
                    "\nstatus=$?; ls -A; head -c 6 lists; exit $status\nEND");
}

} // namespace

TEST(OutputFaults, AFullOrClosedStandardOutputIsTold) {
    for (const std::string words :
         {"--help", "--version", "p-value --help", "export --version", "p-value normal 1",
          "h-value --option overall --k 0.5 --arl0 100", "p-value chi-square 10 3"})
        for (const std::string where : {">/dev/full", ">&-"}) {
            const auto result = RunShell("\"$BATCH\" " + words + " " + where);
            EXPECT_EQ(result.Status, 4) << words << where;
            EXPECT_EQ(result.Errors.rfind("Run-time error '61':", 0), 0U) << words << where << result;
        }
    const TemporaryFolder folder;
    for (const std::string where : {">/dev/full", ">&-"}) {
        const auto result =
            RunShell(Points() + "--sigma 1 --lists - --json '" + (folder / "json") + "' " + where);
        EXPECT_EQ(result.Status, 4) << result;
        EXPECT_EQ(NamesIn(folder), Names{});
    }
}

TEST(OutputFaults, AFileDoesNotTakeThePlaceOfAClosedStream) {
    const TemporaryFolder folder;
    const std::string lists = "--sigma 1 --lists '" + (folder / "lists") + "' ";
    ASSERT_EQ(RunShell(Points() + lists).Status, 0);
    const auto whole = ReadFile(folder / "lists");
    for (const std::string closed : {"<&-", ">&-", "2>&-", "<&- >&- 2>&-"}) {
        EXPECT_EQ(RunShell(Points() + lists + closed).Status, 0) << closed;
        EXPECT_EQ(ReadFile(folder / "lists"), whole) << closed;
        const auto refused = RunShell(Points() + "--sigma x --lists '" + (folder / "lists") + "' " + closed);
        EXPECT_EQ(refused.Status, 3) << closed;
        EXPECT_EQ(ReadFile(folder / "lists"), whole) << closed;
    }
}

TEST(OutputFaults, FewDescriptorsWriteAllOrNothing) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizer's own checks open pipes.";
#endif
    int done = 0;
    for (int most = 3; most <= 12; ++most) {
        const std::string limit = "ulimit -n " + std::to_string(most);
        const LimitedRun run(limit);
        run.ExpectAllOrNothing(limit);
        done += run.Result.Status == 0 ? 1 : 0;
    }
    EXPECT_GT(done, 0);
}

TEST(OutputFaults, SmallFilesWriteAllOrNothing) {
    int failed = 0;
    for (const int blocks : {1, 2, 4, 20, 60, 100, 100000}) {
        const std::string limit = "ulimit -f " + std::to_string(blocks);
        const LimitedRun run(limit);
        run.ExpectAllOrNothing(limit);
        failed += run.Result.Status == 4 ? 1 : 0;
    }
    EXPECT_GT(failed, 2);
}

TEST(OutputFaults, ASmallDiskHoldsAllOrNothing) {
    int failed = 0;
    for (const int kilobytes : {4, 8, 12, 24, 48, 96, 100000}) {
        const auto result = OnADiskOf(kilobytes, Points() + "--sigma 1 --lists lists --json json");
        if (result.Status == NoDisk) GTEST_SKIP() << "No disk can be mounted here. " << result;
        SCOPED_TRACE(kilobytes);
        if (result.Status == 0) {
            EXPECT_EQ(result.Output.substr(0, 11), "json\nlists\n") << result;
            EXPECT_EQ(result.Output.find("before"), std::string::npos) << result;
            continue;
        }
        EXPECT_EQ(result.Status, 4) << result;
        EXPECT_EQ(result.Output, "lists\nbefore") << result;
        ++failed;
    }
    EXPECT_GT(failed, 2);
}

TEST(OutputFaults, ASignalAtABlockedPipeLeavesAllOld) {
    const TemporaryFolder folder;
    folder.Write("lists", "before");
    const auto result =
        RunShell("cd '" + folder.Path() + "'; mkfifo pipe; exec 3<>pipe\n" + // which nobody reads
                 Points() +
                 "--variable freeman-tukey --from 0.1 --to 6 --step 0.05 --lists lists --json - >pipe &\n"
                 "for k in $(seq 200); do [ -e .lists~ ] && break; sleep 0.1; done\n"
                 "sleep 0.3; ls -A; kill -TERM $!; wait $!");
    EXPECT_EQ(result.Output, ".lists~\nlists\npipe\n") << result;
    EXPECT_EQ(result.Status, 128 + SIGTERM) << result;
    EXPECT_EQ(NamesIn(folder), (Names{"lists", "pipe"}));
    EXPECT_EQ(ReadFile(folder / "lists"), "before");
}
