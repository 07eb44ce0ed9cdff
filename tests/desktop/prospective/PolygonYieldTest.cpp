#include "core/display/PolygonView.h"
#include "desktop/frontend/frmParameter.h"
#include "desktop/prospective/PolygonWatchScreen.h"
#include "support/AttributeData.h"
#include "support/screens/Mouse.h"

#include <QAction>
#include <QTimer>

#include <ostream>

using namespace vastrel;

namespace {

/// What stands when the run and all that happened inside it have ended.
struct EndState {
    bool Loaded = true;
    int PeriodRows = 2 + 3 + 1; // titles, periods, dashes
    int Selected = 4;
    std::string Caption = "3";
    int RegionRows = 3;
    long Yields = 3;
    bool Busy = false;
    bool CanSaveResult = true, CanSaveCusum = true;
    bool MapShown = true, Legend = true, GraphTool = true;
    bool CusumMapping = true;
    bool operator==(const EndState&) const = default;
};

std::ostream& operator<<(std::ostream& out, const EndState& state) {
    return out << "loaded " << state.Loaded << ", rows " << state.PeriodRows << ", selected "
               << state.Selected << ", caption \"" << state.Caption << "\", signals " << state.RegionRows
               << ", yields " << state.Yields << ", busy " << state.Busy << ", save " << state.CanSaveResult
               << state.CanSaveCusum << ", map " << state.MapShown << ", legend " << state.Legend
               << ", graph " << state.GraphTool << ", mapping " << state.CusumMapping;
}

class PolygonYieldTest;

/// An event that comes while a frame is waited for, and how the run ends then. `wait` counts the waits from
/// 1: when it begins, the titles and the periods before it stand in the list.
struct YieldEvent {
    const char* Name;
    std::function<void(PolygonYieldTest&)> Happen;
    std::function<EndState(int wait)> End;
};

void PrintTo(const YieldEvent& event, std::ostream* out) {
    *out << event.Name;
}

class PolygonYieldTest : public PolygonWatchScreenTest,
                         public testing::WithParamInterface<std::tuple<YieldEvent, int>> {
public:
    using PolygonWatchScreenTest::Dialog;
    using PolygonWatchScreenTest::Folder;
    using PolygonWatchScreenTest::Frame;
    using PolygonWatchScreenTest::From;
    using PolygonWatchScreenTest::Graph;
    using PolygonWatchScreenTest::Map;
    using PolygonWatchScreenTest::Open;
    using PolygonWatchScreenTest::OpenSaved;
    using PolygonWatchScreenTest::Periods;
    using PolygonWatchScreenTest::Regions;
    using PolygonWatchScreenTest::Run;
    using PolygonWatchScreenTest::Screen;
    using PolygonWatchScreenTest::Script;
    using PolygonWatchScreenTest::ShapeFilter;

    void Push(QWidget& screen, const char* button) { Press(screen, button); }
    void Write(const char* box, const std::string& text) { Type(Screen, box, text); }
    void Choose(const char* entry) { Command(entry); }
    /// Chooses a file in a flow; an empty path cancels.
    void ChooseFile(const char* entry, const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
        if (path.empty()) Script.ExpectMessage("You didn't specify shapefile.");
        Command(entry);
    }
    std::string Other(const std::string& name, int regions) {
        std::vector<std::vector<std::string>> rows;
        for (int i = 1; i <= regions; ++i)
            rows.push_back({std::to_string(i), "1"});
        return WriteDataset(Folder, name, {{"KEY", 'N', 3}, {"Y", 'N', 3}}, rows);
    }
    void SaveCusum() {
        Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "inside.csm");
        Press(Screen, "cmdSaveCusum");
        EXPECT_EQ(ReadFile(Folder / "inside.csm"),
                  "period1,period2,period3,\n0.5,1,5.5,\n5.5,11,8.5,\n0,1.5,10,\n");
    }
    /// Presses the mouse in the middle of the second square, with the tool of the moment.
    void PressOnMap() {
        const PlotPoint middle = WorldToPlot(1.5, 0.5);
        Mouse(*The_<PlotWidget>(Map, "picSHP")).Click(middle.X, middle.Y);
    }
    void UseTool(const char* key) { Map.findChild<QAction*>(key)->trigger(); }

    EndState Now() {
        return {Screen.IsLoaded(),
                Periods()->ListCount(),
                Periods()->ListIndex(),
                Text(Screen, "lblY"),
                Regions()->ListCount(),
                Script.YieldCalls(),
                Script.BusyPointer(),
                CanSaveResult(),
                CanSaveCusum(),
                Map.isVisible(),
                Map.IsLoaded() && IsShown(Map, "picLegend"),
                Map.IsLoaded() && Map.IsToolPressed("Graph"),
                ws.bCusumMapping};
    }

