#include "core/text/WholeFile.h"

#include "core/platform/AvailableMemory.h"
#include "core/text/TextFile.h"
#include "support/FilledPipe.h"
#include "support/RaisedError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

using namespace vastrel;

TEST(WholeFile, IsReadAsItStands) {
    const TemporaryFolder folder;
    std::string every;
    for (int i = 0; i < 300000; ++i) // longer than one reading
        every += static_cast<char>(i * 7 % 256);
    for (const auto& bytes : {std::string(), std::string("a\0\r\n\x1A", 5), every})
        EXPECT_EQ(ReadWholeFile(folder.Write("a.bin", bytes)), bytes);
}

TEST(WholeFile, ReadsAPipeOnce) {
    std::string lines;
    for (int i = 0; i < 200000; ++i) // more than a pipe holds at a time
        lines += std::to_string(i) + "\n";
    const FilledPipe pipe(lines);
    const TextFile file(pipe.Path());
    EXPECT_EQ(file.CountLines(), 200000);
    EXPECT_EQ(file.FirstLine(), "0");
    EXPECT_EQ(file.Bytes(), lines);
}

TEST(WholeFile, StopsAtTheLimit) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", std::string(3000000, 'x'));
    EXPECT_EQ(ReadWholeFile(path, 3000000).size(), 3000000U);
    EXPECT_EQ(ErrorNumberOf([&] { ReadWholeFile(path, 2999999); }), OutOfMemory);
    EXPECT_EQ(ErrorDescriptionOf([&] { ReadWholeFile(path, 2 * 1024 * 1024); }),
              "Out of memory\na.txt holds more than the 2 MB that may be read here.");
}

TEST(WholeFile, EndsAnEndlessInputAtTheLimit) {
    if (!std::filesystem::exists("/dev/zero")) GTEST_SKIP() << "There is no endless file here.";
    EXPECT_EQ(ErrorDescriptionOf([] { ReadWholeFile("/dev/zero", 5 * 1024 * 1024); }),
              "Out of memory\nzero holds more than the 5 MB that may be read here.");
}

TEST(WholeFile, TellsAReadingThatBreaksOff) {
    const char* own = "/proc/self/mem"; // opens, and its first bytes cannot be read
    if (access(own, R_OK) != 0) GTEST_SKIP() << "There is no file here that breaks off.";
    EXPECT_EQ(ErrorDescriptionOf([&] { ReadWholeFile(own); }),
              "Path/File access error\n/proc/self/mem could not be read to its end.");
}

TEST(WholeFile, MayFillHalfOfTheMemoryThatIsFree) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.txt", std::string(1000, 'x'));
    ForceAvailableMemory([] { return std::uint64_t{2000}; });
    EXPECT_EQ(ReadWholeFile(path).size(), 1000U);
    EXPECT_EQ(LargestPipe(), 1000U);
    ForceAvailableMemory([] { return std::uint64_t{1999}; });
    EXPECT_EQ(ErrorNumberOf([&] { ReadWholeFile(path); }), OutOfMemory);
    EXPECT_EQ(ErrorNumberOf([] { ReadWholeFile("/dev/zero"); }), OutOfMemory);
    ForceAvailableMemory([] { return ~std::uint64_t{0}; });
    EXPECT_EQ(LargestPipe(), std::uint64_t{4} << 30U);
    ForceAvailableMemory({});
}
