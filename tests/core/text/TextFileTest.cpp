#include "core/text/TextFile.h"

#include "support/PeakMemory.h"
#include "support/RaisedError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

using namespace vastrel;

namespace {

using Lines = std::vector<std::string>;

Lines LinesOfFile(const std::string& path) {
    const TextFile file(path);
    LineReader reader(file);
    Lines lines;
    for (std::string line; reader.NextLine(line);)
        lines.push_back(line);
    return lines;
}

Lines LinesOf(const std::string& bytes) {
    const TemporaryFolder folder;
    return LinesOfFile(folder.Write("lines.txt", bytes));
}

} // namespace

TEST(TextFile, EndsLinesAtLfCrLfAndLoneCr) {
    EXPECT_EQ(LinesOf("a\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\r\nb\r\n"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\rb\r"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\nb\r\nc\rd\n"), (Lines{"a", "b", "c", "d"}));
}

TEST(TextFile, CountsALastLineWithoutAnEnd) {
    EXPECT_EQ(LinesOf("a\nb"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("a\r\nb"), (Lines{"a", "b"}));
}

TEST(TextFile, KeepsEmptyLines) {
    EXPECT_EQ(LinesOf(""), Lines{});
    EXPECT_EQ(LinesOf("\n"), (Lines{""}));
    EXPECT_EQ(LinesOf("\n\n"), (Lines{"", ""}));
    EXPECT_EQ(LinesOf("\r\n\r\n"), (Lines{"", ""}));
    EXPECT_EQ(LinesOf("\r\r"), (Lines{"", ""}));
    EXPECT_EQ(LinesOf("\n\r"), (Lines{"", ""})); // two ends, not one
    EXPECT_EQ(LinesOf("a\n\n\nb"), (Lines{"a", "", "", "b"}));
}

TEST(TextFile, PassesOverAByteOrderMarkAtTheHead) {
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF"
                      "a\nb"),
              (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF"), Lines{});
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF\n"), (Lines{""}));
    // Elsewhere it is a character, and half a mark is two of Windows-1252.
    EXPECT_EQ(LinesOf("a\n\xEF\xBB\xBF"
                      "b"),
              (Lines{"a", "\uFEFFb"}));
    EXPECT_EQ(LinesOf("\xEF\xBB"), (Lines{"ï»"}));
}

TEST(TextFile, KeepsBlanksAndOtherControlCharacters) {
    EXPECT_EQ(LinesOf("  a \t\n\fb\v\n"), (Lines{"  a \t", "\fb\v"}));
    EXPECT_EQ(LinesOf(std::string("a\0b\n", 4)), (Lines{std::string("a\0b", 3)}));
}

TEST(TextFile, ReadsUtf8AndWindows1252) {
    EXPECT_EQ(LinesOf("Z\xC3\xBCrich\nZ\xFCrich\n"), (Lines{"Zürich", "Zürich"}));
}

TEST(TextFile, SeesALineEndAcrossItsBuffer) {
    // A first line that fills a buffer of any power of two up to its last byte, which is the CR.
    for (const size_t size : {size_t{4096}, size_t{65536}, size_t{256} * 1024, size_t{1024} * 1024}) {
        const std::string first(size - 1, 'x');
        EXPECT_EQ(LinesOf(first + "\r\nb"), (Lines{first, "b"})) << size;
        EXPECT_EQ(LinesOf(first + "\rb"), (Lines{first, "b"})) << size;
        EXPECT_EQ(LinesOf(first + "\r"), (Lines{first})) << size;
        EXPECT_EQ(LinesOf(first + "\r\n"), (Lines{first})) << size;
    }
}

TEST(TextFile, NamesThePlaceOfTheLastLine) {
    const TemporaryFolder folder;
    const TextFile text(folder.Write("points.txt", "a\r\n\rc"));
    LineReader file(text);
    std::string line;
    file.NextLine(line);
    EXPECT_EQ(file.Place(), "line 1 of points.txt");
    file.NextLine(line);
    file.NextLine(line);
    EXPECT_EQ(line, "c");
    EXPECT_EQ(file.Place(), "line 3 of points.txt");
    EXPECT_FALSE(file.NextLine(line));
    EXPECT_EQ(line, "");
    EXPECT_EQ(file.Place(), "line 3 of points.txt");
}

TEST(TextFile, HasAFirstLineOrStops) {
    const TemporaryFolder folder;
    EXPECT_EQ(TextFile(folder.Write("a.txt", "x\ny")).FirstLine(), "x");
    EXPECT_EQ(TextFile(folder.Write("blank.txt", "\n")).FirstLine(), "");
    const std::string empty = folder.Write("empty.txt", "");
    EXPECT_EQ(ErrorNumberOf([&] { TextFile(empty).FirstLine(); }), InputPastEndOfFile);
    EXPECT_EQ(ErrorDescriptionOf([&] { TextFile(empty).FirstLine(); }),
              "Input past end of file\nempty.txt is empty.");
    const std::string mark = folder.Write("mark.txt", "\xEF\xBB\xBF");
    EXPECT_EQ(ErrorNumberOf([&] { TextFile(mark).FirstLine(); }), InputPastEndOfFile);
}

TEST(TextFile, StopsWhereThereIsNoFileToRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorNumberOf([&] { TextFile(folder / "missing.txt"); }), FileNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { TextFile(folder / "no/such/folder.txt"); }), FileNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { TextFile(folder.Path()); }), PathFileAccessError);
    EXPECT_EQ(ErrorNumberOf([] { TextFile(""); }), FileNotFound);
    if (geteuid() == 0) GTEST_SKIP() << "Root may read every file.";
    const std::string locked = folder.Write("locked.txt", "a");
    std::filesystem::permissions(locked, std::filesystem::perms::none);
    EXPECT_EQ(ErrorNumberOf([&] { TextFile file(locked); }), PermissionDenied);
}