    static EndState PlayedOn(int) { return {}; }

    /// The run ended in this wait: nothing came after it.
    static EndState Ended(int wait) {
        EndState end;
        end.PeriodRows = 2 + wait - 1;
        end.Selected = -1;
        end.Caption = "";
        end.RegionRows = 0;
        end.Yields = wait;
        end.CanSaveResult = false; // a file of cusums can be saved at once
        end.Legend = wait > 1;     // it comes with the first frame
        end.GraphTool = end.CusumMapping = false;
        return end;
    }
    static EndState WithoutRows(int wait) {
        EndState end = Ended(wait);
        end.PeriodRows = 0;
        return end;
    }
    static EndState Unloaded(int wait) {
        EndState end = Ended(wait);
        end.Loaded = end.Legend = false;
        return end;
    }
    static EndState UnloadedWithTheMap(int wait) {
        EndState end = Unloaded(wait);
        end.MapShown = false;
        return end;
    }
    static EndState EndedWithoutAMap(int wait) {
        EndState end = Ended(wait);
        end.MapShown = end.Legend = false;
        return end;
    }
    /// The map is that of another dataset.
    static EndState EndedOnANewMap(int wait) {
        EndState end = Ended(wait);
        end.Legend = false;
        return end;
    }
    /// Three more waits, of a Region that was shown meanwhile.
    static EndState PlayedOnBehindAFlash(int) {
        EndState end;
        end.Yields = 3 + 3;
        return end;
    }
    /// The same with a row of a period, and before the second wait there is none.
    static EndState PlayedOnBehindAFlashOfAPeriod(int wait) {
        return wait == 1 ? PlayedOn(wait) : PlayedOnBehindAFlash(wait);
    }
    /// The last row is taken for no period, since fewer are counted now.
    static EndState PlayedOnWithoutAPeriod(int) {
        EndState end;
        end.Caption = "";
        end.RegionRows = 0;
        return end;
    }
    static EndState PlayedAnew(int wait) {
        EndState end;
        end.Yields = wait + 3;
        return end;
    }
};

