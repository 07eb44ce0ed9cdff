#include "core/platform/NativePath.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(NativePath, KeepsTextsOutsideAscii) {
    EXPECT_EQ(PathText(NativePath("/Zürich/東京.shp")), "/Zürich/東京.shp");
    EXPECT_EQ(FileName("/Zürich/東京.shp"), "東京.shp");
    EXPECT_EQ(FileName("nc.shp"), "nc.shp");
    EXPECT_EQ(FileName("/data/"), "");
}

TEST(FindFile, TakesTheNameItselfFirst) {
    const TemporaryFolder folder;
    folder.Write("NC.DBF", "");
    folder.Write("nc.dbf", "");
    EXPECT_EQ(FindFile(folder / "nc.dbf"), folder / "nc.dbf");
    EXPECT_EQ(FindFile(folder / "NC.DBF"), folder / "NC.DBF");
}

TEST(FindFile, FindsANameInOtherCase) {
    const TemporaryFolder folder;
    folder.Write("NC.dbF", "");
    EXPECT_EQ(FindFile(folder / "nc.dbf"), folder / "NC.dbF");
    folder.Write("Nc.dbf", "");
    folder.Write("NC.DBF", "");
    EXPECT_EQ(FindFile(folder / "nc.dbf"), folder / "NC.DBF"); // the first in the order of its bytes
}

TEST(FindFile, ComparesTheLettersAToZAlone) {
    const TemporaryFolder folder;
    folder.Write("Ü.dbf", "");
    folder.Write("a[.dbf", "");
    EXPECT_EQ(FindFile(folder / "ü.dbf"), "");
    EXPECT_EQ(FindFile(folder / "A{.dbf"), ""); // "[" and "{" lie as far apart as "A" and "a"
    EXPECT_EQ(FindFile(folder / "A[.DBF"), folder / "a[.dbf");
}

TEST(FindFile, GivesNothingWhereThereIsNone) {
    const TemporaryFolder folder;
    EXPECT_EQ(FindFile(folder / "nc.dbf"), "");
    EXPECT_EQ(FindFile(folder / "missing/nc.dbf"), "");
}
