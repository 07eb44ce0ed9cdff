#include "support/BatchProgram.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class ProspectivePoints : public testing::Test {
protected:
    ProspectivePoints() {
        folder_.Write("ids.txt", "A,0,0\nB,10,0\nC,10,10\nD,0,10\n");
        folder_.Write("z.txt", "1,1,5\n6,6,-2\n0,0,0\n-1,2,9\n");
        folder_.Write("saved.txt", "0.25,1\n0,-2\n3,4\n9.5,0\n");
    }

    /// A call with the two files of this test and more words.
    BatchResult Watch(std::vector<std::string> words) const {
        words.insert(words.begin(),
                     {"prospective-points", "--ids", folder_ / "ids.txt", "--z", folder_ / "z.txt"});
        return RunBatch(words);
    }
    std::string Out(const std::string& name) const { return folder_ / name; }
    Json JsonOf(std::vector<std::string> words) const {
        words.insert(words.end(), {"--json", Out("out.json")});
        EXPECT_EQ(Watch(words), (BatchResult{0, "", ""}));
        return Json::parse(ReadFile(Out("out.json")));
    }

    TemporaryFolder folder_;
};

const std::string Rule(82, '-');
const std::string Titles = "  Year   Cusum     Region of max cusum value\n" + Rule + "\n";

// Cusums by hand, k = 0.5: A 0.5 1 5.5; B 5.5 11 8.5; C 0 0 0; D 0 1.5 10.
const std::string Lists = Titles +
                          "    1     5.50                    B\n"
                          "    2    11.00                    B\n"
                          "    3    10.00                    D\n" +
                          Rule +
                          "\n"
                          "\n   11.00 <---                 B\n"
                          "\n   10.00 <---                 D\n";

} // namespace

TEST_F(ProspectivePoints, PrintsTheListsWhereNothingElseIsAskedFor) {
    EXPECT_EQ(Watch({}), (BatchResult{0, Lists, ""}));
    EXPECT_EQ(Watch({"--k", "0.5", "--h", "9.3", "--sigma", "0", "--start", "zero"}),
              (BatchResult{0, Lists, ""}));
}

TEST_F(ProspectivePoints, WritesItsFiles) {
    EXPECT_EQ(Watch({"--lists", Out("l"), "--report", Out("r"), "--cusum", Out("c.csm")}),
              (BatchResult{0, "", ""}));
    EXPECT_EQ(ReadFile(Out("l")), Lists);
    EXPECT_EQ(ReadFile(Out("c.csm")),
              "period1,period2,period3,\n0.5,1,5.5,\n5.5,11,8.5,\n0,0,0,\n0,1.5,10,\n");
    const std::string report = ReadFile(Out("r"));
    EXPECT_NE(report.find("\n            5.5000,            11.0000,            10.0000, \n"),
              std::string::npos);
    EXPECT_NE(report.find("\n" + std::string(35, ' ') + "D,  0.0000,  1.5000, 10.0000, \n"),
              std::string::npos);
}

TEST_F(ProspectivePoints, WritesOneFileToStandardOutput) {
    const auto result = Watch({"--cusum", "-", "--lists", Out("l")});
    EXPECT_EQ(result.Output.substr(0, 25), "period1,period2,period3,\n");
    EXPECT_EQ(ReadFile(Out("l")), Lists);
}

TEST_F(ProspectivePoints, WritesEveryNumber) {
    const Json json = JsonOf({"--h", "9"});
    EXPECT_EQ(json["NumRegion"], 4);
    EXPECT_GT(json["TotalShapeArea"], 0);
    EXPECT_EQ(json["KValue"], 0.5);
    EXPECT_EQ(json["HValue"], 9);
    EXPECT_EQ(json["CurrentSigma"], 1e-9);
    EXPECT_EQ(json["Cusum"], Json::parse("[[0.5,1,5.5],[5.5,11,8.5],[0,0,0],[0,1.5,10]]"));
    EXPECT_EQ(json["MaxCusum"], Json::parse("[5.5,11,10]"));
    EXPECT_EQ(json["MaxRegion"], Json::parse(R"(["B","B","D"])"));
    EXPECT_EQ(json["RegionLabel"], Json::parse(R"(["A","B","C","D"])"));
    EXPECT_EQ(json["Signals"], Json::parse("[[],[2],[4]]"));
    EXPECT_EQ(json["CusumChartData"], Json::parse("[[5.5,9],[11,9],[10,9]]"));
    EXPECT_EQ(json["ChartLabels"], Json::parse(R"(["1","2","3"])"));
    EXPECT_EQ(json.size(), 15u); // with program, settings and inputs
}

