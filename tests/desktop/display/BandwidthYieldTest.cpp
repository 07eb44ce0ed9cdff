#include "core/display/BandwidthAnimation.h"

#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/Mouse.h"

#include <ostream>

using namespace vastrel;

namespace {

/// What stands when the animation and all that happened inside it have ended. The sweep has three steps: 0.5,
/// 1 and 1.5.
struct EndState {
    std::string Windows = "test map chart"; // those that stand
    std::string Picture = "step 3";         // what the map shows
    std::string Tools = "MapAnimation";     // of Find, if it may be pressed and is, and MapAnimation
    int SliderMaximum = 2;                  // -1 where slider and label are hidden
    bool MLegend = false;
    bool Mapping = true;
    bool CanSave = true;
    int GlobalRows = 2 + 3 + 1; // titles, steps, dashes
    int Selected = 4;
    int LocalRows = 0;
    double Sigma = 1.5;
    long Yields = 3;
    bool Busy = false;
    bool operator==(const EndState&) const = default;
};

std::ostream& operator<<(std::ostream& out, const EndState& state) {
    return out << "windows \"" << state.Windows << "\", picture \"" << state.Picture << "\", tools \""
               << state.Tools << "\", slider " << state.SliderMaximum << ", M legend " << state.MLegend
               << ", mapping " << state.Mapping << ", save " << state.CanSave << ", rows " << state.GlobalRows
               << ", selected " << state.Selected << ", local rows " << state.LocalRows << ", sigma "
               << state.Sigma << ", yields " << state.Yields << ", busy " << state.Busy;
}

class BandwidthYieldTest;

/// An event that comes while a frame is waited for, and how the animation ends then. `wait` counts the waits
/// from 1: when it begins, the frames before it have been shown.
struct YieldEvent {
    const char* Name;
    std::function<void(BandwidthYieldTest&)> Happen;
    std::function<EndState(int wait)> End;
};

void PrintTo(const YieldEvent& event, std::ostream* out) {
    *out << event.Name;
}

constexpr int Waits[] = {1, 2, 3}; // of the first, a middle and the last frame

class BandwidthYieldTest : public RetroPolygonTest,
                           public testing::WithParamInterface<std::tuple<YieldEvent, int>> {
public:
    BandwidthYieldTest() { OpenSample(); }

    using RetroPolygonTest::Alpha;
    using RetroPolygonTest::Bind;
    using RetroPolygonTest::Chart;
    using RetroPolygonTest::Command;
    using RetroPolygonTest::Folder;
    using RetroPolygonTest::Frame;
    using RetroPolygonTest::Global;
    using RetroPolygonTest::MapWindow;
    using RetroPolygonTest::Open;
    using RetroPolygonTest::OpenRetro;
    using RetroPolygonTest::Parameter;
    using RetroPolygonTest::picSHP;
    using RetroPolygonTest::Retro;
    using RetroPolygonTest::RunSingle;
    using RetroPolygonTest::SampleColumns;
    using RetroPolygonTest::Script;
    using RetroPolygonTest::SelectName;
    using RetroPolygonTest::ShapeFilter;
    using RetroPolygonTest::Slider;
    using RetroPolygonTest::WriteThree;

    void Push(const char* button) { Press(Retro, button); }
    void Sweep() { RunRange("optUnadjusted", "0.5", "1.5", "0.5"); }
    void Animate() { Tool("MapAnimation")->trigger(); }
    void Pull(const char* key) { Tool(key)->trigger(); }

    EndState Now() {
        EndState now;
        now.Windows = Standing();
        now.Picture = PictureNow();
        now.Tools = Tools();
        now.SliderMaximum = IsShown(MapWindow, "sliderStatsRange") ? Slider()->maximum() : -1;
        EXPECT_EQ(IsShown(MapWindow, "lblAni"), now.SliderMaximum >= 0);
        now.MLegend = IsShown(MapWindow, "imgM_Legend");
        now.Mapping = ws.bRetroMapping;
        now.CanSave = IsEnabled(Retro, "cmdSave");
        now.GlobalRows = Global()->ListCount();
        now.Selected = Global()->ListIndex();
        now.LocalRows = Local()->ListCount();
        now.Sigma = ws.CurrentSigma;
        now.Yields = Script.YieldCalls();
        now.Busy = Script.BusyPointer();
        return now;
    }

    /// The animation ended in this wait: nothing came after it, and what it had shown stands.
    static EndState Ended(int wait) {
        EndState end;
        end.Picture = wait == 1 ? "outlines" : "step " + std::to_string(wait - 1);
        end.SliderMaximum = -1;
        end.Selected = wait == 1 ? -1 : wait;         // row 2 is that of the first step
        end.Sigma = wait == 1 ? 2 : 0.5 * (wait - 1); // 2 is what the sweep walked on to
        end.Yields = wait;
        return end;
    }
    static EndState WithoutMap(int wait) {
        EndState end = Ended(wait);
        end.Windows = "test chart";
        end.Picture = end.Tools = "";
        return end;
    }
    static EndState WithoutTest(int wait) {
        EndState end = Ended(wait);
        end.Windows = "map";
        end.Picture = "outlines";
        end.Tools = "";
        end.Mapping = false;
        return end;
    }
    static EndState WithoutAny(int wait) {
        EndState end = WithoutTest(wait);
        end.Windows = end.Picture = "";
        return end;
    }
    static EndState PlayedOn(int) { return {}; }

private:
    std::string Standing() {
        std::string windows;
        for (const auto& [screen, name] : std::initializer_list<std::pair<Screen*, const char*>>{
                 {&Retro, "test"}, {&MapWindow, "map"}, {&Chart, "chart"}})
            if (screen->isVisible()) windows += (windows.empty() ? "" : " ") + std::string(name);
        return windows;
    }
    std::string Tools() {
        if (!MapWindow.IsLoaded()) return "";
        std::string tools = Tool("Find")->isEnabled() ? "Find" : "";
        if (Tool("Find")->isChecked()) tools += "!";
        if (Tool("MapAnimation")->isEnabled()) tools += "MapAnimation";
        return tools;
    }
    std::string PictureNow() {
        if (!MapWindow.IsLoaded()) return "";
        if (!std::filesystem::exists(ws.ShapeFilePath)) return "no file";
        const QImage picture = Picture();
        if (picture == Outlines()) return "outlines";
        for (std::ptrdiff_t k = 0; k < ws.BandwidthCount; ++k)
            if (picture == ClassesOf(StepValues(k))) return "step " + std::to_string(k + 1);
        return ws.MapDrawM.IsAllocated() && picture == ClassesOf(ws.MapDrawM) ? "single run" : "other";
    }
};

/// A bandwidth mode or variable that was chosen leaves nothing to save.
EndState PlayedOnUnsaved(int) {
    EndState end;
    end.CanSave = false;
    return end;
}

const YieldEvent Events[] = {
    // Windows that are closed
    {"TheMapIsClosed", [](auto& test) { test.MapWindow.Frame()->close(); }, &BandwidthYieldTest::WithoutMap},
    {"TheMapIsClosedAndShownAgain",
     [](auto& test) {
         test.MapWindow.Frame()->close();
         test.Global()->SetListIndex(3); // of the second step
     },
     [](int wait) {
         EndState end = BandwidthYieldTest::Ended(wait);
         end.Picture = "step 2";
         end.Tools = ""; // as the new window begins
         end.Selected = 3;
         end.Sigma = 1;
         return end;
     }},
    {"TheTestIsClosed", [](auto& test) { test.Retro.Frame()->close(); }, &BandwidthYieldTest::WithoutTest},
    {"TheTestIsLeft", [](auto& test) { test.Push("cmdExit"); }, &BandwidthYieldTest::WithoutAny},
    {"TheChartIsClosed", [](auto& test) { test.Chart.Frame()->close(); },
     [](int) {
         EndState end;
         end.Windows = "test map";
         return end;
     }},
    {"TheFrameIsClosed",
     [](auto& test) {
         test.Script.ExpectEndOfProcess();
         test.Frame.close();
     },
     &BandwidthYieldTest::WithoutAny}, // as far as it comes: the process has ended

    // Another run
    {"RunIsPressedAgain", [](auto& test) { test.Push("cmdRun"); },
     [](int wait) { // the map is plain until a row is selected
         EndState end = BandwidthYieldTest::Ended(1);
         end.Yields = wait;
         return end;
     }},
    {"ASingleRunIsMade", [](auto& test) { test.RunSingle("optRossi", "1"); },
     [](int wait) {
         EndState end = BandwidthYieldTest::Ended(1);
         end.Windows = "test map";
         end.Picture = "single run";
         end.Tools = "Find!";
         end.MLegend = true;
         end.GlobalRows = 5;
         end.LocalRows = 207 + 4;
         end.Sigma = 1;
         end.Yields = wait;
         return end;
     }},
    {"RunIsPressedAgainAndRefused",
     [](auto& test) {
         test.Script.ExpectMessage("Bandwidth should be numerical.");
         test.RunSingle("optUnadjusted", "");
     },
     [](int wait) {
         EndState end = BandwidthYieldTest::Ended(wait);
         end.Windows = "test map"; // one bandwidth has no chart
         end.Picture = "outlines";
         end.CanSave = false; // since the options were clicked
         end.GlobalRows = 0;
         end.Selected = -1;
         return end;
     }},
    {"TheAnimationIsStartedAgain", [](auto& test) { test.Animate(); },
     [](int wait) { // the newer one plays to its end, the older one ends in its wait
         EndState end;
         end.Yields = wait + 3;
         return end;
     }},

    // Another dataset
    {"AnOpeningIsCancelled",
     [](auto& test) {
         test.Script.ExpectFile(FileQuestion::Kind::Open, BandwidthYieldTest::ShapeFilter, "");
         test.Script.ExpectMessage("You didn't specify shapefile.");
         test.Command("mnuOpenShapeRetro");
     },
     [](int wait) {
         EndState end = BandwidthYieldTest::WithoutMap(wait);
         end.Windows = "test";
         return end;
     }},
    {"AnotherDatasetIsOpened",
     [](auto& test) {
         test.OpenRetro(test.WriteThree(), [&] { test.Bind({"POP", "CASES", "", "", "KEY", ""}); });
     },
     [](int wait) { // the test's window stands with the old lists
         EndState end = BandwidthYieldTest::Ended(wait);
         end.Windows = "test map";
         end.Picture = "outlines";
         end.Tools = "";
         end.Mapping = false;
         end.CanSave = false;
         return end;
     }},
    {"ADatasetIsOpenedForTheOtherTest",
     [](auto& test) {
         test.Open("mnuOpenShapePro", test.WriteThree());
         test.SelectName.Frame()->close();
     },
     &BandwidthYieldTest::WithoutTest},
    {"APointTestIsOpened", [](auto& test) { test.Command("mnuOpenTextRetro"); },
     &BandwidthYieldTest::WithoutAny},
    {"TheDataAreReset",
     [](auto& test) {
         test.Push("cmdDataReset");
         test.Bind(BandwidthYieldTest::SampleColumns());
     },
     [](int) { // what was computed plays on
         EndState end = PlayedOnUnsaved(0);
         end.Mapping = false;
         return end;
     }},
    {"TheShapefileGoes",
     [](auto& test) {
         std::filesystem::remove(test.Folder / "country.shp");
         test.Script.ExpectRunTimeError(53);
     },
     [](int wait) { // the next frame cannot be painted: the command stops there
         EndState end = BandwidthYieldTest::Ended(wait);
         end.Picture = "no file";
         return end;
     }},

    // What does not stop it
    {"ARowIsClicked", [](auto& test) { test.Global()->SetListIndex(3); }, &BandwidthYieldTest::PlayedOn},
    {"ATitleRowIsClicked", [](auto& test) { test.Global()->SetListIndex(0); }, &BandwidthYieldTest::PlayedOn},
    {"TheMapIsResized",
     [](auto& test) { test.MapWindow.Frame()->resize(test.MapWindow.Frame()->size() + QSize(60, 40)); },
     &BandwidthYieldTest::PlayedOn},
    {"TheMapIsZoomed",
     [](auto& test) {
         test.Pull("ZoomIn");
         Mouse(*test.picSHP()).Click(100, 100);
     },
     &BandwidthYieldTest::PlayedOn},
    {"TheWholeExtentIsShown", [](auto& test) { test.Pull("FullExt"); }, &BandwidthYieldTest::PlayedOn},
    {"TheCentroidsAreShown", [](auto& test) { test.Pull("Centroid"); }, &BandwidthYieldTest::PlayedOn},
    {"ARegionIsIdentified",
     [](auto& test) {
         test.MapWindow.Show(); // a press brings it to the front first, which paints a statistic
         test.Pull("ID");
         Mouse(*test.picSHP()).Click(100, 100);
     },
     [](int) { // its three flashes come to their end first
         EndState end;
         end.Yields = 3 + 3;
         return end;
     }},
    {"AlphaChanges", [](auto& test) { test.Alpha()->SetListIndex(1); }, &BandwidthYieldTest::PlayedOn},
    {"AnotherScoreIsChosen", [](auto& test) { test.Push("optAdjusted_Generic"); }, &PlayedOnUnsaved},
    {"AnMIsChosen", [](auto& test) { test.Push("optRossi"); },
     [](int) { // the values of the sweep in the classes of an M
         EndState end = PlayedOnUnsaved(0);
         end.MLegend = true;
         return end;
     }},
    {"TheRangeIsChosenAgain", [](auto& test) { test.Push("optSpatialSigmaRange"); },
     &BandwidthYieldTest::PlayedOn},
    {"OneBandwidthIsChosen", [](auto& test) { test.Push("optSpatialSingleSigma"); },
     [](int wait) { // the chart goes, and the clicks on the rows set no bandwidth any more
         EndState end = PlayedOnUnsaved(0);
         end.Windows = "test map";
         end.Sigma = BandwidthYieldTest::Ended(wait).Sigma;
         return end;
     }},
};

} // namespace

TEST_P(BandwidthYieldTest, EndsAsItShould) {
    const auto& [event, wait] = GetParam();
    Sweep();
    Script.AtYield(wait, [&, &happen = event.Happen] { happen(*this); });
    Animate();
    EXPECT_EQ(Now(), event.End(wait));

    // And the next command works.
    Frame.ShowFrame();
    OpenSample();
    Sweep();
    const long before = Script.YieldCalls();
    Animate();
    EndState whole;
    whole.Yields = before + 3;
    EXPECT_EQ(Now(), whole);
}

INSTANTIATE_TEST_SUITE_P(InsideAYield, BandwidthYieldTest,
                         testing::Combine(testing::ValuesIn(Events), testing::ValuesIn(Waits)),
                         [](const auto& test) {
                             return std::get<0>(test.param).Name + std::string("InWait") +
                                    std::to_string(std::get<1>(test.param));
                         });
