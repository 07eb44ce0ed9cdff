#include "support/BatchProgram.h"
#include "support/ProjectFolder.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

/// Three squares of area 1 side by side and apart, with a table. With k = 0.5 and nothing smoothed the sums
/// of Z1 to Z3 are A 0.5 1 5.5; B 5.5 11 8.5; C 0 1.5 10.
class ProspectivePolygons : public testing::Test {
protected:
    ProspectivePolygons() {
        ShapefileBytes shapes(5);
        for (const double x : {0.0, 1.0, 5.0})
            shapes.Add(PolygonContents({ClockwiseSquare(x, 0, 1)}));
        shapes.WritePair(folder_, "three");
        folder_.Write("three.dbf",
                      TableBytes({{"KEY", 'N', 3},
                                  {"NAME", 'C', 6},
                                  {"Z1", 'N', 6, 1},
                                  {"Z2", 'N', 6, 1},
                                  {"Z3", 'N', 6, 1},
                                  {"GAP", 'N', 6, 1},
                                  {"Z4", 'N', 6, 1}},
                                 {{"  7", "A", "   1.0", "   1.0", "   5.0", "   0.0", "   1.0"},
                                  {"  8", "B", "   6.0", "   6.0", "  -2.0", "      ", "   1.0"},
                                  {"  9", "C", "  -1.0", "   2.0", "   9.0", "   0.0", "   1.0"}}));
        folder_.Write("z.txt", "1,1,5\n6,6,-2\n-1,2,9\n");
        folder_.Write("saved.csm", "period1,period2,\n0.25,1,\n0,0,\n3,4,\n");
    }

    BatchResult Watch(std::vector<std::string> words) const {
        words.insert(words.begin(), {"prospective-polygons", folder_ / "three.shp"});
        if (std::find(words.begin(), words.end(), "--id") == words.end())
            words.insert(words.end(), {"--id", "NAME"});
        return RunBatch(words);
    }
    BatchResult WatchFields(std::vector<std::string> words) const {
        words.insert(words.begin(), {"--fields", "Z1", "Z3"});
        return Watch(words);
    }
    BatchResult WatchText(std::vector<std::string> words) const {
        words.insert(words.begin(), {"--z", folder_ / "z.txt"});
        return Watch(words);
    }
    std::string Out(const std::string& name) const { return folder_ / name; }
    Json TakeJson(const BatchResult& result) const {
        EXPECT_EQ(result, (BatchResult{0, "", ""}));
        return Json::parse(ReadFile(Out("out.json")));
    }

    TemporaryFolder folder_;
};

const std::string Rule(82, '-');
const std::string Titles = "  Year   Cusum     Region of max cusum value\n" + Rule + "\n";
const std::string Lists = Titles +
                          "    1     5.50                    B\n"
                          "    2    11.00                    B\n"
                          "    3    10.00                    C\n" +
                          Rule +
                          "\n"
                          "\n   11.00 <---                 B\n"
                          "\n   10.00 <---                 C\n";

/// How many Regions signal in each period.
std::vector<size_t> Counts(const Json& signals) {
    std::vector<size_t> counts;
    for (const auto& period : signals)
        counts.push_back(period.size());
    return counts;
}

} // namespace

TEST_F(ProspectivePolygons, PrintsTheListsFromBothSources) {
    EXPECT_EQ(WatchFields({}), (BatchResult{0, Lists, ""}));
    EXPECT_EQ(WatchText({}), (BatchResult{0, Lists, ""}));
    EXPECT_EQ(WatchFields({"--k", "0.5", "--h", "9.3", "--sigma", "0"}), (BatchResult{0, Lists, ""}));
}

TEST_F(ProspectivePolygons, WritesItsFiles) {
    EXPECT_EQ(WatchFields({"--lists", Out("l"), "--report", Out("r"), "--cusum", Out("c.csm")}),
              (BatchResult{0, "", ""}));
    EXPECT_EQ(ReadFile(Out("l")), Lists);
    EXPECT_EQ(ReadFile(Out("c.csm")), "period1,period2,period3,\n0.5,1,5.5,\n5.5,11,8.5,\n0,1.5,10,\n");
    EXPECT_NE(ReadFile(Out("r")).find(std::string(35, ' ') + "C,  0.0000,  1.5000, 10.0000, \n"),
              std::string::npos);
}