TEST_F(ProspectivePoints, ContinuesASavedTableWithAllPeriods) {
    // A from 1: 1.5 2 6.5; B from -2: 3.5 9 6.5; C from 4: 3.5 3 2.5; D from 0: 0 1.5 10.
    const std::string lists = Titles +
                              "    1     9.50                    D\n"
                              "    2     4.00                    C\n"
                              "    3     3.50                    B\n"
                              "    4     9.00                    B\n"
                              "    5    10.00                    D\n" +
                              Rule +
                              "\n"
                              "\n    9.50 <---                 D\n"
                              "\n   10.00 <---                 D\n";
    EXPECT_EQ(Watch({"--previous", Out("saved.txt")}), (BatchResult{0, lists, ""}));
    EXPECT_EQ(Watch({"--previous", Out("saved.txt"), "--start", "previous"}), (BatchResult{0, lists, ""}));

    const Json json = JsonOf({"--previous", Out("saved.txt"), "--cusum", Out("c.csm")});
    EXPECT_EQ(json["Cusum"][1], Json::parse("[0,-2,3.5,9,6.5]"));
    EXPECT_EQ(json["CusumChartData"].size(), 5u);
    EXPECT_EQ(json["CusumChartData"][0][0], 9.5);
    EXPECT_EQ(json["ChartLabels"], Json::parse(R"(["1","2","3","4","5"])"));
    EXPECT_EQ(ReadFile(Out("c.csm")).substr(0, 41), "period1,period2,period3,period4,period5,\n");
}

TEST_F(ProspectivePoints, StartsFIRAtHalfTheThreshold) {
    const Json json = JsonOf({"--start", "fir", "--h", "8"});
    EXPECT_EQ(json["Cusum"], Json::parse("[[4.5,5,9.5],[9.5,15,12.5],[3.5,3,2.5],[2.5,4,12.5]]"));
}

TEST_F(ProspectivePoints, CountsTheLinesOfTheZScores) {
    folder_.Write("z.txt", "1\n6\n");
    const Json json = JsonOf({});
    EXPECT_EQ(json["NumRegion"], 2);
    EXPECT_EQ(json["RegionLabel"], Json::parse(R"(["A","B"])"));
}

TEST_F(ProspectivePoints, TakesTheStudyAreaFromTheSurface) {
    const auto area = [&](const std::vector<std::string>& words) {
        return JsonOf(words)["TotalShapeArea"].get<double>();
    };
    const double opening = area({});
    EXPECT_EQ(area({"--surface", "6400,4110,423,270"}), opening);
    EXPECT_EQ(area({"--zoom", "1.0"}), opening);
    EXPECT_NE(area({"--zoom", "1.2"}), opening);
    EXPECT_NE(area({"--surface", "6400,4110,500,270"}), opening);
    EXPECT_EQ(Watch({"--surface", "6400,4110"}).Status, 2);
}

TEST_F(ProspectivePoints, FindsTheOutbreakOfTheSample) {
    const std::string samples = InProject("samples/");
    const auto result =
        RunBatch({"prospective-points", "--ids", samples + "watch_xy.txt", "--z", samples + "watch_z.txt"});
    EXPECT_EQ(result.Status, 0);
    // 92 rows of regions that signal, 2 + 6 + 13 + 16 + 17 + 19 + 19, in 7 periods.
    EXPECT_EQ(std::count(result.Output.begin(), result.Output.end(), '\n'), 2 + 24 + 1 + 7 + 92);
    EXPECT_NE(result.Output.find(Rule + "\n\n"), std::string::npos);
    EXPECT_NE(result.Output.find("   18    10.93"), std::string::npos);
}

TEST_F(ProspectivePoints, RefusesParametersWithTheMessagesOfTheScreen) {
    const std::string notNumeric = "Parameters are not properly input.\n";
    const std::string negative = "Parameters should be positive values.\n";
    for (const char* name : {"--k", "--h", "--sigma"}) {
        EXPECT_EQ(Watch({name, "x"}), (BatchResult{3, "", notNumeric})) << name;
        EXPECT_EQ(Watch({name, ""}), (BatchResult{3, "", notNumeric})) << name;
        EXPECT_EQ(Watch({name, "-0.5"}), (BatchResult{3, "", negative})) << name;
    }
}

