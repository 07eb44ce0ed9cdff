#include "core/spatial/AttributeRows.h"
#include "desktop/retrospective/RetroBatch.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/OptionButton.h"

#include <cstdio>
#include <ostream>

using namespace vastrel;

namespace {

/// A dataset with the columns that are bound, and the bandwidths that it is tested with.
struct Dataset {
    std::string Name;
    std::string File; // of the real data, or the sample
    CountColumns Columns;
    std::vector<const char*> Sigmas;
    const char *From, *To, *Step;
};

void PrintTo(const Dataset& dataset, std::ostream* out) {
    *out << dataset.Name;
}

Dataset Small(const std::string& name, const std::string& file, const CountColumns& columns) {
    return {name, file, columns, {"0", "0.5", "1"}, "0.2", "2.0", "0.2"};
}
Dataset Large(const std::string& name, const std::string& file, const CountColumns& columns) {
    return {name, file, columns, {"0.5"}, "0.4", "0.8", "0.4"};
}

const Dataset Datasets[] = {
    Small("Sample", "", {"POP", "CASES", "", "", "NAME", ""}),
    Small("SampleExpected", "", {"", "", "CASES", "EXPECTED", "NAME", "ID"}),
    Small("NorthCarolina", "nc/nc", {"BIR74", "SID74", "", "", "NAME", ""}),
    Small("NorthCarolinaTwoIds", "nc/nc", {"BIR74", "SID74", "", "", "NAME", "FIPSNO"}),
    Small("NorthCarolinaExpected", "nc/nc", {"", "", "OBSERVED", "EXPECTED", "NAME", ""}),
    Small("Scotland", "scotlip/scotlip", {"POP", "CANCER", "", "", "NAME", ""}),
    Small("ScotlandExpected", "scotlip/scotlip", {"", "", "CANCER", "CEXP", "CODENO", "NAME"}),
    Large("Colombia", "colmunic/colmunic", {"TP1998", "MALARI98", "", "", "IDDANE", ""}),
    {"ColombiaTwoIds",
     "colmunic/colmunic",
     {"TP1998", "MALARI98", "", "", "ADM2", "ADM1"},
     {"0.5"},
     "0.4",
     "0.5",
     "1"},
    Small("Germany", "imd_de/imd_de", {"POP", "IMD", "", "", "KEY", ""}),
    Small("GermanyExpected", "imd_de/imd_de", {"", "", "IMD", "EXPECTED", "KEY", "NAME"}),
};

class RetroScreenAndBatch : public RetroPolygonTest, public testing::WithParamInterface<Dataset> {
protected:
    /// The dataset as files of the test's own; empty where the data are not there.
    std::string CopyDataset() {
        if (GetParam().File.empty()) return CopySample();
        const std::string path = CopyOfRealShapefile(Folder, GetParam().File);
        if (!path.empty() && GetParam().Columns.Obs == "OBSERVED") AddExpectedCases();
        return path;
    }

    /// The deaths as observed counts, and the expected ones by the births.
    void AddExpectedCases() {
        ASSERT_TRUE(OpenRealDataset(Folder, GetParam().File));
        std::vector<std::vector<std::string>> rows;
        WalkRows([&](std::ptrdiff_t) {
            const double births = AttributeTable().Fields("BIR74").Value().Number();
            char expected[32];
            std::snprintf(expected, sizeof expected, "%14.6f", births * 667 / 329962);
            rows.push_back({AttributeTable().Fields("SID74").Value().Text(), expected});
        });
        ws = Workspace{};
        Folder.Write("nc.dbf", WithColumns(ReadFile(Folder / "nc.dbf"),
                                           {{"OBSERVED", 'N', 6}, {"EXPECTED", 'N', 14, 6}}, rows));
    }

    std::vector<std::string> Words(const std::string& path) const {
        const CountColumns& columns = GetParam().Columns;
        std::vector<std::string> words{"retrospective-polygons", path};
        const std::pair<const char*, const std::string&> options[] = {
            {"--pop", columns.Pop}, {"--cases", columns.Case},   {"--obs", columns.Obs},
            {"--exp", columns.Exp}, {"--id", columns.PrimaryID}, {"--id2", columns.SecondaryID}};
        for (const auto& [option, column] : options)
            if (!column.empty()) words.insert(words.end(), {option, column});
        return words;
    }

    void ExpectTheSame(const RetroBatch& batch) {
        EXPECT_EQ(JoinedLists(Rows(Global()), Rows(Local())), batch.Lists);
        Save(Folder / "screen.txt");
        EXPECT_EQ(ReadFile(Folder / "screen.txt"), batch.Report);
        EXPECT_FALSE(batch.Report.empty());
    }
};

} // namespace

TEST_P(RetroScreenAndBatch, GiveTheSameRowsAndReports) {
    const std::string path = CopyDataset();
    if (path.empty()) GTEST_SKIP() << "no real data";
    OpenBound(path, GetParam().Columns);
    ASSERT_TRUE(Retro.isVisible());
    const auto words = Words(path);
    const auto& [name, file, columns, sigmas, from, to, step] = GetParam();
    for (const auto& [option, variable] : RetroVariables) {
        for (const char* sigma : sigmas) {
            SCOPED_TRACE(std::string(variable) + " " + sigma);
            RunSingle(option, sigma);
            ExpectTheSame(RunRetroBatch(words, {"--variable", variable, "--sigma", sigma}));
            EXPECT_EQ(Local()->ListCount(), ws.NumRegion + 4);
        }
        Shot(Frame, "polygon-real-" + name + "-" + variable);
        SCOPED_TRACE(std::string(variable) + " over a range");
        RunRange(option, from, to, step);
        ExpectTheSame(
            RunRetroBatch(words, {"--variable", variable, "--from", from, "--to", to, "--step", step}));
        Tool("MapAnimation")->trigger();
    }
}

INSTANTIATE_TEST_SUITE_P(Polygons, RetroScreenAndBatch, testing::ValuesIn(Datasets),
                         [](const auto& test) { return test.param.Name; });