const YieldEvent Events[] = {
    {"TheWindowIsClosed", [](auto& test) { test.Screen.Frame()->close(); }, &PolygonYieldTest::Unloaded},
    {"TheWindowIsClosedAndTheDatasetOpenedAgain",
     [](auto& test) {
         test.Screen.Frame()->close();
         test.Open();
     },
     [](int wait) { // as new, and the old run does not reach into it
         EndState end = PolygonYieldTest::EndedOnANewMap(wait);
         end.PeriodRows = 0;
         return end;
     }},
    {"APeriodIsClicked",
     [](auto& test) {
         test.Periods()->SetListIndex(0);
         test.Periods()->SetListIndex(test.Periods()->ListCount() - 1);
     },
     &PolygonYieldTest::PlayedOn},
    {"ATitleRowIsClicked", [](auto& test) { test.Periods()->SetListIndex(1); }, &PolygonYieldTest::PlayedOn},
    {"ARegionIsClicked",
     [](auto& test) {
         test.Periods()->SetListIndex(2); // period 1, where it stands already
         test.Regions()->SetListIndex(0);
     },
     &PolygonYieldTest::PlayedOnBehindAFlashOfAPeriod},
    {"ARegionIsClickedOnTheMap",
     [](auto& test) {
         test.Periods()->SetListIndex(2); // which puts the tool to use
         test.PressOnMap();
     },
     &PolygonYieldTest::PlayedOnBehindAFlashOfAPeriod},
    {"ARegionIsAskedForOnTheMap",
     [](auto& test) {
         test.UseTool("ID");
         test.PressOnMap();
     },
     &PolygonYieldTest::PlayedOnBehindAFlash},
    {"TheMapIsEnlarged",
     [](auto& test) {
         test.UseTool("ZoomIn");
         test.PressOnMap();
     },
     &PolygonYieldTest::PlayedOn},
    {"TheMapIsResized", [](auto& test) { test.Map.Frame()->resize(400, 300); }, &PolygonYieldTest::PlayedOn},
    {"TheMapIsClosed", [](auto& test) { test.Map.Frame()->close(); }, &PolygonYieldTest::PlayedOn},
    {"RunIsPressedAgain", [](auto& test) { test.Run(); }, &PolygonYieldTest::PlayedAnew},
    {"RunIsPressedAgainAndRefused",
     [](auto& test) {
         test.Write("txtKvalue", "");
         test.Script.ExpectMessage("Parameters are not properly input.");
         test.Run();
     },
     &PolygonYieldTest::WithoutRows},
    {"RunIsPressedAgainToContinue",
     [](auto& test) {
         test.Push(test.Screen, "optPre");
         test.Run();
     },
     [](int wait) { // the dialog stands
         EndState end = PolygonYieldTest::WithoutRows(wait);
         end.CanSaveCusum = false;
         return end;
     }},
    {"ASavedRunIsContinued",
     [](auto& test) {
         test.Push(test.Screen, "optPre");
         test.Run();
         test.OpenSaved();
         test.Push(test.Dialog, "cmdOK");
     },
     [](int wait) {
         EndState end = PolygonYieldTest::PlayedAnew(wait);
         end.CanSaveCusum = false;
         return end;
     }},
    {"TheStartOptionChanges", [](auto& test) { test.Push(test.Screen, "optPre"); },
     &PolygonYieldTest::PlayedOn},
    {"TheDataOptionChanges", [](auto& test) { test.Push(test.Screen, "optExistingTextfile"); },
     &PolygonYieldTest::PlayedOnWithoutAPeriod},
    {"AnotherFirstColumnIsPicked", [](auto& test) { test.From()->SetListIndex(3); },
     &PolygonYieldTest::PlayedOnWithoutAPeriod},
    {"TheSpeedChanges", [](auto& test) { test.Push(test.Screen, "optSlow"); }, &PolygonYieldTest::PlayedOn},
    {"TheCusumsAreSaved", [](auto& test) { test.SaveCusum(); }, &PolygonYieldTest::PlayedOn},
    {"ADatasetOfFewerRegionsIsOpened",
     [](auto& test) { test.ChooseFile("mnuOpenShapePro", test.Other("two", 2)); },
     &PolygonYieldTest::EndedOnANewMap},
    {"ADatasetOfMoreRegionsIsOpened",
     [](auto& test) { test.ChooseFile("mnuOpenShapePro", test.Other("four", 4)); },
     &PolygonYieldTest::EndedOnANewMap},
    {"TheSameDatasetIsOpened", [](auto& test) { test.Open(); }, &PolygonYieldTest::EndedOnANewMap},
    {"NoDatasetIsChosen", [](auto& test) { test.ChooseFile("mnuOpenShapePro", ""); },
     &PolygonYieldTest::EndedWithoutAMap},
    {"ADatasetOfALongNameIsChosen",
     [](auto& test) {
         test.Script.ExpectFile(FileQuestion::Kind::Open, PolygonYieldTest::ShapeFilter,
                                test.Other("ninechars", 2));
         test.Script.ExpectMessage("The length of filename should be less than 8.");
         test.Choose("mnuOpenShapePro");
     },
     &PolygonYieldTest::EndedWithoutAMap},
    {"ADatasetOfTheOtherTestIsOpened",
     [](auto& test) {
         QTimer::singleShot(0, [] { The<frmParameter>().Frame()->close(); });
         test.ChooseFile("mnuOpenShapeRetro", test.Other("two", 2));
     },
     &PolygonYieldTest::Unloaded},
    {"NoDatasetOfTheOtherTestIsChosen", [](auto& test) { test.ChooseFile("mnuOpenShapeRetro", ""); },
     &PolygonYieldTest::UnloadedWithTheMap},
    {"TheWatchOnPointsIsOpened", [](auto& test) { test.Choose("mnuOpenTextPro"); },
     &PolygonYieldTest::UnloadedWithTheMap},
    {"TheOtherTestOnPointsIsOpened", [](auto& test) { test.Choose("mnuOpenTextRetro"); },
     &PolygonYieldTest::UnloadedWithTheMap},
    {"TheFrameIsClosed",
     [](auto& test) {
         test.Script.ExpectEndOfProcess();
         test.Frame.close();
     },
     &PolygonYieldTest::UnloadedWithTheMap}, // as far as it comes: the process has ended
};

} // namespace

TEST_P(PolygonYieldTest, EndsAsItShould) {
    const auto& [event, wait] = GetParam();
    Type(Screen, "txtHvalue", "5");
    Script.AtYield(wait, [&, &happen = event.Happen] { happen(*this); });
    RunFields();
    EXPECT_EQ(Now(), event.End(wait));

    // And the next command works.
    Frame.ShowFrame();
    Screen.Unload();
    Open();
    Type(Screen, "txtHvalue", "5");
    const long before = Script.YieldCalls();
    RunFields();
    EndState whole;
    whole.Yields = before + 3;
    EXPECT_EQ(Now(), whole);
    EXPECT_EQ(ws.CusumValue(3, 3), 10);
}

INSTANTIATE_TEST_SUITE_P(InsideAYield, PolygonYieldTest,
                         testing::Combine(testing::ValuesIn(Events), testing::Values(1, 2, 3)),
                         [](const auto& test) {
                             return std::get<0>(test.param).Name + std::string("InWait") +
                                    std::to_string(std::get<1>(test.param));
                         });
