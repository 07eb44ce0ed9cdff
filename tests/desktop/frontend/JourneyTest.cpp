#include "core/spatial/AttributeRows.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmGraph.h"
#include "desktop/export/frmExportDataset.h"
#include "desktop/prospective/frmTxtFileOpen.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/ProjectFolder.h"
#include "support/SmoothedScores.h"
#include "support/screens/PolygonScreenTest.h"

#include <algorithm>
#include <sstream>

using namespace vastrel;

namespace {

const std::string Samples = InProject("samples/");
constexpr const char* TextFilter = "Text File (*.txt)|*.txt";
constexpr const char* CusumFilter = "cusum files (*.csm)|*.csm";
constexpr const char* PointFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";
constexpr double K = 0.5, H = 4.4;
constexpr size_t HalfTime = 12, AllPeriods = 24, Regions = 207;

using Numbers = std::vector<std::vector<double>>; // by Region, then by period

std::vector<std::string> LinesOf(const std::string& path) {
    std::istringstream file(ReadFile(path));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

/// The numbers of a file of comma-separated lines; an empty text behind the last comma is none.
Numbers Read(const std::vector<std::string>& lines) {
    Numbers numbers;
    for (const auto& line : lines) {
        numbers.emplace_back();
        std::istringstream row(line);
        for (std::string token; std::getline(row, token, ',');)
            numbers.back().push_back(std::stod(token));
    }
    return numbers;
}

/// What is left of a sum from 0: S = max(0, S + z - k), in one run over all periods.
Numbers Sums(const Numbers& first, const Numbers& second) {
    Numbers sums(Regions);
    for (size_t i = 0; i < Regions; ++i) {
        double sum = 0;
        for (const Numbers* z : {&first, &second})
            for (const double value : (*z)[i])
                sums[i].push_back(sum = std::max(0.0, sum + value - K));
    }
    return sums;
}

/// From counts to a report, by the screens alone, as an analyst would go.
class Journey : public PolygonScreenTest {
protected:
    ~Journey() override { Watch.Unload(); }

    void OpenTheSample() {
        OpenPro(Samples + "country.shp");
        Pick(SelectName, "cmbName1", "NAME");
        ScreenTest::Press(SelectName, "cmdOK");
        for (const auto& line : LinesOf(Samples + "watch_xy.txt"))
            Names.push_back(line.substr(0, line.find(',')));
    }

    /// Exports twelve periods of counts.
    std::string Export(const std::string& first, const std::string& last, const std::string& file) {
        Command("mnuExport");
        Pick(Exporter, "cboObsFrom", "OBS" + first);
        Pick(Exporter, "cboObsTo", "OBS" + last);
        Pick(Exporter, "cboExpFrom", "EXP" + first);
        Pick(Exporter, "cboExpTo", "EXP" + last);
        ScreenTest::Press(Exporter, "optGeneric");
        Type(Exporter, "txtSigma", "1");
        Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, Folder / file);
        ScreenTest::Press(Exporter, "cmdExport");
        Shot(Frame, "journey-export");
        Exporter.Frame()->close();
        return Folder / file;
    }

    /// The file of z-values against the table's counts, worked out another way.
    void ExpectZValues(const std::string& path, int firstPeriod) {
        const auto lines = LinesOf(path);
        ASSERT_EQ(lines.size(), Regions);
        std::vector<std::string> expected(Regions);
        for (size_t t = 0; t < HalfTime; ++t) {
            char column[8];
            std::snprintf(column, sizeof column, "%02d", firstPeriod + static_cast<int>(t));
            std::vector<long double> scores;
            WalkRows([&](std::ptrdiff_t) {
                const auto count = [&](const std::string& name) {
                    return AttributeTable().Fields(name + column).Value().Number();
                };
                scores.push_back(ScoreAnotherWay("poisson", count("OBS"), count("EXP")));
            });
            const auto z = SmoothedAnotherWay(scores, 1);
            for (size_t i = 0; i < Regions; ++i)
                expected[i] += (t > 0 ? "," : "") + Num(z[i], "0.0000");
        }
        EXPECT_EQ(lines, expected);
    }

    /// Rows of the period list: numbers from `first` on, the largest sum and its Region.
    std::vector<std::string> PeriodRows(const Numbers& sums, size_t first, size_t last) const {
        std::vector<std::string> rows{"  Year   Cusum     Region of max cusum value", std::string(82, '-')};
        for (size_t t = first; t <= last; ++t) {
            size_t most = 0;
            for (size_t i = 1; i < Regions; ++i)
                if (sums[i][t - 1] > sums[most][t - 1]) most = i;
            rows.push_back(Pad(std::to_string(t), 5) + "  " + Pad(Num(sums[most][t - 1], "###0.00"), 7) +
                           "     " + Pad(Names[most], 16));
        }
        rows.emplace_back(82, '-');
        return rows;
    }
    /// Rows of the Region list in a period.
    std::vector<std::string> SignalRows(const Numbers& sums, size_t t) const {
        std::vector<std::string> rows;
        for (size_t i = 0; i < Regions; ++i)
            if (sums[i][t - 1] > H)
                rows.push_back(Pad(Num(sums[i][t - 1], "###0.00"), 8) + " <---" + Pad(Names[i], 18));
        return rows;
    }
    /// The lines of the report that tell the sums of the Regions.
    std::vector<std::string> ReportRows(const Numbers& sums, size_t first, size_t last) const {
        std::vector<std::string> rows;
        for (size_t i = 0; i < Regions; ++i) {
            rows.push_back(Pad(Names[i], 36) + ", ");
            for (size_t t = first; t <= last; ++t)
                rows.back() += Pad(Num(sums[i][t - 1], "0.0000"), 7) + ", ";
        }
        return rows;
    }

    std::vector<std::string> Shown(Screen& screen, const char* list) {
        return Rows(The_<ListBox>(screen, list));
    }
    void ExpectText(const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Open, TextFilter, path);
    }