TEST_F(ProspectivePolygons, WritesEveryNumber) {
    const Json json = TakeJson(WatchFields({"--json", Out("out.json"), "--h", "9"}));
    EXPECT_EQ(json["NumRegion"], 3);
    EXPECT_EQ(json["TotalShapeArea"], 3);
    EXPECT_EQ(json["KValue"], 0.5);
    EXPECT_EQ(json["HValue"], 9);
    EXPECT_EQ(json["CurrentSigma"], 1e-9);
    EXPECT_EQ(json["Cusum"], Json::parse("[[0.5,1,5.5],[5.5,11,8.5],[0,1.5,10]]"));
    EXPECT_EQ(json["MaxCusum"], Json::parse("[5.5,11,10]"));
    EXPECT_EQ(json["MaxRegion"], Json::parse(R"(["B","B","C"])"));
    EXPECT_EQ(json["RegionLabel"], Json::parse(R"(["A","B","C"])"));
    EXPECT_EQ(json["Signals"], Json::parse("[[],[2],[3]]"));
    EXPECT_EQ(json["CusumChartData"], Json::parse("[[5.5,9],[11,9],[10,9]]"));
    EXPECT_EQ(json["ChartLabels"], Json::parse(R"(["1","2","3"])"));
    EXPECT_EQ(json.size(), 15u); // with program, settings and inputs
}

TEST_F(ProspectivePolygons, SmoothsWithTheAreasAndCentresOfTheShapes) {
    // The mean area is 1, so that the kernel is exp(-d d / 2) of the distances 1, 4 and 5; each row is
    // divided by its length.
    const double at[] = {0.5, 1.5, 5.5}, z[] = {1, 6, -1};
    const Json json = TakeJson(WatchText({"--json", Out("out.json"), "--sigma", "1"}));
    for (size_t i = 0; i < 3; ++i) {
        double sum = 0, squares = 0;
        for (size_t j = 0; j < 3; ++j) {
            const double w = std::exp(-(at[i] - at[j]) * (at[i] - at[j]) / 2);
            sum += w * z[j];
            squares += w * w;
        }
        EXPECT_NEAR(json["Cusum"][i][0].get<double>(), std::max(0.0, sum / std::sqrt(squares) - 0.5), 1e-12);
    }
}

TEST_F(ProspectivePolygons, LabelsWithBothIdsWhereTheRecordsAreRead) {
    const Json fields = TakeJson(
        WatchFields({"--json", Out("out.json"), "--lists", Out("l"), "--id", "KEY", "--id2", "NAME"}));
    EXPECT_EQ(fields["RegionLabel"], Json::parse(R"(["7 (A) ","8 (B) ","9 (C) "])"));
    EXPECT_EQ(fields["MaxRegion"], Json::parse(R"(["8 (B) ","8 (B) ","9 (C) "])"));
    EXPECT_NE(ReadFile(Out("l")).find("\n   11.00 <---            8 (B) \n"), std::string::npos);

    const Json text =
        TakeJson(WatchText({"--json", Out("out.json"), "--lists", Out("l"), "--id", "KEY", "--id2", "NAME"}));
    EXPECT_EQ(text["RegionLabel"], Json::parse(R"(["7","8","9"])"));
    EXPECT_EQ(text["MaxRegion"], Json::parse(R"(["8","8","9"])"));
    EXPECT_NE(ReadFile(Out("l")).find("\n   11.00 <---            8 (B) \n"), std::string::npos);
}

TEST_F(ProspectivePolygons, ContinuesWithTheNewPeriodsAlone) {
    // A from 1: 1.5 2 6.5; B from 0: 5.5 11 8.5; C from 4: 2.5 4 12.5.
    const Json json = TakeJson(
        WatchFields({"--previous", Out("saved.csm"), "--json", Out("out.json"), "--lists", Out("l")}));
    EXPECT_EQ(json["Cusum"], Json::parse("[[1.5,2,6.5],[5.5,11,8.5],[2.5,4,12.5]]"));
    EXPECT_EQ(json["CusumChartData"], Json::parse("[[5.5,9.3],[11,9.3],[12.5,9.3]]"));
    EXPECT_EQ(ReadFile(Out("l")).substr(Titles.size(), 6), "    1 ");
}

