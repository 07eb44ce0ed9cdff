#include "support/BatchProgram.h"
#include "support/PlainWatch.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <sstream>

using namespace vastrel;

namespace {

using Json = nlohmann::json;
using Words = std::vector<std::string>;

/// The watch on polygons of real data, held against a plain working out of the same files.
class ProspectiveRealData : public testing::Test {
protected:
    Json Watch(const std::string& shp, const Words& ids, const Words& words) const {
        Words all{"prospective-polygons", shp, "--json", Folder / "out.json"};
        all.insert(all.end(), ids.begin(), ids.end());
        all.insert(all.end(), words.begin(), words.end());
        const BatchResult result = RunBatch(all);
        EXPECT_EQ(result, (BatchResult{0, "", ""}));
        return Json::parse(ReadFile(Folder / "out.json"));
    }

    /// The places of the Regions from the file of the centroids, six decimals each.
    NumberRows Places(const std::string& shp) const {
        EXPECT_EQ(RunBatch({"centroids", shp, "--out", Folder / "places.txt"}).Status, 0);
        std::istringstream lines(ReadFile(Folder / "places.txt"));
        std::string line;
        std::getline(lines, line);
        NumberRows places;
        double number = 0, x = 0, y = 0;
        for (char comma = 0; lines >> number >> comma >> x >> comma >> y;)
            places.push_back({x, y});
        return places;
    }

    /// What the run smooths: nothing with sigma 0.
    NumberRows Smoothed(const NumberRows& z, const std::string& shp, const Json& run, double sigma) const {
        if (sigma == 0) return z;
        return PlainSmoothed(z, Places(shp),
                             run["TotalShapeArea"].get<double>() / static_cast<double>(z.size()), sigma);
    }

    TemporaryFolder Folder;
};

/// The places have six decimals, which the sums of smoothed scores feel.
double DigitsOf(const std::string& sigma) {
    return sigma == "0" ? 1e-12 : 2e-4;
}

void ExpectNear(const Json& actual, const NumberRows& expected, double digits) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        ASSERT_EQ(actual[i].size(), expected[i].size());
        for (size_t t = 0; t < expected[i].size(); ++t) {
            const double value = expected[i][t];
            ASSERT_NEAR(actual[i][t].get<double>(), value, digits * (1 + std::abs(value))) << i << ", " << t;
        }
    }
}

/// All but what tells how they were made.
Json NumbersOf(Json json) {
    for (const auto* key : {"Program", "Settings", "Inputs"})
        EXPECT_EQ(json.erase(key), 1u) << key;
    return json;
}

/// The rest of one run and a continued one: equal to the digits of the file.
void ExpectContinued(const Json& continued, const Json& whole, size_t saved) {
    ASSERT_EQ(continued.size(), whole.size());
    for (size_t i = 0; i < continued.size(); ++i) {
        ASSERT_EQ(continued[i].size() + saved, whole[i].size());
        for (size_t t = 0; t < continued[i].size(); ++t) {
            const double value = whole[i][t + saved].get<double>();
            ASSERT_NEAR(continued[i][t].get<double>(), value, 1e-13 * (1 + value)) << i << ", " << t;
        }
    }
}

} // namespace

TEST_F(ProspectiveRealData, MeaslesFromColumnsAndFromATextFileAlike) {
    const MeaslesWatch measles(Folder);
    if (!measles.IsThere()) GTEST_SKIP() << "The real data are not here.";
    const auto watch = [&](const Words& words) { return Watch(measles.Shp, {"--id", "NAME"}, words); };
    for (const char* sigma : {"0", "1"}) {
        const Json fields = watch({"--fields", "Z1", "Z40", "--sigma", sigma});
        EXPECT_EQ(fields["NumRegion"], 17);
        EXPECT_EQ(NumbersOf(fields), NumbersOf(watch({"--z", measles.Whole, "--sigma", sigma})));
        const auto smoothed = Smoothed(measles.Z, measles.Shp, fields, std::stod(sigma));
        ExpectNear(fields["Cusum"], PlainCusums(smoothed, 0.5), DigitsOf(sigma));

        watch({"--fields", "Z1", "Z20", "--sigma", sigma, "--cusum", Folder / "half.csm"});
        for (const Words& source : {Words{"--fields", "Z21", "Z40"}, Words{"--z", measles.Second}})
            for (const char* show : {"current", "both"}) {
                Words words = source;
                words.insert(words.end(),
                             {"--previous", Folder / "half.csm", "--show", show, "--sigma", sigma});
                const Json continued = watch(words);
                ExpectContinued(continued["Cusum"], fields["Cusum"], 20);
                EXPECT_EQ(continued["CusumChartData"].size(), show == std::string("both") ? 40u : 20u);
            }
    }
}

TEST_F(ProspectiveRealData, TheGermanDistrictsWithOneAndTwoIds) {
    const std::string shp = CopyOfRealShapefile(Folder, "imd_de/imd_de");
    if (shp.empty()) GTEST_SKIP() << "The real data are not here.";
    const auto counts = PlainTable(ReadFile(shp.substr(0, shp.size() - 3) + "dbf")).Columns("IMD02", 7);
    for (const Words& ids : {Words{"--id", "KEY"}, Words{"--id", "KEY", "--id2", "NAME"}})
        for (const char* sigma : {"0", "1"}) {
            const auto watch = [&](const Words& words) {
                Words all{"--k", "1", "--h", "3", "--sigma", sigma};
                all.insert(all.end(), words.begin(), words.end());
                return Watch(shp, ids, all);
            };
            const Json whole = watch({"--fields", "IMD02", "IMD08"});
            EXPECT_EQ(whole["NumRegion"], 413);
            EXPECT_EQ(whole["RegionLabel"][0].get<std::string>().ends_with(") "), ids.size() > 2);
            ExpectNear(whole["Cusum"], PlainCusums(Smoothed(counts, shp, whole, std::stod(sigma)), 1),
                       DigitsOf(sigma));

            watch({"--fields", "IMD02", "IMD05", "--cusum", Folder / "half.csm"});
            for (const char* show : {"current", "both"}) {
                const Json continued =
                    watch({"--fields", "IMD06", "IMD08", "--previous", Folder / "half.csm", "--show", show});
                ExpectContinued(continued["Cusum"], whole["Cusum"], 4);
                EXPECT_EQ(continued["CusumChartData"].size(), show == std::string("both") ? 7u : 3u);
            }
        }
}
