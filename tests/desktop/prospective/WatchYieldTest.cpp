#include "desktop/frontend/MDIFrmMain.h"
#include "desktop/prospective/WatchScreen.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/toolkit/OptionButton.h"
#include "desktop/toolkit/QtPlatform.h"
#include "support/screens/PostedInput.h"

#include <functional>
#include <ostream>

using namespace vastrel;

namespace {

/// What stands when the run and all that happened inside it have ended.
struct EndState {
    bool Loaded = true;
    int PeriodRows = 2 + 4 + 1; // titles, periods, dashes
    int Selected = 5;
    std::string Caption = "Period: 4";
    int RegionRows = 1;
    long Yields = 4;
    bool Busy = false;
    bool CanRun = true, CanSave = true;
    bool operator==(const EndState&) const = default;
};

std::ostream& operator<<(std::ostream& out, const EndState& state) {
    return out << "loaded " << state.Loaded << ", rows " << state.PeriodRows << ", selected "
               << state.Selected << ", caption \"" << state.Caption << "\", signals " << state.RegionRows
               << ", yields " << state.Yields << ", busy " << state.Busy << ", run " << state.CanRun
               << ", save " << state.CanSave;
}

class WatchYieldTest;

/// An event that comes while a frame is waited for, and how the run ends then. `wait` counts the waits from
/// 1: when it begins, the titles and the periods before it stand in the list.
struct YieldEvent {
    const char* Name;
    std::function<void(WatchYieldTest&)> Happen;
    std::function<EndState(int wait)> End;
};

void PrintTo(const YieldEvent& event, std::ostream* out) {
    *out << event.Name;
}

constexpr int Waits[] = {1, 2, 4}; // of the first, a middle and the last frame

class WatchYieldTest : public WatchScreenTest,
                       public testing::WithParamInterface<std::tuple<YieldEvent, int>> {
public:
    using WatchScreenTest::Caption;
    using WatchScreenTest::Folder;
    using WatchScreenTest::Frame;
    using WatchScreenTest::Load;
    using WatchScreenTest::Periods;
    using WatchScreenTest::Regions;
    using WatchScreenTest::Run;
    using WatchScreenTest::Screen;
    using WatchScreenTest::Script;
    using WatchScreenTest::Z;

    void Choose(const char* entry) { Command(entry); }
    void Push(const char* button) { Press(Screen, button); }
    void Write(const char* box, const std::string& text) { Type(Screen, box, text); }

    EndState Now() {
        return {Screen.IsLoaded(),
                Periods()->ListCount(),
                Periods()->ListIndex(),
                Caption(),
                Regions()->ListCount(),
                Script.YieldCalls(),
                Script.BusyPointer(),
                IsEnabled(Screen, "cmdRun"),
                IsEnabled(Screen, "cmdSaveResult") && IsEnabled(Screen, "cmdSaveCusum")};
    }

    /// Periods shown before the wait: the title of the frame before, or none.
    static std::string CaptionBefore(int wait) {
        return wait == 1 ? "" : "Period: " + std::to_string(wait - 1);
    }

    /// The run ended in this wait: nothing came after it.
    static EndState Ended(int wait) {
        EndState end;
        end.PeriodRows = 2 + wait - 1;
        end.Selected = -1;
        end.Caption = CaptionBefore(wait);
        end.RegionRows = 0;
        end.Yields = wait;
        end.CanSave = false;
        return end;
    }
    static EndState Unloaded(int wait) {
        EndState end = Ended(wait);
        end.Loaded = false;
        return end;
    }
    static EndState PlayedOn(int) { return {}; }
};

const YieldEvent Events[] = {
    {"TheWindowIsClosed", [](auto& test) { test.Screen.Frame()->close(); }, &WatchYieldTest::Unloaded},
    {"TheWindowIsClosedAndOpenedAgain",
     [](auto& test) {
         test.Screen.Frame()->close();
         test.Choose("mnuOpenTextPro");
     },
     [](int wait) { // as new, and the old run does not reach into it
         EndState end = WatchYieldTest::Ended(wait);
         end.PeriodRows = 0;
         end.Caption = "";
         end.CanRun = false;
         return end;
     }},
    {"APeriodIsClicked",
     [](auto& test) {
         test.Periods()->SetListIndex(1);                               // dashes
         test.Periods()->SetListIndex(test.Periods()->ListCount() - 1); // the last one that stands there
     },
     &WatchYieldTest::PlayedOn},
    {"ARegionIsClicked",
     [](auto& test) {
         test.Periods()->SetListIndex(3); // period 2, where it stands already
         test.Regions()->SetListIndex(test.Regions()->ListCount() - 1);
     },
     &WatchYieldTest::PlayedOn},
    {"RunIsPressedAgain", [](auto& test) { test.Run(); },
     [](int wait) { // the newer run plays to its end, the older one ends in its wait
         EndState end;
         end.Yields = wait + 4;
         return end;
     }},
    {"RunIsPressedAgainAndRefused",
     [](auto& test) {
         test.Write("txtKvalue", "");
         test.Script.ExpectMessage("Parameters are not properly input.");
         test.Run();
     },
     [](int wait) { // the lists were cleared by the newer run
         EndState end = WatchYieldTest::Ended(wait);
         end.PeriodRows = 0;
         return end;
     }},
    {"TheStartOptionChanges", [](auto& test) { test.Push("optPre"); },
     [](int wait) {
         EndState end = WatchYieldTest::Ended(wait);
         end.PeriodRows = 0;
         end.CanRun = false;
         return end;
     }},
    {"TheSpeedChanges", [](auto& test) { test.Push("optSlow"); }, &WatchYieldTest::PlayedOn},
    {"AnotherFileOfTheSameSizeIsLoaded",
     [](auto& test) {
         test.Load("cmdNewZScore", test.Folder.Write("zero.txt", "0,0,0,0\n0,0,0,0\n0,0,0,0\n"));
     },
     &WatchYieldTest::PlayedOn}, // what was computed plays on
    {"AFileOfMoreRegionsIsLoaded",
     [](auto& test) {
         test.Load("cmdNewZScore", test.Folder.Write("more.txt", "0,0,0,0\n0,0,0,0\n0,0,0,0\n0,0,0,0\n"));
         test.Script.ExpectRunTimeError(9);
     },
     [](int wait) { // the next frame has no cusum for the fourth Region: the command stops there
         EndState end = WatchYieldTest::Ended(wait);
         end.Busy = true;
         return end;
     }},
    {"AnotherDatasetIsOpened", [](auto& test) { test.Choose("mnuOpenTextRetro"); },
     &WatchYieldTest::Unloaded},
    {"TheFrameIsClosed",
     [](auto& test) {
         test.Script.ExpectEndOfProcess();
         test.Frame.close();
     },
     &WatchYieldTest::Unloaded}, // as far as it comes: the process has ended
    {"ATitleRowIsClicked", [](auto& test) { test.Periods()->SetListIndex(0); }, &WatchYieldTest::PlayedOn},
};

} // namespace