TEST_F(ProspectivePolygons, ShowsTheSavedPeriodsInFrontWhereAsked) {
    const std::vector<std::string> both{"--previous", Out("saved.csm"), "--show",  "both",
                                        "--json",     Out("out.json"),  "--lists", Out("l")};
    const Json fields = TakeJson(WatchFields(both));
    EXPECT_EQ(fields["Cusum"][2], Json::parse("[2.5,4,12.5]"));
    EXPECT_EQ(fields["CusumChartData"], Json::parse("[[3,9.3],[4,9.3],[5.5,9.3],[11,9.3],[12.5,9.3]]"));
    EXPECT_EQ(fields["ChartLabels"], Json::parse(R"(["1","2","3","4","5"])"));
    EXPECT_EQ(ReadFile(Out("l")), Titles +
                                      "    3     5.50                    B\n"
                                      "    4    11.00                    B\n"
                                      "    5    12.50                    C\n" +
                                      Rule + "\n" + "\n   11.00 <---                 B\n" +
                                      "\n   12.50 <---                 C\n");
    // No column was ever chosen: the labels stop behind the saved periods and one more.
    const Json text = TakeJson(WatchText(both));
    EXPECT_EQ(text["ChartLabels"], Json::parse(R"(["1","2","3","",""])"));
    EXPECT_EQ(text["CusumChartData"], fields["CusumChartData"]);
}

TEST_F(ProspectivePolygons, RefusesColumnsWithTheMessagesOfTheScreen) {
    const std::string noNumber = "Data should be numerical values!\n";
    EXPECT_EQ(Watch({"--fields", "NAME", "Z1"}), (BatchResult{3, "", noNumber}));
    EXPECT_EQ(Watch({"--fields", "KEY", "NAME"}), (BatchResult{3, "", noNumber}));
    EXPECT_EQ(Watch({"--fields", "Z1", "GAP"}), (BatchResult{3, "", noNumber})); // a null is no number
    EXPECT_EQ(Watch({"--fields", "Z2", "Z1"}),
              (BatchResult{3, "", "Start and end priods were not set improperly!\n"}));
    EXPECT_EQ(WatchFields({"--k", "x"}), (BatchResult{3, "", "Parameters are not properly input.\n"}));
    EXPECT_EQ(WatchText({"--h", "-1"}), (BatchResult{3, "", "Parameters should be positive values.\n"}));
    EXPECT_EQ(Watch({"--fields", "Z1", "Z1"}).Status, 0);
}

TEST_F(ProspectivePolygons, StopsAtAColumnBetweenTheTwo) {
    for (const auto& [first, last, error] :
         {std::tuple{"Z3", "Z4", "'94'"}, std::tuple{"KEY", "Z1", "'13'"}}) {
        const auto result = Watch({"--fields", first, last, "--lists", Out("l")});
        EXPECT_EQ(result.Status, 4);
        EXPECT_EQ(result.Errors.substr(0, 20), std::string("Run-time error ") + error + ":") << result;
        EXPECT_FALSE(fs::exists(Out("l")));
    }
}

TEST_F(ProspectivePolygons, StopsAtTextFilesThatDoNotFit) {
    const auto error = [&](const std::string& bytes) {
        folder_.Write("z.txt", bytes);
        return WatchText({}).Errors.substr(0, 19);
    };
    EXPECT_EQ(error("1\n2\n3\n4\n"), "Run-time error '9':");
    EXPECT_EQ(error("1\nx\n3\n"), "Run-time error '13'");
    EXPECT_EQ(error("1,2\n1,\n"), "Run-time error '13'");
    folder_.Write("z.txt", "1,1\n6,6\n");
    EXPECT_EQ(TakeJson(WatchText({"--json", Out("out.json")}))["Cusum"][2], Json::parse("[0,0]"));
}

TEST_F(ProspectivePolygons, ListsAndSavesTheRegionsThatHaveARecord) {
    folder_.Write("three.dbf", TableBytes({{"NAME", 'C', 6}}, {{"A"}, {"B"}}));
    const Json json = TakeJson(
        WatchText({"--lists", Out("l"), "--cusum", Out("c.csm"), "--json", Out("out.json"), "--h", "8"}));
    EXPECT_EQ(json["Cusum"], Json::parse("[[0.5,1,5.5],[5.5,11,8.5],[0,1.5,10]]"));
    EXPECT_EQ(json["MaxRegion"], Json::parse(R"(["B","B",""])"));
    EXPECT_EQ(json["RegionLabel"], Json::parse(R"(["A","B",""])"));
    EXPECT_EQ(json["Signals"], Json::parse("[[],[2],[2]]"));
    const std::string lists = ReadFile(Out("l"));
    EXPECT_EQ(lists.substr(lists.rfind(Rule) + Rule.size()),
              "\n\n   11.00 <---                 B\n\n    8.50 <---                 B\n");
    EXPECT_EQ(ReadFile(Out("c.csm")), "period1,period2,period3,\n0.5,1,5.5,\n5.5,11,8.5,\n");
}

