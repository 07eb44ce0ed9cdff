// What becomes of attribute tables that are not sound: all are errors that the open of a dataset shows as a
// plain message, after which it goes on.
#include "core/spatial/DbaseTable.h"

#include "core/numeric/Memory.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/Recordset.h"
#include "support/RaisedError.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

const std::string Sound =
    TableBytes({{"ID", 'N', 5}, {"NAME", 'C', 6}}, {{"    1", "Ashe"}, {"    2", "Surry"}});

// Places in the header: 32 bytes, then 32 a column, then the terminator.
constexpr size_t RowCount = 4, HeaderLength = 8, RowLength = 10, Column1 = 32, Column2 = 64, Terminator = 96;
constexpr size_t Width = 16;
constexpr size_t WholeHeader = 97, OneRow = 12;

std::string Sixteen(int value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

/// Opens the table and reads all of it.
RaisedError ReadAll(const TemporaryFolder& folder, const std::string& bytes) {
    const std::string path = folder.Write("t.dbf", bytes);
    return ErrorOf([&] { Recordset(path).GetString(); });
}

} // namespace

TEST(DbaseTable, EndsAsTheTableSays) {
    struct Case {
        const char* What;
        std::string Bytes;
        long Error;
    };
    const auto with = [](size_t place, const std::string& by) { return Replaced(Sound, place, by); };
    const Case cases[] = {
        {"sound", Sound, 0},
        {"empty", "", InputPastEndOfFile},
        {"text", std::string(40, 'x'), InputPastEndOfFile}, // its header would be longer than the file
        {"end mark missing", Sound.substr(0, Sound.size() - 1), 0},
        {"more rows told than there are", with(RowCount, LittleInteger(3)), InputPastEndOfFile},
        {"fewer rows told", with(RowCount, LittleInteger(1)), 0},
        {"row count negative", with(RowCount, LittleInteger(-1)), InputPastEndOfFile},
        {"row count huge", with(RowCount, LittleInteger(0x7FFFFFFF)), InputPastEndOfFile},
        {"header length 0", with(HeaderLength, Sixteen(0)), TypeMismatch},
        {"header length without columns", with(HeaderLength, Sixteen(33)), TypeMismatch},
        {"header length too short", with(HeaderLength, Sixteen(65)), TypeMismatch},
        {"header length too long", with(HeaderLength, Sixteen(130)), InputPastEndOfFile},
        {"header length beyond the file", with(HeaderLength, Sixteen(0xFFFF)), InputPastEndOfFile},
        {"row length 0", with(RowLength, Sixteen(0)), TypeMismatch},
        {"row length smaller than the columns", with(RowLength, Sixteen(11)), TypeMismatch},
        {"row length larger than the columns", with(RowLength, Sixteen(25)), InputPastEndOfFile},
        {"width of a column 0", with(Column1 + Width, Sixteen(0)), 0},
        {"width of a column too large", with(Column2 + Width, Sixteen(200)), TypeMismatch},
        {"terminator missing, columns fill the row", with(Terminator, " "), 0},
        {"terminator missing, columns do not", with(Terminator, " ").replace(RowLength, 2, Sixteen(13)),
         TypeMismatch},
        {"terminator before the first column", with(Column1, "\x0D"), TypeMismatch},
        {"unknown type of a column", with(Column1 + 11, "?"), 0},
        {"name of a column without an end", with(Column1, "ABCDEFGHIJK"), 0},
    };
    const TemporaryFolder folder;
    for (const auto& [what, bytes, number] : cases) {
        const auto error = ReadAll(folder, bytes);
        EXPECT_EQ(error.Number, number) << what;
        if (number == 0) continue;
        EXPECT_NE(error.Description.find("The attribute table " + (folder / "t.dbf")), std::string::npos)
            << what << ": " << error;
        EXPECT_NE(error.Description.find("Restore the file from its source."), std::string::npos)
            << what << ": " << error;
    }
}

TEST(DbaseTable, EndsAtEveryLengthOfTheFile) {
    const TemporaryFolder folder;
    for (size_t length = 0; length < WholeHeader + 2 * OneRow; ++length)
        EXPECT_EQ(ReadAll(folder, Sound.substr(0, length)).Number, InputPastEndOfFile) << length;
}

TEST(DbaseTable, SurvivesEveryChangedByte) {
    const TemporaryFolder folder;
    int refused = 0;
    for (size_t place = 0; place < Sound.size(); ++place)
        for (const char value : {'\0', '\x0D', '\x7F', '\xFF'})
            if (ReadAll(folder, Replaced(Sound, place, std::string(1, value))).Number != 0) ++refused;
    EXPECT_GT(refused, 0);
}

TEST(DbaseTable, TellsAPersonWhichFileAndWhatToDo) {
    const TemporaryFolder folder;
    auto error = ErrorOf([&] { Recordset(folder / "nc.dbf"); });
    EXPECT_EQ(error.Number, FileNotFound);
    EXPECT_EQ(
        error.Description,
        "File not found\nThe attribute table " + (folder / "nc.dbf") +
            " was not found. Its name is the path of the shapefile up to the first \".\", plus \".dbf\". "
            "Put the table there, or move the files to a folder without a \".\" in its path.");
    error = ReadAll(folder, Replaced(Sound, RowCount, LittleInteger(9)));
    EXPECT_EQ(error.Description,
              "Input past end of file\nThe attribute table " + (folder / "t.dbf") +
                  " is cut off: its header tells 9 rows, and there are 2. Restore the file "
                  "from its source.");
    EXPECT_EQ(ErrorNumberOf([&] { Recordset{folder.Path()}; }), PathFileAccessError);
}

// The table is a picture of the file at its open: what another program does to it later is not seen.
TEST(DbaseTable, KeepsItsRowsWhateverBecomesOfTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("t.dbf", Sound);
    Recordset table(path);
    folder.Write("t.dbf", TableBytes({{"OTHER", 'C', 30}}, {{"nothing of the kind"}}));
    EXPECT_EQ(table.GetString(), "1\tAshe\r2\tSurry");
    folder.Write("t.dbf", "");
    table.MoveFirst();
    EXPECT_EQ(table.GetString(), "1\tAshe\r2\tSurry");
}

TEST(DbaseTable, IsRefusedBeyondTheMemory) {
    const TemporaryFolder folder;
    ForceAvailableMemory([] { return 2 * OneRow - 1; });
    EXPECT_EQ(ReadAll(folder, Sound).Number, OutOfMemory);
    ForceAvailableMemory([] { return 2 * OneRow; });
    EXPECT_EQ(ReadAll(folder, Sound).Number, 0);
    ForceAvailableMemory({});
}
