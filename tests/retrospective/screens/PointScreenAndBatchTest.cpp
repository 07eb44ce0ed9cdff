#include "retrospective/screens/PointScreen.h"
#include "support/BatchProgram.h"

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

const std::string Samples = std::string(PROJECT_FOLDER) + "/samples/";

std::vector<Dataset> Datasets() {
    std::vector<Dataset> all{{"SampleObsExp", Samples + "country_exp.txt", "optObsExp", "obs-exp"},
                             {"SamplePopCase", Samples + "country_pop.txt", "optPopCase", "pop-case"}};
    if (const auto path = RealData("points/tokyo_oe.txt"); !path.empty())
        all.push_back({"Tokyo", path, "optObsExp", "obs-exp"});
    if (const auto path = RealData("points/akl_pc.txt"); !path.empty())
        all.push_back({"Auckland", path, "optPopCase", "pop-case"});
    return all;
}

const std::pair<const char*, const char*> Variables[] = {{"optUnadjusted", "unadjusted"},
                                                         {"optAdjusted_Generic", "adjusted"},
                                                         {"optStandard", "freeman-tukey"},
                                                         {"optRossi", "rossi"}};

/// The screen and the batch program do the same work on the same core: rows and files are the same bytes.
class PointScreenAndBatch : public PointScreenTest, public testing::WithParamInterface<Dataset> {
protected:
    void ExpectTheSame(const char* variable, const std::vector<std::string>& bandwidth) {
        const std::string lists = Folder / "lists.txt", report = Folder / "batch.txt";
        std::vector<std::string> words{"--quiet",
                                       "retrospective-points",
                                       GetParam().Path,
                                       "--format",
                                       GetParam().Format,
                                       "--variable",
                                       variable,
                                       "--lists",
                                       lists,
                                       "--report",
                                       report};
        words.insert(words.end(), bandwidth.begin(), bandwidth.end());
        const BatchResult batch = RunBatch(words);
        ASSERT_EQ(batch.Status, 0) << batch;
        std::string shown;
        for (const auto& row : Rows(Global()))
            shown += row + "\n";
        shown += "\n";
        for (const auto& row : Rows(Local()))
            shown += row + "\n";
        EXPECT_EQ(shown, ReadFile(lists));
        Save(Folder / "screen.txt");
        EXPECT_EQ(ReadFile(Folder / "screen.txt"), ReadFile(report));
    }
};

} // namespace

TEST_P(PointScreenAndBatch, GiveTheSameRowsAndReports) {
    Load(GetParam().Path, GetParam().Option);
    for (const auto& [option, variable] : Variables) {
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
