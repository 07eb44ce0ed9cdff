#include "support/BatchProgram.h"
#include "support/TemporaryFolder.h"

#include "support/ProjectFolder.h"
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <set>
#include <sstream>

using namespace vastrel;

namespace {

using Words = std::vector<std::string>;

const std::string Project = ProjectFolder();
const std::string Five = Project + "/tests/golden/five.txt";

BatchResult RunPoints(const std::string& file, const std::string& format, const Words& more) {
    Words words{"retrospective-points", file, "--format", format};
    words.insert(words.end(), more.begin(), more.end());
    return RunBatch(words);
}

BatchResult RunFive(const Words& more) {
    return RunPoints(Five, "obs-exp", more);
}

std::string Golden(const std::string& variable, const std::string& kind, const std::string& what) {
    return ReadFile(Project + "/tests/golden/five_" + variable + "_" + kind + "_" + what + ".txt");
}

nlohmann::json JsonOf(const Words& more) {
    Words words = more;
    words.insert(words.end(), {"--json", "-"});
    const auto result = RunFive(words);
    EXPECT_EQ(result.Status, 0) << result;
    return nlohmann::json::parse(result.Output);
}

std::set<std::string> Keys(const nlohmann::json& json) {
    std::set<std::string> keys;
    for (const auto& item : json.items())
        keys.insert(item.key());
    return keys;
}

std::set<std::string> With(std::set<std::string> keys, const std::set<std::string>& more) {
    keys.insert(more.begin(), more.end());
    return keys;
}

const std::set<std::string> DatasetKeys{"Program",    "Settings",       "Inputs",         "RegionID",
                                        "NumRegion",  "TotalShapeArea", "RegionCentroid", "ObsCount",
                                        "ExpCount",   "ExpRatio",       "TotalObs",       "TotalPop",
                                        "AlphaLevel", "PlottedPoints",  "ScaleX",         "ScaleY"};
const std::set<std::string> LegendKeys{"CurrentSigma", "LegendLimits", "ClassOf", "LegendTexts"};
const std::set<std::string> MomentKeys{"ScoreMean", "ScoreVar",  "ScoreDF",      "ScoreZ",
                                       "ScoreChi",  "ChiPValue", "NormalPValue", "ChiCritical"};
const std::set<std::string> MKeys{"LocalM", "MaxLocalM", "MCritical"};
const std::set<std::string> RangeKeys{"BandwidthList",  "SweepStat",   "SweepChi",   "SweepChiCritical",
                                      "SweepDF",        "SweepPValue", "SweepMaxM",  "SweepMCritical",
                                      "StatisticTable", "ChartData",   "ChartLabels"};

constexpr const char* NotNumerical = "Bandwidth should be numerical.\n";
constexpr const char* Negative = "Bandwidth should not be negative.\n";
constexpr const char* RangeNotNumeric = "A range of bandwidth parameters should be numeric.\n";
constexpr const char* RangeNotValid = "Ivalid range of bandwidth was input. Check the parameters!\n";

} // namespace

TEST(RetrospectivePoints, WritesTheGoldenListsAndReports) {
    const TemporaryFolder folder;
    for (const std::string variable : {"unadjusted", "adjusted", "freeman-tukey", "rossi"})
        for (const std::string kind : {"single", "range"}) {
            Words words{"--variable", variable, "--lists", folder / "lists", "--report", folder / "report"};
            const Words bandwidth =
                kind == "single" ? Words{"--sigma", "1"} : Words{"--from", "0", "--to", "1", "--step", "0.4"};
            words.insert(words.end(), bandwidth.begin(), bandwidth.end());
            EXPECT_EQ(RunFive(words), (BatchResult{0, "", ""}));
            EXPECT_EQ(ReadFile(folder / "lists"), Golden(variable, kind, "lists"));
            EXPECT_EQ(ReadFile(folder / "report"), Golden(variable, kind, "report"));
        }
}