TEST_P(WatchYieldTest, EndsAsItShould) {
    const auto& [event, wait] = GetParam();
    LoadForStart();
    Script.AtYield(wait, [&, &happen = event.Happen] { happen(*this); });
    Run();
    EXPECT_EQ(Now(), event.End(wait));

    // And the next command works.
    Frame.ShowFrame();
    Command("mnuOpenTextPro");
    LoadForStart();
    const long before = Script.YieldCalls();
    Run();
    EndState whole;
    whole.Yields = before + 4;
    EXPECT_EQ(Now(), whole);
}

INSTANTIATE_TEST_SUITE_P(InsideAYield, WatchYieldTest,
                         testing::Combine(testing::ValuesIn(Events), testing::ValuesIn(Waits)),
                         [](const auto& test) {
                             return std::get<0>(test.param).Name + std::string("InWait") +
                                    std::to_string(std::get<1>(test.param));
                         });

// The exit ends the process on the spot, with no unload step and nothing after it.
TEST_F(WatchScreenTest, EndsTheProcessInsideAYield) {
    LoadForStart();
    Script.AtYield(2, [this] {
        Script.ExpectEndOfProcess();
        Command("mnuExit");
        EXPECT_TRUE(Script.Transcript().ends_with("yield 10001\nend of process\n"));
        EXPECT_TRUE(Screen.IsLoaded());
        EXPECT_EQ(Periods()->ListCount(), 3);
    });
    Run();
}

// A continued run ends in the same quiet way, also where its saved periods stand in the list.
TEST_F(WatchScreenTest, EndsAContinuedRunThatIsClosedWhileItPlays) {
    LoadForContinuation();
    EXPECT_EQ(Script.DroppedInputs(), 3); // while the files were read
    Script.AtYield(1, [this] { Screen.Frame()->close(); });
    Run();
    EXPECT_FALSE(Screen.IsLoaded());
    EXPECT_EQ(Script.YieldCalls(), 1);
    EXPECT_FALSE(Script.BusyPointer());
}

// What is clicked while the sums are computed is dropped; what is clicked while the periods play is served.
TEST_F(WatchScreenTest, TakesNoInputBeforeItPlays) {
    LoadForStart();
    ServeEvents();
    QtPlatform desktop;
    SetPlatform(&desktop);
    const int before = Screen.Generation();
    PostClick(*The_<QAbstractButton>(Screen, "cmdRun"));
    Run();
    ServeEvents();
    EXPECT_EQ(Screen.Generation(), before + 1);
    EXPECT_EQ(Periods()->ListCount(), 2 + 4 + 1);
    SetPlatform(&Script);
}
