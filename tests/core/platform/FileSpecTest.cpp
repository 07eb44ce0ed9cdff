#include "core/platform/FileSpec.h"

#include <gtest/gtest.h>

using namespace vastrel;

#ifndef _WIN32

TEST(FileSpec, GivesANativePathADriveLetter) {
    EXPECT_EQ(ToFileSpec("/data/nc.shp"), "C:\\data\\nc.shp");
    EXPECT_EQ(ToFileSpec("/"), "C:\\");
    EXPECT_EQ(ToFileSpec("/a b/ü.shp"), "C:\\a b\\ü.shp");
}

TEST(FileSpec, GivesTheNativePathBack) {
    EXPECT_EQ(FromFileSpec("C:\\data\\nc.shp"), "/data/nc.shp");
    for (const char* path : {"/", "/nc.shp", "/data/sub folder/nc.shp", "/Zürich/nc.v2.shp"})
        EXPECT_EQ(FromFileSpec(ToFileSpec(path)), path);
}

TEST(FileSpec, HasNoPathInATextThatIsNoFileName) {
    EXPECT_EQ(FromFileSpec(""), "");
    EXPECT_EQ(FromFileSpec("C"), "");
    EXPECT_EQ(FromFileSpec("C:"), "");
}

#endif