    std::vector<std::string> Names;
    frmExportDataset& Exporter = The<frmExportDataset>();
    frmUnivariate& Watch = The<frmUnivariate>();
    frmTxtFileOpen& Previous = The<frmTxtFileOpen>();
    frmUnivariateCusumTextfile& PointWatch = The<frmUnivariateCusumTextfile>();
};

} // namespace

// One way through the whole program, told in one piece and so longer than a screenful.
TEST_F(Journey, GoesFromCountsOverZValuesToAContinuedWatchAndItsReport) {
    OpenTheSample();

    // The counts of two years become z-values.
    const std::string firstYear = Export("01", "12", "z1.txt"), secondYear = Export("13", "24", "z2.txt");
    ExpectZValues(firstYear, 1);
    ExpectZValues(secondYear, 13);
    const Numbers z1 = Read(LinesOf(firstYear)), z2 = Read(LinesOf(secondYear));
    const Numbers sums = Sums(z1, z2);

    // The first year is watched, and its sums are saved.
    ScreenTest::Press(Watch, "optExistingTextfile");
    Type(Watch, "txtHvalue", "4.4");
    ExpectText(firstYear);
    ScreenTest::Press(Watch, "cmdCalc");
    EXPECT_EQ(Shown(Watch, "lstPeriod"), PeriodRows(sums, 1, HalfTime));
    EXPECT_EQ(Shown(Watch, "lstRegion"), SignalRows(sums, HalfTime));
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "year1.csm");
    ScreenTest::Press(Watch, "cmdSaveCusum");
    auto saved = LinesOf(Folder / "year1.csm");
    ASSERT_EQ(saved.size(), 1 + Regions);
    EXPECT_TRUE(saved[0].starts_with("period1,") && saved[0].ends_with("period12,"));
    saved.erase(saved.begin());
    const Numbers kept = Read(saved);
    for (size_t i = 0; i < Regions; ++i) {
        ASSERT_EQ(kept[i].size(), HalfTime);
        for (size_t t = 0; t < HalfTime; ++t)
            EXPECT_NEAR(kept[i][t], sums[i][t], 1e-12);
    }

    // The second year goes on from them: the same sums as those of one run over both.
    ScreenTest::Press(Watch, "optPre");
    ScreenTest::Press(Watch, "cmdCalc");
    Script.ExpectFile(FileQuestion::Kind::Open, CusumFilter, Folder / "year1.csm");
    ScreenTest::Press(Previous, "cmdOpen");
    ScreenTest::Press(Previous, "optPreviousCurrent");
    ExpectText(secondYear);
    ScreenTest::Press(Previous, "cmdOK");
    EXPECT_EQ(Shown(Watch, "lstPeriod"), PeriodRows(sums, HalfTime + 1, AllPeriods));
    const auto signalling = SignalRows(sums, AllPeriods);
    EXPECT_EQ(Shown(Watch, "lstRegion"), signalling);
    EXPECT_GE(signalling.size(), 19u); // the planted cluster has grown for a year
    EXPECT_EQ(ws.CusumChartData.UpperBound1(), static_cast<std::ptrdiff_t>(AllPeriods) - 1);
    for (size_t t = 0; t < HalfTime; ++t) { // the first year stands in front on the chart
        double most = 0;
        for (size_t i = 0; i < Regions; ++i)
            most = std::max(most, sums[i][t]);
        EXPECT_NEAR(ws.CusumChartData(static_cast<std::ptrdiff_t>(t), 0), most, 1e-12);
    }
    EXPECT_FALSE(IsEnabled(Watch, "cmdSaveCusum"));
    Previous.Unload();
    Shot(Frame, "journey-continued");

    // And is reported.
    Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, Folder / "report.txt");
    ScreenTest::Press(Watch, "cmdSaveResult");
    const auto report = LinesOf(Folder / "report.txt");
    const auto rows = ReportRows(sums, HalfTime + 1, AllPeriods);
    EXPECT_NE(std::search(report.begin(), report.end(), rows.begin(), rows.end()), report.end());
    EXPECT_FALSE(IsEnabled(Watch, "cmdSaveResult"));
}

TEST_F(Journey, LeadsToTheWatchOnPointsToo) {
    OpenTheSample();
    const std::string file = Export("13", "24", "z2.txt");
    const Numbers z = Read(LinesOf(file));
    const Numbers sums = Sums(z, Numbers(Regions));
    Command("mnuOpenTextPro");
    Script.ExpectFile(FileQuestion::Kind::Open, PointFilter, Samples + "watch_xy.txt");
    ScreenTest::Press(PointWatch, "cmdFileOpenIDXY");
    Script.ExpectFile(FileQuestion::Kind::Open, PointFilter, file);
    ScreenTest::Press(PointWatch, "cmdNewZScore");
    Type(PointWatch, "txtHvalue", "4.4");
    ScreenTest::Press(PointWatch, "cmdRun");
    EXPECT_EQ(Shown(PointWatch, "lstPeriod"), PeriodRows(sums, 1, HalfTime));
    EXPECT_EQ(Shown(PointWatch, "lstRegion"), SignalRows(sums, HalfTime));
    Shot(Frame, "journey-points");
}