TEST(TextFile, FindsFilesWithNamesOutsideAscii) {
    const TemporaryFolder folder;
    EXPECT_EQ(LinesOfFile(folder.Write("Zürich 東京.txt", "a\n")), (Lines{"a"}));
}

TEST(TextFile, ReadsALineUpToItsLimit) {
    const TemporaryFolder folder;
    const std::string longest(TextFile::LongestLine, 'x');
    const std::string path = folder.Write("long.txt", "a\n" + longest + "\n" + longest + "x\n");
    const TextFile text(path);
    LineReader file(text);
    std::string line;
    ASSERT_TRUE(file.NextLine(line));
    ASSERT_TRUE(file.NextLine(line));
    EXPECT_EQ(line.size(), TextFile::LongestLine);
    EXPECT_EQ(ErrorDescriptionOf([&] { file.NextLine(line); }),
              "Out of string space\nline 3 of long.txt is longer than the limit of 16 MB.");
}

TEST(TextFile, HoldsItsBytesOnce) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("huge.txt", "");
    std::filesystem::resize_file(path, HundredMegabytes); // zero bytes, no line end
    const auto before = PeakMemory();
    const TextFile file(path);
    EXPECT_EQ(ErrorNumberOf([&] { file.CountLines(); }), OutOfStringSpace);
    EXPECT_EQ(ErrorNumberOf([&] { file.FirstLine(); }), OutOfStringSpace);
    EXPECT_LT(PeakMemory() - before, HundredMegabytes * 5 / 4);
}

TEST(TextFile, CountsWhatIsRead) {
    for (const auto& [bytes, count] : {std::pair{"", 0}, {"a", 1}, {"a\n", 1}, {"a\n\n", 2}, {"a\r\rb", 3}})
        EXPECT_EQ(TextFile("lines.txt", bytes).CountLines(), count) << bytes;
}

TEST(TextFile, KeepsWhatItReadWhenTheFileIsEmptied) {
    const TemporaryFolder folder;
    const TextFile file(folder.Write("lines.txt", "a\nb\n"));
    folder.Write("lines.txt", "");
    EXPECT_EQ(file.CountLines(), 2);
    EXPECT_EQ(file.FirstLine(), "a");
    EXPECT_EQ(file.Bytes(), "a\nb\n");
}

// ---- Fields

