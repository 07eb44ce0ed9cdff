#include "core/text/OutputSet.h"

#include "core/platform/RunTimeError.h"
#include "support/OrdinaryUser.h"
#include "support/RaisedError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

void Save(const std::string& path, const std::string& bytes) {
    OutputSet set;
    set.Add(path, bytes);
    set.Commit();
}

/// All names in a folder, hidden ones too.
Names NamesIn(const TemporaryFolder& folder) {
    Names names;
    for (const auto& entry : fs::directory_iterator(folder.Path()))
        names.insert(entry.path().filename().string());
    return names;
}

struct stat StatOf(const std::string& path) {
    struct stat is = {};
    EXPECT_EQ(lstat(path.c_str(), &is), 0) << path;
    return is;
}

/// An ordinary user writes over a file that everybody may write, in a folder of this mode, and then finds
/// `further` to be true.
void SaveOverAFileOfAll(const TemporaryFolder& folder, unsigned mode, const std::function<bool()>& further) {
    const auto path = folder.Write("a", "the old text");
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    ExpectOfAnOrdinaryUser(
        folder,
        [&] {
            Save(path, "new");
            return further();
        },
        mode);
    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_EQ(NamesIn(folder), Names{"a"});
}

/// A pipe whose reader lets something happen before it takes more than a pipe holds: that is after the
/// staging and before the moves of a set that writes to it.
class Between {
public:
    Between(const TemporaryFolder& folder, const std::function<void()>& happens) : path_(folder / "pipe") {
        EXPECT_EQ(mkfifo(path_.c_str(), 0600), 0);
        reader_ = std::thread([this, happens] {
            std::ifstream stream(path_);
            happens();
            read_.assign(std::istreambuf_iterator<char>(stream), {});
        });
    }
    ~Between() {
        reader_.join();
        EXPECT_EQ(read_, Bytes());
    }
    Between(const Between&) = delete;
    Between& operator=(const Between&) = delete;

    const std::string& Path() const { return path_; }
    static std::string Bytes() { return std::string(200000, 'x'); }

private:
    std::string path_, read_;
    std::thread reader_;
};

} // namespace

// ---- One file

TEST(OutputSet, CreatesAndReplaces) {
    const TemporaryFolder folder;
    Save(folder / "a", "new");
    EXPECT_EQ(ReadFile(folder / "a"), "new");
    Save(folder / "a", "");
    EXPECT_EQ(ReadFile(folder / "a"), "");
    EXPECT_EQ(NamesIn(folder), Names{"a"});
}

TEST(OutputSet, GivesANewFileTheRightsOfTheUsersMask) {
    const TemporaryFolder folder;
    const mode_t before = umask(027);
    Save(folder / "a", "new");
    umask(before);
    EXPECT_EQ(StatOf(folder / "a").st_mode & 07777U, 0640U);
}

TEST(OutputSet, KeepsPermissionsAndOwner) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a", "old");
    const bool chowned = chown(path.c_str(), 65534, 65534) == 0;
    ASSERT_EQ(chmod(path.c_str(), 0751), 0);
    const auto before = StatOf(path);
    Save(path, "new");
    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_EQ(StatOf(path).st_mode, before.st_mode);
    EXPECT_EQ(StatOf(path).st_uid, before.st_uid);
    EXPECT_EQ(StatOf(path).st_gid, before.st_gid);
    EXPECT_NE(StatOf(path).st_ino, before.st_ino); // moved, not written over
    if (!chowned) GTEST_SKIP() << "only the superuser gives files away";
}

TEST(OutputSet, LeavesALinkALink) {
    const TemporaryFolder folder;
    folder.Write("target", "old");
    fs::create_symlink("target", folder / "second");
    fs::create_symlink(folder / "second", folder / "first");
    Save(folder / "first", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "first"));
    EXPECT_TRUE(fs::is_symlink(folder / "second"));
    EXPECT_EQ(ReadFile(folder / "target"), "new");
    EXPECT_EQ(NamesIn(folder), (Names{"first", "second", "target"}));
}

TEST(OutputSet, MakesTheTargetOfADanglingLink) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "deep");
    fs::create_symlink("deep/target", folder / "link");
    Save(folder / "link", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(ReadFile(folder / "deep/target"), "new");
    fs::create_symlink("no/such/folder", folder / "lost");
    EXPECT_EQ(ErrorNumberOf([&] { Save(folder / "lost", "new"); }), PathFileAccessError);
    fs::create_symlink("ring", folder / "ring");
    EXPECT_EQ(ErrorNumberOf([&] { Save(folder / "ring", "new"); }), PathFileAccessError);
}

TEST(OutputSet, WritesAFileOfOtherNamesInPlace) {
    const TemporaryFolder folder;
    for (const std::string old : {"old", "an old text that is longer than the new one"}) {
        const auto path = folder.Write("a", old);
        fs::remove(folder / "other");
        fs::create_hard_link(path, folder / "other");
        Save(path, "new text");
        EXPECT_EQ(ReadFile(path), "new text");
        EXPECT_EQ(ReadFile(folder / "other"), "new text");
        EXPECT_EQ(StatOf(path).st_nlink, 2U);
        EXPECT_EQ(NamesIn(folder), (Names{"a", "other"}));
    }
}

TEST(OutputSet, TakesNamesUpToTheLongest) {
    const TemporaryFolder folder;
    for (const size_t length : {252U, 253U, 254U, 255U}) {
        const std::string name(length, 'n');
        Save(folder / name, "new");
        Save(folder / name, "newer");
        EXPECT_EQ(ReadFile(folder / name), "newer");
    }
    std::string umlauts;
    while (umlauts.size() < 254)
        umlauts += "ü";
    Save(folder / umlauts, "new");
    EXPECT_EQ(ReadFile(folder / umlauts), "new");
    EXPECT_EQ(ErrorNumberOf([&] { Save(folder / std::string(256, 'n'), "new"); }), PathFileAccessError);
    EXPECT_EQ(NamesIn(folder).size(), 5U);
}

