#include "support/AttributeData.h"
#include "support/BatchProgram.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using Words = std::vector<std::string>;
using Texts = std::vector<std::string>;

const std::string Dashes50(50, '-'), Dashes58(58, '-'), Dashes82(82, '-');

/// Three unit squares in a row with 10 cases of 1000 people, so that 1, 3 and 6 cases are expected. At sigma
/// 0 each stands alone: U is 1 - 1, 2 - 3 and 7 - 6.
class RetrospectivePolygons : public testing::Test {
protected:
    RetrospectivePolygons() {
        WriteDataset(
            Folder, "three",
            {{"KEY", 'C', 4}, {"NAME", 'C', 12}, {"POP", 'N', 8}, {"CASES", 'N', 4}, {"GAP", 'N', 4}},
            {{"a", "first", "100", "1", "1"},
             {"b", "second", "300", "2", "*"},
             {"c", "third", "600", "7", "1"}});
    }

    BatchResult Run(const Words& more,
                    const Words& columns = {"--pop", "POP", "--cases", "CASES", "--id", "KEY"}) const {
        Words words{"retrospective-polygons", Out("three.shp")};
        words.insert(words.end(), columns.begin(), columns.end());
        words.insert(words.end(), more.begin(), more.end());
        return RunBatch(words);
    }
    BatchResult RunTwoIDs(Words more) const {
        more.insert(more.end(), {"--id2", "NAME"});
        return Run(more);
    }
    Json JsonOf(Words more) const {
        more.insert(more.end(), {"--json", "-"});
        const auto result = Run(more);
        EXPECT_EQ(result.Status, 0) << result;
        return result.Status == 0 ? Json::parse(result.Output) : Json();
    }
    /// The lines of a text from one that begins so on.
    static std::string From(const std::string& text, const std::string& begin) {
        const size_t at = text.find(begin);
        return at == std::string::npos ? "" : text.substr(at);
    }
    std::string Out(const std::string& name) const { return Folder / name; }

    TemporaryFolder Folder;
};

} // namespace

// Z is U / sqrt(b - c) with b = e and c = e / 10: 0, -1 / sqrt(2.7) and 1 / sqrt(5.4).
TEST_F(RetrospectivePolygons, PrintsTheListsWhereNothingIsAskedFor) {
    const auto result = Run({"--sigma", "0"});
    EXPECT_EQ(result.Status, 0) << result;
    EXPECT_EQ(result.Output.rfind("\nU-statistic (unadjusted) = 2.000\n\n", 0), 0u) << result;
    EXPECT_EQ(From(result.Output, "\n" + Dashes82),
              "\n" + Dashes82 + "\n" + "           ID      U(i)   Z[U(i)]  Observed    Expected\n" +
                  Dashes82 + "\n" + "            a     0.000     0.000     1.000       1.000\n" +
                  "            b    -1.000    -0.609     2.000       3.000\n" +
                  "            c     1.000     0.430     7.000       6.000\n" + Dashes82 + "\n");
}

TEST_F(RetrospectivePolygons, PrintsBothIdsWhereTwoAreNamed) {
    const auto result = RunTwoIDs({"--sigma", "0"});
    EXPECT_EQ(From(result.Output, "\n" + Dashes82),
              "\n" + Dashes82 + "\n" + "        ID(1)        ID(2)     U(i)  Z[U(i)]      Obs      Exp\n" +
                  Dashes82 + "\n" + "            a        first    0.000    0.000    1.000    1.000\n" +
                  "            b       second   -1.000   -0.609    2.000    3.000\n" +
                  "            c        third    1.000    0.430    7.000    6.000\n" + Dashes82 + "\n");
    // M of Rossi at sigma 0 is (o - 3 e + 2 sqrt(o e)) / (2 sqrt(e)).
    const auto rossi = RunTwoIDs({"--sigma", "0", "--variable", "rossi", "--report", "-"});
    EXPECT_EQ(From(rossi.Output, "Summary of Local"),
              "Summary of Local M Statistic                         \n" + Dashes58 + "\n" +
                  "          ID(1)        ID(2)      M(i)  Observed  Expected\n" + Dashes58 + "\n" +
                  "              a        first      0.00      1.00      1.00\n" +
                  "              b       second     -0.61      2.00      3.00\n" +
                  "              c        third      0.40      7.00      6.00\n" + Dashes58 + "\n");
}