TEST(RetrospectivePoints, PrintsTheListsWhereNothingIsAskedFor) {
    EXPECT_EQ(RunFive({"--sigma", "1"}), (BatchResult{0, Golden("unadjusted", "single", "lists"), ""}));
    EXPECT_EQ(RunFive({"--sigma", "1", "--quiet"}).Output, Golden("unadjusted", "single", "lists"));
    EXPECT_EQ(RunFive({"--sigma", "1", "--report", "-"}).Output, Golden("unadjusted", "single", "report"));
}

TEST(RetrospectivePoints, RunsOverTheDefaultRange) {
    const auto byDefault = RunFive({});
    EXPECT_EQ(byDefault, RunFive({"--from", "0.2", "--to", "2.0", "--step", "0.2", "--alpha", "0.05"}));
    EXPECT_EQ(byDefault, RunFive({"--from", "0.2"}));
    EXPECT_EQ(std::count(byDefault.Output.begin(), byDefault.Output.end(), '\n'), 14);
    const std::string end = std::string(50, '-') + "\n\n"; // the second list has no rows
    EXPECT_EQ(byDefault.Output.substr(byDefault.Output.size() - end.size()), end);
}

TEST(RetrospectivePoints, FindsThePlantedCluster) {
    const std::set<std::string> planted{"H0311", "H0312", "H0313", "H0411", "H0412", "H0413", "H0414",
                                        "H0510", "H0511", "H0512", "H0513", "H0514", "H0611", "H0612",
                                        "H0613", "H0614", "H0711", "H0712", "H0713"};
    for (const auto& [name, format] :
         {std::pair("country_pop.txt", "pop-case"), std::pair("country_exp.txt", "obs-exp")}) {
        const auto result =
            RunPoints(Project + "/samples/" + name, format, {"--variable", "freeman-tukey", "--sigma", "1"});
        ASSERT_EQ(result.Status, 0) << result;
        EXPECT_NE(result.Output.find("M Critical (M*) = 3.355\n"), std::string::npos);
        std::istringstream rows(result.Output);
        std::set<std::string> above;
        std::string highest;
        double maximum = 0;
        for (std::string row; std::getline(rows, row);) {
            std::istringstream fields(row);
            std::string id;
            double m = 0;
            if (!(fields >> id >> m) || id[0] != 'H') continue;
            if (m > 3.355) above.insert(id);
            if (m > maximum) {
                maximum = m;
                highest = id;
            }
        }
        EXPECT_EQ(highest, "H0412");
        EXPECT_NEAR(maximum, 7.3276, 0.05); // the sample's own check takes the true mean area
        EXPECT_EQ(above.size(), 19u);
        std::set<std::string> found;
        for (const auto& id : above)
            if (planted.count(id) > 0) found.insert(id);
        EXPECT_EQ(found.size(), 17u);
    }
}

TEST(RetrospectivePoints, HoldsTheKeysOfEachVariable) {
    const auto single = With(DatasetKeys, LegendKeys);
    EXPECT_EQ(Keys(JsonOf({"--sigma", "1"})),
              With(With(single, MomentKeys), {"LocalU", "LocalZ", "GlobalU"}));
    EXPECT_EQ(Keys(JsonOf({"--sigma", "1", "--variable", "adjusted"})),
              With(With(With(single, MomentKeys), MKeys),
                   {"LocalUAdjusted", "LocalZAdjusted", "GlobalUAdjusted", "DevPearson"}));
    EXPECT_EQ(Keys(JsonOf({"--sigma", "1", "--variable", "freeman-tukey"})),
              With(With(single, MKeys), {"DevFreemanTukey"}));
    EXPECT_EQ(Keys(JsonOf({"--sigma", "1", "--variable", "rossi"})), With(With(single, MKeys), {"DevRossi"}));
    for (const std::string variable : {"unadjusted", "adjusted", "freeman-tukey", "rossi"})
        EXPECT_EQ(Keys(JsonOf({"--variable", variable})), With(DatasetKeys, RangeKeys)) << variable;
}