TEST_F(ProspectivePoints, RefusesFilesWithTheMessagesOfTheScreen) {
    EXPECT_EQ(RunBatch({"prospective-points", "--ids", "", "--z", Out("z.txt")}),
              (BatchResult{3, "", "File name is not specified.\n"}));
    EXPECT_EQ(Watch({"--previous", ""}), (BatchResult{3, "", "File name is not specified.\n"}));
    folder_.Write("z.txt", "1,2\n3,\n");
    EXPECT_EQ(Watch({"--k", "x"}), // the data come before the parameters
              (BatchResult{3, "", "There is missing value in row 3 and column 2 in the dataset.\n"}));
    folder_.Write("ids.txt", "A,1\n");
    EXPECT_EQ(Watch({}), (BatchResult{3, "", "ID, XY Coordinates file was misspecified.\n"}));
}

TEST_F(ProspectivePoints, ReportsRunTimeErrorsAndLeavesNoFile) {
    const auto status = [&](const std::string& name, const std::string& bytes) {
        folder_.Write(name, bytes);
        const auto result = Watch({"--lists", Out("l"), "--json", Out("j")});
        EXPECT_EQ(result.Errors.substr(0, 15), "Run-time error ") << result;
        EXPECT_FALSE(fs::exists(Out("l")) || fs::exists(Out("j")));
        return result.Status;
    };
    EXPECT_EQ(status("z.txt", "1\n2\n3\n4\n5\n"), 4); // more rows than ids
    EXPECT_EQ(status("z.txt", "1,x\n"), 4);
    EXPECT_EQ(status("z.txt", ""), 4);
    EXPECT_EQ(status("ids.txt", "A,1,1\nB,2,1\n"), 4); // in one line
    EXPECT_EQ(Watch({"--previous", folder_.Path()}).Status, 4);
    EXPECT_EQ(RunBatch({"prospective-points", "--ids", Out("none"), "--z", Out("z.txt")}).Status, 4);
}

TEST_F(ProspectivePoints, StopsAtASavedTableOfAnotherSizeAndAtACusumFile) {
    folder_.Write("saved.txt", "1\n2\n3\n");
    EXPECT_EQ(Watch({"--previous", Out("saved.txt")}).Status, 4);
    ASSERT_EQ(Watch({"--cusum", Out("c.csm")}).Status, 0);
    const auto result = Watch({"--previous", Out("c.csm")});
    EXPECT_EQ(result.Status, 4);
    EXPECT_EQ(result.Errors.substr(0, 20), "Run-time error '13':");
}

TEST_F(ProspectivePoints, TellsWrongUse) {
    EXPECT_EQ(Watch({"--start", "previous"}).Status, 2);
    EXPECT_EQ(Watch({"--start", "zero", "--previous", Out("saved.txt")}).Status, 2);
    EXPECT_EQ(Watch({"--start", "fir", "--previous", Out("saved.txt")}).Status, 2);
    EXPECT_EQ(Watch({"--start", "soon"}).Status, 2);
    EXPECT_EQ(Watch({"--chart", Out("chart.gif")}).Status, 2);
    EXPECT_EQ(RunBatch({"prospective-points", "--ids", Out("ids.txt")}).Status, 2);
    EXPECT_EQ(RunBatch({"prospective-points", "--help"}).Status, 0);
}

TEST_F(ProspectivePoints, DrawsOnePictureAPeriod) {
#if VASTREL_PICTURES
    EXPECT_EQ(Watch({"--maps", Out("maps"), "--chart", Out("chart.png"), "--previous", Out("saved.txt")}),
              (BatchResult{0, "", ""}));
    for (int t = 1; t <= 5; ++t)
        EXPECT_EQ(ReadFile(Out("maps/period" + std::to_string(t) + ".png")).substr(1, 3), "PNG");
    EXPECT_FALSE(fs::exists(Out("maps/period6.png")));
    EXPECT_EQ(ReadFile(Out("chart.png")).substr(1, 3), "PNG");
    EXPECT_EQ(Watch({"--maps", Out("alone")}), (BatchResult{0, "", ""})); // no lists beside the maps
    EXPECT_EQ(Watch({"--chart", Out("alone.png")}), (BatchResult{0, "", ""}));
    folder_.Write("z.txt", "1,1,1,1,1,1,1,1,1,1\n0,0,0,0,0,0,0,0,0,0\n");
    EXPECT_EQ(Watch({"--maps", Out("ten")}).Status, 0);
    EXPECT_TRUE(fs::exists(Out("ten/period01.png")) && fs::exists(Out("ten/period10.png")));
    EXPECT_FALSE(fs::exists(Out("ten/period1.png")));
#else
    EXPECT_EQ(Watch({"--maps", Out("maps")}).Status, 2);
    EXPECT_EQ(Watch({"--chart", Out("chart.png")}).Status, 2);
    EXPECT_FALSE(fs::exists(Out("maps")));
#endif
}