TEST_F(ProspectivePolygons, DoesNothingWithoutATextFile) {
    EXPECT_EQ(Watch({"--z", "", "--lists", Out("l")}), (BatchResult{0, "", ""}));
    EXPECT_FALSE(fs::exists(Out("l")));
    EXPECT_EQ(Watch({"--z", "", "--previous", Out("saved.csm")}).Status, 4);
}

TEST_F(ProspectivePolygons, TellsWrongUse) {
    const auto wrong = [&](std::vector<std::string> words) {
        EXPECT_EQ(Watch(words).Status, 2) << words.back();
    };
    wrong({});
    wrong({"--fields", "Z1", "Z2", "--z", Out("z.txt")});
    wrong({"--fields", "Z1"});
    wrong({"--fields", "Z1", "NONE"});
    wrong({"--z", Out("z.txt"), "--id", "NONE"});
    wrong({"--z", Out("z.txt"), "--show", "both"});
    wrong({"--z", Out("z.txt"), "--previous", Out("saved.csm"), "--show", "all"});
    wrong({"--z", Out("z.txt"), "--previous", Out("saved.csm"), "--cusum", Out("c.csm")});
    EXPECT_EQ(RunBatch({"prospective-polygons", Out("three.shp"), "--z", Out("z.txt")}).Status, 2);
    EXPECT_EQ(Watch({"--z", Out("z.txt"), "--previous", Out("none.csm")}).Status, 4);
    EXPECT_EQ(RunBatch({"prospective-polygons", Out("none.shp"), "--z", Out("z.txt"), "--id", "NAME"}).Status,
              4);
}

TEST_F(ProspectivePolygons, DrawsOnePictureAPeriod) {
#if VASTREL_PICTURES
    EXPECT_EQ(WatchFields({"--maps", Out("maps"), "--chart", Out("chart.png")}), (BatchResult{0, "", ""}));
    for (const char* name : {"maps/period1.png", "maps/period3.png", "chart.png"})
        EXPECT_EQ(ReadFile(Out(name)).substr(1, 3), "PNG") << name;
    EXPECT_NE(ReadFile(Out("maps/period1.png")), ReadFile(Out("maps/period2.png")));
    EXPECT_FALSE(fs::exists(Out("maps/period4.png")));
#else
    EXPECT_EQ(WatchFields({"--maps", Out("maps")}).Status, 2);
#endif
}

TEST_F(ProspectivePolygons, FindsThePlantedClusterOfTheSample) {
    const std::string samples = InProject("samples/");
    const auto result = RunBatch({"prospective-polygons", samples + "country.shp", "--z",
                                  samples + "watch_z.txt", "--id", "NAME", "--json", Out("out.json")});
    const auto counts = Counts(TakeJson(result)["Signals"]);
    std::vector<size_t> expected(17, 0); // the counts of samples/README.md
    expected.insert(expected.end(), {2, 6, 13, 16, 17, 19, 19});
    EXPECT_EQ(counts, expected);
}

TEST_F(ProspectivePolygons, ContinuesTheSampleAsItsPointsAreContinued) {
    const std::string samples = InProject("samples/");
    const Json polygons = TakeJson(
        RunBatch({"prospective-polygons", samples + "country.shp", "--z", samples + "watch_z.txt", "--id",
                  "NAME", "--previous", samples + "watch_previous.csm", "--json", Out("out.json")}));
    const Json points = TakeJson(
        RunBatch({"prospective-points", "--ids", samples + "watch_xy.txt", "--z", samples + "watch_z.txt",
                  "--previous", samples + "watch_previous.txt", "--json", Out("out.json")}));
    Json newPeriods = Json::array(); // the points keep the 12 saved ones in front
    for (const auto& region : points["Cusum"])
        newPeriods.push_back(Json(std::vector<double>(region.begin() + 12, region.end())));
    EXPECT_EQ(polygons["Cusum"], newPeriods);
    EXPECT_EQ(polygons["RegionLabel"], points["RegionLabel"]);
}