TEST(RetrospectivePoints, HoldsTheNumbersOfTheDataset) {
    const auto json = JsonOf({"--sigma", "0", "--alpha", "0.01"});
    EXPECT_EQ(json["NumRegion"], 5);
    EXPECT_EQ(json["TotalObs"], 42);
    EXPECT_EQ(json["TotalPop"], 0);
    EXPECT_EQ(json["AlphaLevel"], 0.01);
    EXPECT_EQ(json["CurrentSigma"], 0.00000001);
    EXPECT_EQ(json["RegionCentroid"], (nlohmann::json{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {4, 7}}));
    EXPECT_EQ(json["ObsCount"], (nlohmann::json{12, 3, 0, 20, 7}));
    EXPECT_EQ(json["ExpRatio"], (nlohmann::json{8 / 42.0, 5 / 42.0, 4 / 42.0, 9 / 42.0, 16 / 42.0}));
    // Each Region stands alone: U is o - e, and the global U the sum of the squares.
    EXPECT_EQ(json["LocalU"], (nlohmann::json{4, -2, -4, 11, -9}));
    EXPECT_EQ(json["GlobalU"], 16 + 4 + 16 + 121 + 81);
    // Terciles: of -9, -4, -2 the first and second; of 4, 11 element 0, which is 0, and the first.
    EXPECT_EQ(json["LegendLimits"], (nlohmann::json{-9, -4, 0, 0, 4, 0}));
    EXPECT_EQ(json["ClassOf"], (nlohmann::json{6, 3, 3, 6, 2}));
    EXPECT_EQ(json["LegendTexts"].size(), 6u);
    EXPECT_EQ(json["LegendTexts"][0], " -9.0000   -   -9.0000");
    EXPECT_EQ(json["LegendTexts"][5], "  4.0000   -    11.0000");
}

TEST(RetrospectivePoints, HoldsNoLegendTextsOfAnM) {
    const auto json = JsonOf({"--sigma", "1", "--variable", "rossi"});
    EXPECT_TRUE(json["LegendTexts"].empty());
    const double m = json["MCritical"];
    EXPECT_EQ(json["LegendLimits"], (nlohmann::json{-m, -0.5 * m, 0, 0.5 * m, m, 0}));
}

TEST(RetrospectivePoints, HoldsTheStepsOfARange) {
    const auto json = JsonOf({"--from", "0", "--to", "1", "--step", "0.4", "--variable", "rossi"});
    EXPECT_EQ(json["BandwidthList"].size(), 4u);
    EXPECT_EQ(json["BandwidthList"][0], 0.00000001);
    EXPECT_EQ(json["BandwidthList"][3], 1);
    EXPECT_EQ(json["StatisticTable"].size(), 4u);
    EXPECT_EQ(json["StatisticTable"][0].size(), 5u);
    EXPECT_EQ(json["ChartLabels"], (nlohmann::json{"0.00", "0.40", "0.80", "1.20"}));
    EXPECT_EQ(json["SweepChi"], (nlohmann::json{0, 0, 0, 0}));
    for (size_t k = 0; k < 4; ++k)
        EXPECT_EQ(json["ChartData"][k], (nlohmann::json{json["SweepStat"][k], json["SweepMCritical"][k]}));
}

TEST(RetrospectivePoints, LeavesTheRowsAloneWhateverElseIsWritten) {
    const TemporaryFolder folder;
    const Words more{"--variable", "adjusted", "--sigma", "1", "--lists", folder / "lists"};
    RunFive(more);
    const auto alone = ReadFile(folder / "lists");
    Words all = more;
    all.insert(all.end(), {"--json", folder / "json", "--report", folder / "report"});
    RunFive(all);
    EXPECT_EQ(ReadFile(folder / "lists"), alone);
}