TEST(OutputSet, LeavesHiddenNamesOfOthersAlone) {
    const TemporaryFolder folder;
    folder.Write(".a~", "somebody's");
    folder.Write(".a~2", "somebody's too");
    Save(folder / "a", "new");
    EXPECT_EQ(ReadFile(folder / "a"), "new");
    EXPECT_EQ(ReadFile(folder / ".a~"), "somebody's");
    EXPECT_EQ(ReadFile(folder / ".a~2"), "somebody's too");
    EXPECT_EQ(NamesIn(folder), (Names{"a", ".a~", ".a~2"}));
}

TEST(OutputSet, WritesAFileInAFolderThatMayNotBeWritten) {
    const TemporaryFolder folder;
    const auto mayNotAddFiles = [&] {
        return ErrorNumberOf([&] { Save(folder / "b", "new"); }) == PermissionDenied;
    };
    SaveOverAFileOfAll(folder, 0555, mayNotAddFiles);
}

TEST(OutputSet, DoesNotReplaceAWriteProtectedFile) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a", "old");
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    ExpectOfAnOrdinaryUser(
        folder, [&] { return ErrorNumberOf([&] { Save(path, "new"); }) == PermissionDenied; }, 0777);
    EXPECT_EQ(ReadFile(path), "old");
    EXPECT_EQ(NamesIn(folder), Names{"a"});
}

TEST(OutputSet, LeavesAFileOfAnotherOwnerToThem) {
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser makes files of another owner";
    const TemporaryFolder folder;
    SaveOverAFileOfAll(folder, 0777, [] { return true; });
    EXPECT_EQ(StatOf(folder / "a").st_uid, 0U);
}

// ---- What is no file

TEST(OutputSet, WritesToDescriptorsAndNeverReplacesThem) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a", "before ");
    const int opened = open(path.c_str(), O_WRONLY | O_APPEND);
    const auto number = std::to_string(opened);
    const auto before = StatOf(path).st_ino;
    fs::create_symlink("/dev/fd/" + number, folder / "link");
    Save("/dev/fd/" + number, "one ");
    Save("/proc/self/fd/" + number, "two ");
    Save("/proc/" + std::to_string(getpid()) + "/fd/" + number, "three ");
    Save(folder / "link", "four");
    close(opened);
    EXPECT_EQ(ReadFile(path), "before one two three four");
    EXPECT_EQ(StatOf(path).st_ino, before);
    EXPECT_EQ(NamesIn(folder), (Names{"a", "link"}));
    EXPECT_EQ(ErrorNumberOf([&] { Save("/dev/fd/" + number, ""); }), PathFileAccessError);
}

TEST(OutputSet, WritesToDevices) {
    Save("/dev/null", "all of it");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is full";
    EXPECT_EQ(ErrorNumberOf([] { Save("/dev/full", "a"); }), DiskFull);
}

// ---- Several files

TEST(OutputSet, WritesAllOrNothing) {
    const TemporaryFolder folder;
    const auto old = folder.Write("old", "old");
    for (const auto& bad : {folder / "no/such/folder", folder.Path(), std::string("/dev/full")}) {
        OutputSet set;
        set.AddFolder(folder / "made/deep");
        set.Add(old, "new");
        set.Add(folder / "made/deep/a", "new");
        set.Add(folder / "b", "new");
        set.Add(bad, "new");
        EXPECT_NE(ErrorNumberOf([&] { set.Commit(); }), 0) << bad;
        EXPECT_EQ(ReadFile(old), "old");
        EXPECT_EQ(NamesIn(folder), Names{"old"}) << bad;
    }
}

TEST(OutputSet, PutsBackWhatWasMovedWhereAMoveFails) {
    const TemporaryFolder folder;
    const auto old = folder.Write("old", "old");
    const auto inode = StatOf(old).st_ino;
    const auto linked = folder.Write("linked", "one of two");
    fs::create_hard_link(linked, folder / "other");
    {
        const Between between(folder, [&] { fs::create_directory(folder / "last"); });
        OutputSet set;
        set.AddFolder(folder / "made");
        set.Add(between.Path(), Between::Bytes());
        for (const auto* name : {"old", "linked", "new", "made/new", "last"})
            set.Add(folder / name, "new bytes of this");
        EXPECT_EQ(ErrorNumberOf([&] { set.Commit(); }), PathFileAccessError);
    }
    EXPECT_EQ(ReadFile(old), "old");
    EXPECT_EQ(StatOf(old).st_ino, inode);
    EXPECT_EQ(ReadFile(linked), "one of two");
    EXPECT_EQ(NamesIn(folder), (Names{"linked", "last", "old", "other", "pipe"}));
}

TEST(OutputSet, LeavesTheNamesOfItsOwnFilesAlone) {
    const TemporaryFolder folder;
    fs::create_directory_symlink(folder.Path(), folder / "way");
    for (const bool exists : {false, true}) {
        OutputSet set;
        set.Add(folder / "way/.a~", exists ? "hidden once more" : "hidden");
        set.Add(folder / "a", exists ? "new once more" : "new");
        set.Commit();
        EXPECT_EQ(ReadFile(folder / ".a~"), exists ? "hidden once more" : "hidden");
        EXPECT_EQ(ReadFile(folder / "a"), exists ? "new once more" : "new");
        EXPECT_EQ(NamesIn(folder), (Names{"a", ".a~", "way"}));
    }
}
