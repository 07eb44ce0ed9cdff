#include "desktop/prospective/PolygonWatchScreen.h"
#include "desktop/prospective/ShownLists.h"
#include "support/BatchProgram.h"
#include "support/PlainWatch.h"
#include "support/ProjectFolder.h"

#include <cmath>

using namespace vastrel;

namespace {

const std::string Samples = InProject("samples/");
using Words = std::vector<std::string>;

/// Where a run has its z-scores from: a text file, or else two columns.
struct Source {
    std::string File;
    std::string First, Last;

    Words Options() const { return File.empty() ? Words{"--fields", First, Last} : Words{"--z", File}; }
};

/// How a run starts: at 0, or from a cusum file with one of the displays.
struct Beginning {
    std::string Saved;
    bool ShowsBoth = false;

    Words Options() const {
        if (Saved.empty()) return {};
        return {"--previous", Saved, "--show", ShowsBoth ? "both" : "current"};
    }
};

/// The screen and the batch program do the same work on the same core: rows, report and cusum file are the
/// same bytes.
class PolygonScreenAndBatch : public PolygonWatchScreenTest {
protected:
    /// Opens a dataset with one id or two and the screen as new.
    void OpenSet(const std::string& path, const std::string& id, const std::string& id2) {
        Screen.Unload();
        Dialog.Unload();
        path_ = path;
        ids_ = {"--id", id};
        if (!id2.empty()) ids_.insert(ids_.end(), {"--id2", id2});
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
        Command("mnuOpenShapePro");
        TakeIDs(id, id2);
    }

    void RunFrom(const Source& source, const Beginning& start) {
        Press(Screen, source.File.empty() ? "optFieldSelection" : "optExistingTextfile");
        if (source.File.empty()) {
            PickColumn(From(), source.First);
            PickColumn(To(), source.Last);
        }
        const auto expectFile = [&] {
            if (!source.File.empty()) Script.ExpectFile(FileQuestion::Kind::Open, TextFilter, source.File);
        };
        Press(Screen, start.Saved.empty() ? "optZero" : "optPre");
        if (start.Saved.empty()) expectFile();
        Run();
        if (start.Saved.empty()) return;
        Script.ExpectFile(FileQuestion::Kind::Open, CusumFilter, start.Saved);
        Press(Dialog, "cmdOpen");
        Press(Dialog, start.ShowsBoth ? "optPreviousCurrent" : "optCurrent");
        expectFile();
        Press(Dialog, "cmdOK");
    }

    void ExpectTheSame(const Source& source, const Beginning& start, const std::string& sigma) {
        SCOPED_TRACE(path_ + " " + source.File + source.First + " " + start.Saved +
                     (start.ShowsBoth ? " both " : " ") + sigma + " " + ids_.back());
        Type(Screen, "txtSigma", sigma);
        Type(Screen, "txtHvalue", "3");
        RunFrom(source, start);
        Words words{"--quiet",
                    "prospective-polygons",
                    path_,
                    "--h",
                    "3",
                    "--sigma",
                    sigma,
                    "--lists",
                    Folder / "lists",
                    "--report",
                    Folder / "report"};
        for (const Words& more : {ids_, source.Options(), start.Options()})
            words.insert(words.end(), more.begin(), more.end());
        if (start.Saved.empty()) words.insert(words.end(), {"--cusum", Folder / "cusum"});
        const BatchResult batch = RunBatch(words);
        ASSERT_EQ(batch.Status, 0) << batch;
        EXPECT_EQ(ShownLists(*Periods(), *Regions()), ReadFile(Folder / "lists"));
        Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, Folder / "shown");
        Press(Screen, "cmdSaveResult");
        EXPECT_EQ(ReadFile(Folder / "shown"), ReadFile(Folder / "report"));
        EXPECT_EQ(CanSaveCusum(), start.Saved.empty());
        if (!start.Saved.empty()) return;
        Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "shown");
        Press(Screen, "cmdSaveCusum");
        EXPECT_EQ(ReadFile(Folder / "shown"), ReadFile(Folder / "cusum"));
    }

    /// Runs the first half, saves it, goes on from it, and holds the sums against those of one run.
    void ExpectContinued(const Source& whole, const Source& first, const Source& second) {
        for (const char* sigma : {"0", "1"}) {
            Type(Screen, "txtSigma", sigma);
            RunFrom(whole, {});
            const Table<double> one = ws.CusumValue;
            RunFrom(first, {});
            const std::ptrdiff_t saved = ws.CusumValue.UpperBound2();
            Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "half.csm");
            Press(Screen, "cmdSaveCusum");
            for (const bool both : {false, true}) {
                RunFrom(second, {Folder / "half.csm", both});
                ExpectRest(one, saved);
                ExpectDisplay(one, saved, both);
            }
        }
    }

