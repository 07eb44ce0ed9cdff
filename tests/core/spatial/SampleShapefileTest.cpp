// The sample polygons hold the same country as the sample text files.
#include "core/platform/Platform.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeDataset.h"
#include "core/text/Numbers.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

std::vector<std::vector<std::string>> SampleRows(const std::string& name) {
    std::vector<std::vector<std::string>> rows;
    const TextFile text(InProject("samples/") + name);
    LineReader file(text);
    for (std::string line; file.NextLine(line);)
        rows.push_back(SplitAtCommas(line));
    return rows;
}

void OpenSample(const TemporaryFolder& folder) {
    ws = Workspace{};
    for (const std::string extension : {".shp", ".shx", ".dbf", ".cpg"})
        folder.Write("country" + extension, ReadFile(InProject("samples/country") + extension));
    ASSERT_TRUE(OpenShapeAttributes({folder / "country.shp", "country.shp", false}));
    ReadShapeHeader();
    LoadShapes();
}

std::string PeriodColumn(const char* kind, int period) {
    return kind + std::string(period < 10 ? "0" : "") + std::to_string(period);
}

} // namespace

TEST(SampleShapefile, HasTheRegionsOfTheTextFiles) {
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    OpenSample(folder);
    ComputeShapeAreas();
    ComputeCentroids();
    const auto rows = SampleRows("country_exp.txt");
    const auto populations = SampleRows("country_pop.txt");
    ASSERT_EQ(static_cast<size_t>(ws.NumRegion), rows.size());
    EXPECT_NEAR(ws.TotalShapeArea, 207 * 20 * 20 * std::sqrt(3.0) / 2, 1e-6);
    Recordset& table = *ws.AttributeRecordset;
    for (size_t i = 0; i < rows.size(); ++i, table.MoveNext()) {
        const auto& centroid = ws.RegionCentroid(static_cast<std::ptrdiff_t>(i + 1));
        EXPECT_EQ(Num(centroid.X, "0.0000"), rows[i][1]) << i;
        EXPECT_EQ(Num(centroid.Y, "0.0000"), rows[i][2]) << i;
        EXPECT_EQ(table.Fields("ID").Value().Number(), static_cast<double>(i + 1));
        EXPECT_EQ(table.Fields("NAME").Value().Text(), rows[i][0]);
        EXPECT_EQ(table.Fields("POP").Value().Text(), populations[i][3]);
        EXPECT_EQ(table.Fields("CASES").Value().Text(), rows[i][3]);
        EXPECT_EQ(Num(table.Fields("EXPECTED").Value().Number(), "0.0000"), rows[i][4]);
    }
    EXPECT_TRUE(table.EndOfFile());
}

TEST(SampleShapefile, HasTheCountsOfTheWatch) {
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    OpenSample(folder);
    const auto rows = SampleRows("watch_z.txt");
    Recordset& table = *ws.AttributeRecordset;
    for (const auto& row : rows) {
        ASSERT_EQ(row.size(), 24u);
        for (int period = 1; period <= 24; ++period) {
            const double o = table.Fields(PeriodColumn("OBS", period)).Value().Number();
            const double e = table.Fields(PeriodColumn("EXP", period)).Value().Number();
            // Both are rounded to four decimals: e in the table, z in the text.
            EXPECT_NEAR((o - e) / std::sqrt(e), ToNumber(row[static_cast<size_t>(period - 1)]), 0.0003);
        }
        table.MoveNext();
    }
    EXPECT_TRUE(table.EndOfFile());
}