TEST(RetrospectivePoints, RefusesTextsWithTheMessagesOfTheScreen) {
    for (const std::string sigma : {"", " ", "x", "-", "--", "-x", "nan", "inf", "0x1", "1,5", "--lists"})
        EXPECT_EQ(RunFive({"--sigma", sigma}), (BatchResult{3, "", NotNumerical})) << sigma;
    EXPECT_EQ(RunFive({"--sigma="}), (BatchResult{3, "", NotNumerical}));
    for (const std::string sigma : {"-1", "-.5", " -1e-3"})
        EXPECT_EQ(RunFive({"--sigma", sigma}), (BatchResult{3, "", Negative})) << sigma;
    EXPECT_EQ(RunFive({"--sigma=-1"}), (BatchResult{3, "", Negative}));

    EXPECT_EQ(RunFive({"--from", ""}), (BatchResult{3, "", RangeNotNumeric}));
    EXPECT_EQ(RunFive({"--to", "x"}), (BatchResult{3, "", RangeNotNumeric}));
    EXPECT_EQ(RunFive({"--step="}), (BatchResult{3, "", RangeNotNumeric}));
    EXPECT_EQ(RunFive({"--from", "-1"}), (BatchResult{3, "", RangeNotValid}));
    EXPECT_EQ(RunFive({"--from", "2", "--to", "2"}), (BatchResult{3, "", RangeNotValid}));
    EXPECT_EQ(RunFive({"--step", "0"}), (BatchResult{3, "", RangeNotValid}));
}

TEST(RetrospectivePoints, RefusesAFirstLineWithoutFiveFields) {
    const TemporaryFolder folder;
    const std::string message =
        "Data does not fit the required format. Check the data and requirement, please.\n";
    for (const std::string line : {"a,1,2,3\n", "a,1,2,3,4,5\n", "\na,1,2,3,4\n"})
        EXPECT_EQ(RunPoints(folder.Write("points.txt", line), "obs-exp", {"--sigma", "1"}),
                  (BatchResult{3, "", message}));
}