private:
    void ExpectRest(const Table<double>& one, std::ptrdiff_t saved) {
        ASSERT_EQ(ws.CusumValue.UpperBound2() + saved, one.UpperBound2());
        for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
            for (std::ptrdiff_t t = 1; t <= ws.CusumValue.UpperBound2(); ++t)
                ASSERT_NEAR(ws.CusumValue(i, t), one(i, saved + t), 1e-13 * (1 + one(i, saved + t)));
    }

    /// The numbers of the rows, the chart with its labels, and the buttons.
    void ExpectDisplay(const Table<double>& one, std::ptrdiff_t saved, bool both) {
        const std::ptrdiff_t inFront = both ? saved : 0, periods = one.UpperBound2() - saved;
        ASSERT_EQ(Periods()->ListCount(), periods + 3);
        EXPECT_EQ(std::stoi(Periods()->List(2)), inFront + 1);
        EXPECT_EQ(std::stoi(Periods()->List(static_cast<int>(periods) + 1)), inFront + periods);
        EXPECT_EQ(Text(Screen, "lblY"), std::to_string(periods));
        ASSERT_EQ(ws.CusumChartData.UpperBound1() + 1, inFront + periods);
        for (std::ptrdiff_t row = 0; row < inFront + periods; ++row) {
            double maximum = 0;
            for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
                maximum = std::max(maximum, one(i, saved - inFront + row + 1));
            EXPECT_NEAR(ws.CusumChartData(row, 0), maximum, 1e-13 * (1 + maximum)) << row;
            EXPECT_EQ(ws.CusumChartLabels.at(static_cast<size_t>(row)), std::to_string(row + 1));
        }
        EXPECT_TRUE(CanSaveResult());
        EXPECT_FALSE(CanSaveCusum());
    }

    std::string path_;
    Words ids_;
};

} // namespace

TEST_F(PolygonScreenAndBatch, GiveTheSameRowsAndFilesOfTheSample) {
    const Beginning starts[] = {
        {}, {Samples + "watch_previous.csm", false}, {Samples + "watch_previous.csm", true}};
    for (const char* id2 : {"", "ID"}) {
        OpenSet(Samples + "country.shp", "NAME", id2);
        for (const Beginning& start : starts)
            for (const char* sigma : {"0", "1"}) {
                ExpectTheSame({"", "OBS01", "OBS24"}, start, sigma);
                ExpectTheSame({Samples + "watch_z.txt", "", ""}, start, sigma);
                if (start.ShowsBoth) Shot(Frame, std::string("frmUnivariate_sample") + sigma + id2);
            }
    }
}

TEST_F(PolygonScreenAndBatch, GiveTheSameRowsAndFilesOfTheGermanDistricts) {
    const std::string path = CopyOfRealShapefile(Folder, "imd_de/imd_de");
    if (path.empty()) GTEST_SKIP() << "The real data are not here.";
    const Source all{"", "IMD02", "IMD08"}, first{"", "IMD02", "IMD05"}, second{"", "IMD06", "IMD08"};
    for (const char* id2 : {"", "NAME"}) {
        OpenSet(path, "KEY", id2);
        ExpectContinued(all, first, second);
        for (const char* sigma : {"0", "1"}) {
            ExpectTheSame(all, {}, sigma);
            ExpectTheSame(second, {Folder / "half.csm", true}, sigma);
        }
    }
}

TEST_F(PolygonScreenAndBatch, GiveTheSameRowsAndFilesOfTheMeasles) {
    const MeaslesWatch measles(Folder);
    if (!measles.IsThere()) GTEST_SKIP() << "The real data are not here.";
    OpenSet(measles.Shp, "NAME", "");
    ExpectContinued({"", "Z1", "Z40"}, {"", "Z1", "Z20"}, {"", "Z21", "Z40"});
    const Source whole{measles.Whole, "", ""}, second{measles.Second, "", ""};
    for (const char* sigma : {"0", "1"}) {
        ExpectTheSame({"", "Z1", "Z40"}, {}, sigma);
        const Table<double> fromColumns = ws.CusumValue;
        ExpectTheSame(whole, {}, sigma);
        EXPECT_EQ(ws.CusumValue, fromColumns);
        ExpectTheSame(second, {Folder / "half.csm", false}, sigma);
    }
}