TEST(SplitAtCommas, GivesTheFieldsAsTheyStand) {
    EXPECT_EQ(SplitAtCommas("12,435.5,881.25,20500,17"), (Lines{"12", "435.5", "881.25", "20500", "17"}));
    EXPECT_EQ(SplitAtCommas(" a b , c"), (Lines{" a b ", " c"}));
    EXPECT_EQ(SplitAtCommas("a"), (Lines{"a"}));
    EXPECT_EQ(SplitAtCommas("\"a,b\""), (Lines{"\"a", "b\""})); // quotes mean nothing
}

TEST(SplitAtCommas, CountsEmptyFieldsButNoneOfAnEmptyLine) {
    EXPECT_EQ(SplitAtCommas(""), Lines{});
    EXPECT_EQ(SplitAtCommas(","), (Lines{"", ""}));
    EXPECT_EQ(SplitAtCommas("a,"), (Lines{"a", ""}));
    EXPECT_EQ(SplitAtCommas(",,a,,"), (Lines{"", "", "a", "", ""}));
    EXPECT_EQ(SplitAtCommas(" "), (Lines{" "}));
}

TEST(SplitAtCommas, LeavesOutWhatIsBeyondTheMostAskedFor) {
    EXPECT_EQ(SplitAtCommas("a,b,c", 2), (Lines{"a", "b"}));
    EXPECT_EQ(SplitAtCommas("a,b,c", 3), (Lines{"a", "b", "c"}));
    EXPECT_EQ(SplitAtCommas("a,b,c", 4), (Lines{"a", "b", "c"}));
    EXPECT_EQ(SplitAtCommas("a,", 1), (Lines{"a"}));
}

TEST(FieldAt, StopsWhereTheLineHasFewer) {
    const Lines fields = {"a", "b"};
    EXPECT_EQ(FieldAt(fields, 1, "line 1 of a.txt"), "b");
    EXPECT_EQ(ErrorNumberOf([&] { FieldAt(fields, 2, ""); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorDescriptionOf([&] { FieldAt(fields, 2, "line 7 of a.txt"); }),
              "Subscript out of range\nline 7 of a.txt has 2 fields, field 3 is missing.");
    EXPECT_EQ(ErrorNumberOf([] { FieldAt({}, 0, ""); }), SubscriptOutOfRange);
}

// ---- Writing

#ifdef _WIN32
constexpr const char* TwoLines = "a\r\nb\r\n";
#else
constexpr const char* TwoLines = "a\nb\n";
#endif

TEST(WriteTextFile, EndsEveryLine) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("out.txt", "what stood there before and is longer");
    WriteTextFile(path, {"a", "b"});
    EXPECT_EQ(ReadFile(path), TwoLines);
    EXPECT_EQ(JoinLines({"a", "b"}), TwoLines);
    WriteTextFile(path, {});
    EXPECT_EQ(ReadFile(path), "");
    EXPECT_EQ(LinesOf(JoinLines({"Zürich", "", " x"})), (Lines{"Zürich", "", " x"}));
}

TEST(WriteFile, WritesTheBytesAsTheyAre) {
    const TemporaryFolder folder;
    const std::string bytes("a\r\n\0\xFF", 5);
    WriteFile(folder / "out.bin", bytes);
    EXPECT_EQ(ReadFile(folder / "out.bin"), bytes);
}

TEST(WriteFile, StopsWhereNothingCanBeWritten) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorNumberOf([&] { WriteFile(folder.Path(), "a"); }), PathFileAccessError);
    EXPECT_EQ(ErrorNumberOf([&] { WriteFile(folder / "no/such/folder.txt", "a"); }), PathFileAccessError);
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_EQ(ErrorNumberOf([] { WriteFile("/dev/full", "a"); }), DiskFull);
    }
    if (geteuid() == 0) GTEST_SKIP() << "Root may write every file.";
    const std::string locked = folder.Write("locked.txt", "a");
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read);
    EXPECT_EQ(ErrorNumberOf([&] { WriteFile(locked, "b"); }), PermissionDenied);
    EXPECT_EQ(ReadFile(locked), "a");
}