TEST(RetrospectivePoints, GoesOnAfterTheMessageOfM) {
    const auto result = RunFive({"--variable", "rossi", "--from", "2", "--to", "22", "--step", "10"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, "Error!\nError!\n"); // at sigma 12 and 22, not at 2
    EXPECT_NE(result.Output.find("  0.00\n"), std::string::npos);
}

TEST(RetrospectivePoints, StopsWithTheReportOfARunTimeError) {
    const TemporaryFolder folder;
    const auto reportOf = [&](const Words& more) {
        const auto result = RunFive(more);
        EXPECT_EQ(result.Status, 4);
        EXPECT_EQ(result.Output, "");
        return result.Errors.substr(0, result.Errors.find('\n'));
    };
    EXPECT_EQ(reportOf({"--sigma", "1e400"}), "Run-time error '6':");
    EXPECT_EQ(reportOf({"--sigma", "1e200"}), "Run-time error '6':");
    EXPECT_EQ(reportOf({"--sigma", "1e-200"}), "Run-time error '11':");
    EXPECT_EQ(reportOf({"--sigma", "1e-310"}), "Run-time error '6':");
    EXPECT_EQ(reportOf({"--to", "1e400"}), "Run-time error '6':");
    EXPECT_EQ(reportOf({"--step", "1e-9"}), "Run-time error '6':");

    const auto statusOf = [&](const std::string& bytes) {
        return RunPoints(folder.Write("points.txt", bytes), "obs-exp", {"--sigma", "1"}).Status;
    };
    EXPECT_EQ(statusOf(""), 4);                                  // nothing to read
    EXPECT_EQ(statusOf("a,1,2,3,4\nb,1,2\n"), 4);                // too few fields
    EXPECT_EQ(statusOf("a,1,2,3,4\n\n"), 4);                     // an empty line is a record
    EXPECT_EQ(statusOf("id,x,y,obs,exp\na,1,2,3,4\n"), 4);       // a heading
    EXPECT_EQ(statusOf("a,nan,2,3,4\nb,2,3,4,5\n"), 4);          // no number
    EXPECT_EQ(statusOf("a,1e400,2,3,4\nb,2,3,4,5\n"), 4);        // too large
    EXPECT_EQ(statusOf("a,1,2,0,4\nb,2,3,0,5\n"), 4);            // no cases
    EXPECT_EQ(statusOf("a,1,2,3,0\nb,2,3,4,5\nc,5,1,3,3\n"), 4); // an expected count of 0
    EXPECT_EQ(statusOf("a,1,2,3,4\nb,1,9,4,5\nc,1,5,3,3\n"), 4); // in one line: no study area
    EXPECT_EQ(RunPoints(folder / "missing.txt", "obs-exp", {"--sigma", "1"}).Errors.substr(0, 20),
              "Run-time error '53':");
    EXPECT_EQ(RunPoints(folder.Path(), "obs-exp", {"--sigma", "1"}).Errors.substr(0, 20),
              "Run-time error '75':");
}

TEST(RetrospectivePoints, RunsASingleRegionWithoutAStudyArea) {
    const TemporaryFolder folder;
    const auto file = folder.Write("one.txt", "alone,5,5,9,4");
    const auto result = RunPoints(file, "obs-exp", {"--sigma", "1", "--variable", "rossi"});
    EXPECT_EQ(result.Status, 0) << result;
    EXPECT_NE(result.Output.find("        alone     2.250      9.000      4.000\n"), std::string::npos);
}

TEST(RetrospectivePoints, CountsRegionsInSixteenBits) {
    const TemporaryFolder folder;
    std::string lines;
    for (int i = 0; i < 40000; ++i)
        lines += std::to_string(i) + "," + std::to_string(i % 200) + "," + std::to_string(i / 200) + ",1,1\n";
    const auto result = RunPoints(folder.Write("many.txt", lines), "obs-exp",
                                  {"--sigma", "1", "--variable", "rossi", "--lists", folder / "lists"});
    EXPECT_EQ(result.Status, 4);
    EXPECT_EQ(result.Errors.substr(0, 19), "Run-time error '6':");
    EXPECT_FALSE(std::filesystem::exists(folder / "lists"));
}

TEST(RetrospectivePoints, DependsOnThePlotSurface) {
    const Words rossi{"--variable", "rossi", "--sigma", "1", "--json", "-"};
    const auto areaOf = [&](const Words& more) {
        Words words = rossi;
        words.insert(words.end(), more.begin(), more.end());
        const auto result = RunFive(words);
        EXPECT_EQ(result.Status, 0) << result;
        return nlohmann::json::parse(result.Output)["TotalShapeArea"].get<double>();
    };
    const double byDefault = areaOf({});
    EXPECT_EQ(areaOf({"--surface", "5595,4275,369,281"}), byDefault);
    EXPECT_EQ(areaOf({"--zoom", "1.2"}), byDefault);
    EXPECT_NE(areaOf({"--surface", "6400,4110,423,270"}), byDefault);
    EXPECT_NE(areaOf({"--zoom", "0.7"}), byDefault);
}

TEST(RetrospectivePoints, TellsWrongUse) {
    EXPECT_EQ(RunBatch({"retrospective-points"}).Status, 2);
    EXPECT_EQ(RunBatch({"retrospective-points", Five}).Status, 2); // no format
    EXPECT_EQ(RunPoints(Five, "other", {}).Status, 2);
    for (const Words& more :
         {Words{"--variable", "median"}, Words{"--alpha", "0.1"}, Words{"--sigma", "1", "--from", "1"},
          Words{"--sigma", "1", "--to", "1"}, Words{"--sigma", "1", "--step", "1"},
          Words{"--surface", "1,2,3"}, Words{"--surface", "1,2,3,x"}, Words{"--surface", "1,2,3,4,5"},
          Words{"--surface", "5595,4275,10001,281"}, Words{"--surface", "5595,4275,369,-1e999"},
          Words{"--surface", "150001,4275,369,281"}, Words{"--zoom", "x"},
          Words{"--map", ".png", "--sigma", "1"}, Words{"--unknown"}, Words{"more"},
          Words{"--map", "map.txt", "--sigma", "1"}, Words{"--chart", "chart.gif"},
          Words{"--map-step", "1", "--sigma", "1"}}) {
        const auto result = RunFive(more);
        EXPECT_EQ(result.Status, 2) << more[0];
        EXPECT_EQ(result.Output, "") << more[0];
        EXPECT_NE(result.Errors, "") << more[0];
    }
}
