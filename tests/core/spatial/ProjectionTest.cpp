#include "core/spatial/Projection.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(Projection, IsTheFileBesideTheShapefileByteForByte) {
    const TemporaryFolder folder;
    const std::string bytes = std::string("GEOGCS[\"x\"]\r\n\0 ", 15);
    folder.Write("A b.PRJ", bytes);
    EXPECT_EQ(ProjectionOf(folder / "A b.shp"), bytes);
}

TEST(Projection, IsEmptyWithoutAFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(ProjectionOf(folder / "a.shp"), "");
}

TEST(Projection, KnowsGeographicSystems) {
    for (const char* text :
         {"GEOGCS[\"GCS\"", " \r\ngeogcs [", "GEOGCRS[", "GEODCRS(", "\xEF\xBB\xBFGEOGCS["})
        EXPECT_TRUE(IsGeographic(text)) << text;
    for (const char* text : {"", "PROJCS[\"x\",GEOGCS[\"y\"]]", "PROJCRS[", "LOCAL_CS[", "GEOGCSX[", " 12"})
        EXPECT_FALSE(IsGeographic(text)) << text;
}
