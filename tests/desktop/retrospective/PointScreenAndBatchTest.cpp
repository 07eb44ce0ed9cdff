#include "desktop/retrospective/PointScreen.h"
#include "desktop/retrospective/RetroBatch.h"
#include "support/ProjectFolder.h"

#include <ostream>

using namespace vastrel;

namespace {

struct Dataset {
    std::string Name, Path;
    const char* Option;
    const char* Format;
};

void PrintTo(const Dataset& dataset, std::ostream* out) {
    *out << dataset.Name;
}

const std::string Samples = InProject("samples/");

std::vector<Dataset> Datasets() {
    std::vector<Dataset> all{{"SampleObsExp", Samples + "country_exp.txt", "optObsExp", "obs-exp"},
                             {"SamplePopCase", Samples + "country_pop.txt", "optPopCase", "pop-case"}};
    if (const auto path = RealData("points/tokyo_oe.txt"); !path.empty())
        all.push_back({"Tokyo", path, "optObsExp", "obs-exp"});
    if (const auto path = RealData("points/akl_pc.txt"); !path.empty())
        all.push_back({"Auckland", path, "optPopCase", "pop-case"});
    return all;
}

/// The screen and the batch program do the same work on the same core: rows and files are the same bytes.
class PointScreenAndBatch : public PointScreenTest, public testing::WithParamInterface<Dataset> {
protected:
    void ExpectTheSame(const char* variable, const std::vector<std::string>& bandwidth) {
        std::vector<std::string> test{"--variable", variable};
        test.insert(test.end(), bandwidth.begin(), bandwidth.end());
        const RetroBatch batch =
            RunRetroBatch({"retrospective-points", GetParam().Path, "--format", GetParam().Format}, test);
        EXPECT_EQ(JoinedLists(Rows(Global()), Rows(Local())), batch.Lists);
        Save(Folder / "screen.txt");
        EXPECT_EQ(ReadFile(Folder / "screen.txt"), batch.Report);
    }
};

} // namespace

TEST_P(PointScreenAndBatch, GiveTheSameRowsAndReports) {
    Load(GetParam().Path, GetParam().Option);
    for (const auto& [option, variable] : RetroVariables) {
        Press(Screen, option);
        for (const char* sigma : {"0", "0.5", "1", "2"}) {
            SCOPED_TRACE(std::string(variable) + " " + sigma);
            RunSingle(sigma);
            ExpectTheSame(variable, {"--sigma", sigma});
        }
        SCOPED_TRACE(std::string(variable) + " over the range");
        RunRange("0.2", "2.0", "0.2");
        ExpectTheSame(variable, {});
    }
}

INSTANTIATE_TEST_SUITE_P(Points, PointScreenAndBatch, testing::ValuesIn(Datasets()),
                         [](const auto& test) { return test.param.Name; });
