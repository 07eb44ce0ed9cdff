#include "support/AttributeData.h"
#include "support/BatchProgram.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

using namespace vastrel;

namespace {

using Words = std::vector<std::string>;

const Words PopCase{"--pop", "POP", "--cases", "CASES", "--id", "KEY"};
const Words ObsExp{"--obs", "CASES", "--exp", "EXPECTED", "--id", "KEY"};

/// What the retrospective command makes of the columns that it is given.
class PolygonColumns : public testing::Test {
protected:
    PolygonColumns()
        : File(WriteDataset(Folder, "three",
                            {{"KEY", 'C', 4},
                             {"POP", 'N', 8},
                             {"CASES", 'N', 4},
                             {"EXPECTED", 'N', 8, 2},
                             {"NULLS", 'N', 4},
                             {"NONE", 'N', 4}},
                            {{"a", "100", "1", "1", "5", "0"},
                             {"b", "300", "2", "4", "*", "0"},
                             {"c", "600", "7", "9", "5", "0"}})) {}

    BatchResult Run(const Words& columns) const {
        Words words{"retrospective-polygons", File, "--sigma", "1", "--json", "-"};
        words.insert(words.end(), columns.begin(), columns.end());
        return RunBatch(words);
    }
    nlohmann::json JsonOf(const Words& columns) const {
        const auto result = Run(columns);
        EXPECT_EQ(result.Status, 0) << result;
        return nlohmann::json::parse(result.Output);
    }

    TemporaryFolder Folder;
    std::string File;
};

constexpr const char* OnePair = "Give --pop and --cases, or --obs and --exp.\n";

} // namespace

// 10 cases of 1000 people.
TEST_F(PolygonColumns, AreBoundInBothFormats) {
    const auto popCase = JsonOf(PopCase);
    EXPECT_EQ(popCase["ObsCount"], (std::vector<double>{1, 2, 7}));
    EXPECT_EQ(popCase["ExpCount"], (std::vector<double>{1, 3, 6}));
    EXPECT_EQ(popCase["TotalPop"], 1000);
    EXPECT_EQ(popCase["TotalShapeArea"], 3);
    EXPECT_EQ(popCase["RegionCentroid"][2], (std::vector<double>{2.5, 0.5}));
    const auto obsExp = JsonOf(ObsExp);
    EXPECT_EQ(obsExp["ExpCount"], (std::vector<double>{1, 4, 9}));
    EXPECT_EQ(obsExp["TotalObs"], 10);
    EXPECT_EQ(obsExp["TotalPop"], 0);
    EXPECT_EQ(JsonOf({"--pop", "pop", "--cases", "Cases", "--id", "key", "--id2", "pop"})["TotalPop"], 1000);
}

TEST_F(PolygonColumns, ComeInOnePair) {
    for (const Words& columns :
         {Words{"--id", "KEY"}, Words{"--pop", "POP", "--id", "KEY"},
          Words{"--pop", "POP", "--exp", "EXPECTED", "--id", "KEY"},
          Words{"--pop", "POP", "--cases", "CASES", "--obs", "CASES", "--exp", "EXPECTED", "--id", "KEY"}})
        EXPECT_EQ(Run(columns).Status, 2);
    for (const Words& columns : {Words{"--id", "KEY"}, Words{"--pop", "POP", "--id", "KEY"}})
        EXPECT_EQ(Run(columns), (BatchResult{2, "", OnePair}));
    EXPECT_EQ(Run({"--pop", "POP", "--cases", "CASES"}).Status, 2); // no id
}

TEST_F(PolygonColumns, HaveToBeOffered) {
    EXPECT_EQ(Run({"--pop", "PEOPLE", "--cases", "CASES", "--id", "KEY"}),
              (BatchResult{2, "", "three.dbf has no column \"PEOPLE\".\n"}));
    EXPECT_EQ(Run({"--pop", "KEY", "--cases", "CASES", "--id", "KEY"}),
              (BatchResult{2, "", "The column \"KEY\" holds no numbers.\n"}));
    EXPECT_EQ(Run({"--pop", "POP", "--cases", "CASES", "--id", "NAME"}),
              (BatchResult{2, "", "three.dbf has no column \"NAME\".\n"}));
    EXPECT_EQ(Run({"--pop", "POP", "--cases", "CASES", "--id", "KEY", "--id2", "NAME"}).Status, 2);
    EXPECT_EQ(Run({"--pop", "POP", "--cases", "CASES", "--id", ""}).Status, 2);
}

TEST_F(PolygonColumns, AreRefusedInTheWordsOfTheScreen) {
    EXPECT_EQ(Run({"--pop", "POP", "--cases", "NULLS", "--id", "KEY"}),
              (BatchResult{3, "", "Data include null values. Check data and try again!\n"}));
    EXPECT_EQ(Run({"--pop", "NONE", "--cases", "CASES", "--id", "KEY"}),
              (BatchResult{3, "", "Data include invalid values. Check data and try again!\n"}));
}

TEST_F(PolygonColumns, EndInRunTimeErrors) {
    EXPECT_EQ(Run({"--pop", "POP", "--cases", "NONE", "--id", "KEY"}),
              (BatchResult{4, "", "Run-time error '11':\n\nDivision by zero\n"}));
    EXPECT_EQ(Run({"--pop", "POP", "--cases", "CASES", "--id", "NULLS"}),
              (BatchResult{4, "", "Run-time error '94':\n\nInvalid use of Null\n"}));
    std::filesystem::remove(Folder / "three.dbf");
    const auto result = Run(PopCase);
    EXPECT_EQ(result.Status, 4);
    EXPECT_NE(result.Errors.find("Run-time error '91'"), std::string::npos) << result;
}