TEST_F(RetrospectivePolygons, PrintsARange) {
    const auto result = Run({"--from", "0", "--to", "1", "--step", "0.4", "--variable", "rossi"});
    EXPECT_EQ(result.Status, 0) << result;
    EXPECT_EQ(result.Output.rfind(" Sigma     M    M* \n" + Dashes50 + "\n 0.000  0.40", 0), 0u) << result;
    EXPECT_EQ(std::count(result.Output.begin(), result.Output.end(), '\n'), 2 + 4 + 1 + 1);
    EXPECT_TRUE(result.Output.ends_with("\n" + Dashes50 + "\n\n")); // the second list has no rows
    const auto report = Run({"--from", "0", "--to", "1", "--step", "0.4", "--report", "-"});
    EXPECT_EQ(report.Output.rfind("A summary for a range of bandwidths (Score statistic - unadjusted)\n\n"
                                  " Sigma     U-Stats         Chi      DF       P-Val    \n" +
                                      Dashes58 + "\n 0.000        2.00",
                                  0),
              0u)
        << report;
}

TEST_F(RetrospectivePolygons, WritesTheNumbersOfOneBandwidth) {
    const Json json = JsonOf({"--sigma", "0"});
    EXPECT_EQ(json["NumRegion"], 3);
    EXPECT_EQ(json["TotalShapeArea"], 3);
    EXPECT_EQ(json["RegionCentroid"], (Json{{0.5, 0.5}, {1.5, 0.5}, {2.5, 0.5}}));
    EXPECT_EQ(json["ExpRatio"], (Json{0.1, 0.3, 0.6}));
    EXPECT_EQ(json["TotalPop"], 1000);
    EXPECT_FALSE(json.contains("PlottedPoints")); // those are of points
    EXPECT_EQ(json["CurrentSigma"], 0.00000001);
    EXPECT_EQ(json["LocalU"], (Json{0, -1, 1}));
    EXPECT_EQ(json["GlobalU"], 2);
    // One value below 0 and two others: all limits are 0, and so is the smaller one of the two.
    EXPECT_EQ(json["LegendLimits"], (Json{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(json["ClassOf"], (Json{6, 1, 6}));
    EXPECT_EQ(json["LegendTexts"],
              (Texts{" -1.0000   -   0.0000", "  0.0000   -    0.0000", "  0.0000   -    0.0000",
                     "  0.0000   -    0.0000", "  0.0000   -    0.0000", "  0.0000   -    1.0000"}));
}

TEST_F(RetrospectivePolygons, WritesTheFixedTextsOfAnM) {
    for (const char* variable : {"freeman-tukey", "rossi"}) {
        const Json json = JsonOf({"--sigma", "0", "--variable", variable});
        EXPECT_EQ(json["LegendTexts"], (Texts{"            < -M*", "-M* =<  -  < -0.5M*", "-0.5M* =<  -  < 0",
                                              "0 =<  -  < 0.5M*", "0.5M* =<  -  < M*", "M* =< "}));
        const double critical = json["MCritical"];
        EXPECT_EQ(json["LegendLimits"],
                  (Json{-critical, -0.5 * critical, 0.0, 0.5 * critical, critical, 0.0}));
    }
}

TEST_F(RetrospectivePolygons, WritesTheNumbersOfARange) {
    const Json json = JsonOf({"--from", "0", "--to", "1", "--step", "0.4"});
    EXPECT_EQ(json["BandwidthList"], (Json{0.00000001, 0.4 + 0.00000001, 0.4 + 0.00000001 + 0.4, 1.0}));
    EXPECT_EQ(json["ChartLabels"], (Texts{"0.000", "0.400", "0.800", "1.200"}));
    EXPECT_EQ(json["StatisticTable"][0], (Json{0, -1, 1}));
    EXPECT_EQ(json["SweepStat"][0], 2);
    for (int k = 0; k < 4; ++k)
        EXPECT_EQ(json["ChartData"][k], (Json{json["SweepChi"][k], json["SweepChiCritical"][k]}));
}

TEST_F(RetrospectivePolygons, DrawsItsPictures) {
#if VASTREL_PICTURES
    EXPECT_EQ(Run({"--sigma", "1", "--map", Out("one.png")}), (BatchResult{0, "", ""}));
    const std::string png = ReadFile(Out("one.png"));
    EXPECT_EQ(png.substr(16, 8), BigInteger(4 * 389) + BigInteger(4 * 269)); // four times enlarged
    EXPECT_EQ(Run({"--sigma", "1", "--map", Out("one.svg")}).Status, 0);
    EXPECT_NE(ReadFile(Out("one.svg")).find("<svg"), std::string::npos);

    const Words range{"--from", "0.5", "--to", "1.5", "--step", "0.5"};
    for (const char* step : {"1", "3"}) {
        Words words = range;
        words.insert(words.end(), {"--variable", "rossi", "--map", Out(step + std::string(".svg")),
                                   "--map-step", step, "--chart", Out("chart.pdf")});
        EXPECT_EQ(Run(words), (BatchResult{0, "", ""}));
    }
    EXPECT_NE(ReadFile(Out("1.svg")), ReadFile(Out("3.svg")));
    EXPECT_EQ(Run({"--chart", Out("chart.svg")}), (BatchResult{0, "", ""})); // no lists beside a chart
    EXPECT_EQ(ReadFile(Out("chart.pdf")).rfind("%PDF", 0), 0u);
#else
    EXPECT_EQ(Run({"--sigma", "1", "--map", Out("one.png")}).Status, 2);
#endif
}

// With 3 and 4 no output file is created or changed.
TEST_F(RetrospectivePolygons, WritesNothingWhereTheInputIsRefused) {
    const Words files{"--lists", Out("lists"), "--report", Out("report"), "--json", Out("json")};
    Folder.Write("report", "before");
    const auto expect = [&](const BatchResult& expected, Words words, const Words& columns) {
        words.insert(words.end(), files.begin(), files.end());
        EXPECT_EQ(Run(words, columns), expected);
        EXPECT_FALSE(fs::exists(Out("lists")));
        EXPECT_FALSE(fs::exists(Out("json")));
        EXPECT_EQ(ReadFile(Out("report")), "before");
    };
    const Words good{"--pop", "POP", "--cases", "CASES", "--id", "KEY"};
    expect({3, "", "Bandwidth should not be negative.\n"}, {"--sigma", "-1"}, good);
    expect({3, "", "Bandwidth should be numerical.\n"}, {"--sigma", ""}, good);
    expect({3, "", "A range of bandwidth parameters should be numeric.\n"}, {"--from", "x"}, good);
    expect({3, "", "Ivalid range of bandwidth was input. Check the parameters!\n"}, {"--step", "0"}, good);
    expect({3, "", "Data include null values. Check data and try again!\n"}, {},
           {"--pop", "POP", "--cases", "GAP", "--id", "KEY"});
    expect({4, "", "Run-time error '94':\n\nInvalid use of Null\n"}, {},
           {"--pop", "POP", "--cases", "CASES", "--id", "GAP"});
    expect({4, "", "Run-time error '6':\n\nOverflow\n"}, {"--step", "0.00001"}, good);
}

TEST_F(RetrospectivePolygons, RefusesFilesThatCannotBeOpened) {
    const Words columns{"--pop", "POP", "--cases", "CASES", "--id", "KEY"};
    const auto open = [&](const std::string& file) {
        Words words{"retrospective-polygons", file};
        words.insert(words.end(), columns.begin(), columns.end());
        return RunBatch(words);
    };
    EXPECT_EQ(open(Out("none.shp")).Status, 4);
    EXPECT_NE(open(Out("none.shp")).Errors.find("Run-time error '53'"), std::string::npos);
    fs::create_directory(Out("folder.shp"));
    EXPECT_NE(open(Out("folder.shp")).Errors.find("Run-time error '75'"), std::string::npos);
    for (const char* extension : {"shp", "shx", "dbf"})
        fs::copy(Out(std::string("three.") + extension), Out(std::string("district9.") + extension));
    EXPECT_EQ(open(Out("district9.shp")),
              (BatchResult{3, "", "The length of filename should be less than 8.\n"}));
}

// x = 4 alpha (1 + 0.81 sigma^2) / N is above 1 here, so that M* does not exist: the message, and on it goes.
TEST_F(RetrospectivePolygons, GoesOnWithoutACriticalValue) {
    const auto result = Run({"--sigma", "6", "--variable", "rossi"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, "Error!\nError!\n"); // of the list, then of the legend
    EXPECT_NE(result.Output.find("M Critical (M*) = 0.000\n"), std::string::npos) << result;
}

TEST_F(RetrospectivePolygons, TellsWrongUse) {
    for (const Words& more :
         {Words{"--variable", "median"}, Words{"--alpha", "0.1"}, Words{"--sigma", "1", "--from", "1"},
          Words{"--unknown"}, Words{"more"}, Words{"--map", "map.txt", "--sigma", "1"},
          Words{"--map", Out("m.png")}, Words{"--map", Out("m.png"), "--map-step", "11"},
          Words{"--chart", "c.gif"}, Words{"--chart", Out("c.png"), "--sigma", "1"},
          Words{"--map-step", "1", "--sigma", "1"}, Words{"--obs", "CASES"}, Words{"--exp", "CASES"}}) {
        const auto result = Run(more);
        EXPECT_EQ(result.Status, 2) << more[0];
        EXPECT_EQ(result.Output, "") << more[0];
        EXPECT_NE(result.Errors, "") << more[0];
        EXPECT_FALSE(fs::exists(Out("m.png")));
    }
    EXPECT_EQ(RunBatch({"retrospective-polygons"}).Status, 2);
}
