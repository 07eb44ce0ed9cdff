#include "core/text/OutputSet.h"

#include "core/platform/RunTimeError.h"
#include "support/FileSizeLimit.h"
#include "support/SystemFaults.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

// A set of outputs of all kinds is written again and again, and each time something else happens from
// outside. Afterwards all files are as they were or all are new, and nothing stands beside them.

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using State = std::map<std::string, std::string>;

constexpr int Written = 0;
constexpr int Failed = 4;
constexpr int NotReached = 5; // written, and the call concerned did not come

/// A new folder with an old file, one of two names and a link, and what is to be written there.
class Scene {
public:
    Scene() {
        folder_.Write("old", "the old bytes");
        chmod((folder_ / "old").c_str(), 0640);
        folder_.Write("linked", "short");
        fs::create_hard_link(folder_ / "linked", folder_ / "other name");
        folder_.Write("target", "what a link points to");
        fs::create_symlink("target", folder_ / "link");
    }

    /// How a process ends that writes all and meets the faults.
    int StatusWith(const SystemFaults& faults) const {
        const pid_t child = fork();
        if (child == 0) {
            const int nowhere = open("/dev/null", O_WRONLY);
            dup2(nowhere, STDOUT_FILENO);
            Meet(faults);
            _exit(Write());
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    /// Everything in the folder: kinds, permissions, number of names, bytes.
    State Now() const {
        State state;
        for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
            struct stat is = {};
            lstat(entry.path().c_str(), &is);
            const bool file = S_ISREG(is.st_mode);
            state[entry.path().string().substr(folder_.Path().size())] =
                std::to_string(is.st_mode) + (file ? " " + std::to_string(is.st_nlink) + " " : "") +
                (file ? ReadFile(entry.path()) : "");
        }
        return state;
    }

private:
    int Write() const {
        try {
            OutputSet set;
            set.AddFolder(folder_ / "made/deep");
            set.Add(folder_ / "linked", "longer than before");
            set.Add(folder_ / "old", "new");
            set.Add("-", "to standard output");
            set.Add(folder_ / "made/deep/new", "in a new folder");
            set.Add(folder_ / "link", "through a link");
            set.Add(folder_ / "new", "new too");
            set.Commit();
            return CallCame() ? Written : NotReached;
        } catch (const RunTimeError&) {
            return Failed;
        }
    }

    TemporaryFolder folder_;
};

class OutputFaults : public testing::Test {
protected:
    OutputFaults() : old_(Scene().Now()) {
        const Scene scene;
        EXPECT_EQ(scene.StatusWith({}), NotReached);
        new_ = scene.Now();
    }

    /// Runs with the fault at each call, up to the last; gives how many calls there were.
    int AtEachCall(SystemFaults faults) const {
        constexpr int most = 1000;
        for (faults.AtCall = 1; faults.AtCall < most; ++faults.AtCall) {
            const Scene scene;
            const int status = scene.StatusWith(faults);
            if (status == NotReached) return faults.AtCall - 1;
            const State now = scene.Now();
            if (faults.Signal == 0) {
                EXPECT_TRUE(status == Written || status == Failed) << status;
                EXPECT_EQ(now, status == Written ? new_ : old_) << "call " << faults.AtCall;
            } else {
                EXPECT_EQ(status, -faults.Signal) << "call " << faults.AtCall;
                EXPECT_TRUE(now == old_ || now == new_)
                    << "call " << faults.AtCall << ": " << testing::PrintToString(now);
            }
        }
        return most;
    }

    State old_, new_;
};

} // namespace

TEST(OutputOrder, BytesAndNamesAreOnTheDiskBeforeTheyTakeAPlace) {
    const TemporaryFolder folder;
    folder.Write("old", "old");
    folder.Write("two", "old");
    fs::create_hard_link(folder / "two", folder / "names");
    OutputSet set;
    set.Add(folder / "old", "new");
    set.Add(folder / "two", "new");
    set.Add("/dev/null", "to a device");
    Meet({});
    set.Commit();
    EXPECT_EQ(MetCalls(), "wswsS" // both beside, and the names of the folder
                          "w"     // the device
                          "ws"    // the one of two names in place
                          "r"     // the other
                          "S");
}

TEST_F(OutputFaults, AnErrorOfAnyCallLeavesAllOldOrAllNew) {
    for (const int error : {EIO, ENOSPC, EACCES, EBUSY})
        for (const bool links : {true, false}) {
            SystemFaults faults;
            faults.Error = error;
            faults.Links = links;
            EXPECT_GT(AtEachCall(faults), 30);
        }
}

TEST_F(OutputFaults, ASignalAtAnyCallLeavesAllOldOrAllNew) {
    for (const int signal : {SIGINT, SIGTERM, SIGXFSZ, SIGHUP})
        for (const bool links : {true, false}) {
            SystemFaults faults;
            faults.Signal = signal;
            faults.Links = links;
            EXPECT_GT(AtEachCall(faults), 30);
        }
}

TEST_F(OutputFaults, ADiskThatIsFullAtAnyByteLeavesAllOld) {
    for (off_t room = 0;; ++room) {
        const Scene scene;
        SystemFaults faults;
        faults.Room = room;
        const int status = scene.StatusWith(faults);
        if (status == NotReached) {
            EXPECT_EQ(scene.Now(), new_);
            EXPECT_GE(room, 50); // all that is written first
            return;
        }
        ASSERT_EQ(status, Failed) << room;
        ASSERT_EQ(scene.Now(), old_) << room;
    }
}

TEST_F(OutputFaults, ALimitOnTheSizeOfFilesIsAFullDisk) {
    for (rlim_t limit = 0; limit <= 20; ++limit) {
        const Scene scene;
        const int status = [&] {
            const FileSizeLimit inherited(limit);
            return scene.StatusWith({});
        }();
        const bool enough = limit >= std::string("longer than before").size();
        EXPECT_EQ(status, enough ? NotReached : Failed) << limit;
        EXPECT_EQ(scene.Now(), enough ? new_ : old_) << limit;
    }
}

TEST_F(OutputFaults, ASignalThatIsIgnoredStaysIgnored) {
    const Scene scene;
    std::signal(SIGHUP, SIG_IGN); // as nohup has it
    SystemFaults faults;
    faults.Signal = SIGHUP;
    faults.AtCall = 10;
    EXPECT_EQ(scene.StatusWith(faults), Written);
    std::signal(SIGHUP, SIG_DFL);
    EXPECT_EQ(scene.Now(), new_);
}
