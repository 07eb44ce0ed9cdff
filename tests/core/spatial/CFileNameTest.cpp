#include "core/spatial/CFileName.h"

#include "core/spatial/ShapeErrors.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

CFileName NameOf(const char* spec) {
    CFileName name;
    name.SetFileSpec(spec);
    return name;
}

} // namespace

TEST(CFileName, TakesAPathApart) {
    const CFileName name = NameOf("C:\\data\\a.b.shp");
    EXPECT_EQ(name.GetFileSpec(), "C:\\data\\a.b.shp");
    EXPECT_EQ(name.GetBaseName(), "a.b");
    EXPECT_EQ(name.GetExtension(), "shp");
}

TEST(CFileName, IsEmptyAtFirst) {
    const CFileName name;
    EXPECT_EQ(name.GetFileSpec(), "");
    EXPECT_EQ(name.GetBaseName(), "");
    EXPECT_EQ(name.GetExtension(), "");
}

TEST(CFileName, RefusesWhatIsNoDriveLetterPath) {
    CFileName name = NameOf("c:\\x.y");
    for (const char* spec : {"",
                             "C",
                             "C:",
                             "data\\nc.shp",
                             "\\\\server\\share\\nc.shp",
                             "1:\\nc.shp",
                             "\xC3\xA4:\\nc.shp",
                             "C\\nc.shp",
                             "C:\\data\\\\nc.shp",
                             "C:\\data\\nc..shp",
                             "C:\\data\\..\\nc.shp",
                             "C:nc.shp",
                             "C:\\data\\nc",
                             "C:\\n?c.shp",
                             "C:\\n\"c.shp",
                             "C:\\n*c.shp",
                             "C:\\n|c.shp",
                             "C:\\n/c.shp",
                             "C:\\n>c.shp",
                             "C:\\n<c.shp",
                             "C:\\D:\\nc.shp",
                             "C:?\\nc.shp",
                             "C:/\\nc.shp"}) {
        const auto error = ErrorOf([&] { name.SetFileSpec(spec); });
        EXPECT_EQ(error.Number, InvalidFileSpec) << spec;
        EXPECT_EQ(error.Source, "C_FileName::SetFileSpec");
        EXPECT_EQ(error.Description, "The FileSpec is invalid");
        EXPECT_EQ(name.GetFileSpec(), "c:\\x.y") << spec;
    }
    EXPECT_EQ(static_cast<std::uint32_t>(InvalidFileSpec), 0x80040203U);
}

TEST(CFileName, AcceptsBlanksAndLettersBeyondAscii) {
    EXPECT_EQ(NameOf("z:\\Eigene Daten\\Kreise \xC3\xBC.shp").GetBaseName(), "Kreise \xC3\xBC");
}

TEST(CFileName, ReplacesBaseNameAndExtension) {
    CFileName name = NameOf("C:\\data\\a.b.shp");
    name.SetExtension("shx");
    EXPECT_EQ(name.GetFileSpec(), "C:\\data\\a.b.shx");
    name.SetBaseName("county");
    EXPECT_EQ(name.GetFileSpec(), "C:\\data\\county.shx");
}

TEST(CFileName, RefusesBadPieces) {
    CFileName name = NameOf("C:\\data\\nc.shp");
    for (const char* bad : {"", "a?", "a\"", "a*", "a|", "a/", "a>", "a<", "a:", "a\\b"}) {
        const auto base = ErrorOf([&] { name.SetBaseName(bad); });
        EXPECT_EQ(base.Number, InvalidFileSpec) << bad;
        EXPECT_EQ(base.Source, "C_FileName::SetBaseName");
        const auto extension = ErrorOf([&] { name.SetExtension(bad); });
        EXPECT_EQ(extension.Number, InvalidFileSpec) << bad;
        EXPECT_EQ(extension.Source, *bad == '\0' ? "C_FileName::SetBaseName" : "C_FileName::SetExtension");
    }
    EXPECT_EQ(name.GetFileSpec(), "C:\\data\\nc.shp");
}

TEST(CFileName, HasNoBaseNameWhereOnlyAFolderHasAPoint) {
    EXPECT_EQ(NameOf("C:\\data.v2\\nc").GetBaseName(), "");
}
