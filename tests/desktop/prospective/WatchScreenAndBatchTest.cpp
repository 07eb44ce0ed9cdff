#include "desktop/prospective/ShownLists.h"
#include "desktop/prospective/WatchScreen.h"
#include "support/BatchProgram.h"
#include "support/ProjectFolder.h"

using namespace vastrel;

namespace {

const std::string Samples = InProject("samples/");

struct Series {
    std::string Ids, Z;
};

std::vector<Series> AllSeries() {
    std::vector<Series> all{{Samples + "watch_xy.txt", Samples + "watch_z.txt"}};
    for (const char* name : {"imd", "msl"}) {
        const auto ids = RealData(std::string("prospect/") + name + "_xy.txt");
        if (!ids.empty()) all.push_back({ids, RealData(std::string("prospect/") + name + "_z.txt")});
    }
    return all;
}

/// The screen and the batch program do the same work on the same core: rows and files are the same bytes.
class WatchScreenAndBatch : public WatchScreenTest {
protected:
    void ExpectTheSame(const Series& series, const std::string& sigma,
                       const std::vector<std::string>& start) {
        Type(Screen, "txtSigma", sigma);
        Type(Screen, "txtHvalue", "3");
        Run();
        std::vector<std::string> words{"--quiet",  "prospective-points",
                                       "--ids",    series.Ids,
                                       "--z",      series.Z,
                                       "--k",      "0.5",
                                       "--h",      "3",
                                       "--sigma",  sigma,
                                       "--lists",  Folder / "lists",
                                       "--report", Folder / "report",
                                       "--cusum",  Folder / "cusum"};
        words.insert(words.end(), start.begin(), start.end());
        const BatchResult batch = RunBatch(words);
        ASSERT_EQ(batch.Status, 0) << batch;
        EXPECT_EQ(ShownLists(*Periods(), *Regions()), ReadFile(Folder / "lists"));
        Script.ExpectFile(FileQuestion::Kind::Save, ReportFilter, Folder / "shown");
        Press(Screen, "cmdSaveResult");
        EXPECT_EQ(ReadFile(Folder / "shown"), ReadFile(Folder / "report"));
        Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "shown");
        Press(Screen, "cmdSaveCusum");
        EXPECT_EQ(ReadFile(Folder / "shown"), ReadFile(Folder / "cusum"));
    }
};

} // namespace

TEST_F(WatchScreenAndBatch, GiveTheSameRowsAndFiles) {
    for (const auto& series : AllSeries()) {
        Press(Screen, "optPre");
        Press(Screen, "optZero");
        Load("cmdFileOpenIDXY", series.Ids);
        Load("cmdNewZScore", series.Z);
        for (const char* sigma : {"0", "1"}) {
            SCOPED_TRACE(series.Z + " " + sigma);
            ExpectTheSame(series, sigma, {});
        }
    }
}

TEST_F(WatchScreenAndBatch, ContinueTheSameSums) {
    const Series series{IDs(), Z()};
    LoadForContinuation();
    ExpectTheSame(series, "0", {"--previous", Saved()});
}
