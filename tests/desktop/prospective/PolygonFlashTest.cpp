#include "core/display/PolygonView.h"
#include "desktop/prospective/PolygonWatchScreen.h"
#include "support/AttributeData.h"
#include "support/screens/Mouse.h"

#include <QAction>

#include <ostream>

using namespace vastrel;

namespace {

/// What stands when the flashes of a Region and all that happened inside them have ended.
struct EndState {
    long Yields = 3;
    std::string ChartText = "B in 3: ---> 8.50"; // empty where the chart was not filled
    std::string Picture = "cusums";              // of the map
    int RegionRows = 3;
    bool CusumMapping = true, GraphTool = true;
    bool operator==(const EndState&) const = default;
};

std::ostream& operator<<(std::ostream& out, const EndState& state) {
    return out << "yields " << state.Yields << ", chart \"" << state.ChartText << "\", map " << state.Picture
               << ", signals " << state.RegionRows << ", mapping " << state.CusumMapping << ", graph "
               << state.GraphTool;
}

class PolygonFlashTest;

/// An event that comes inside one of the three flashes, counted from 1, and what stands in the end.
struct FlashEvent {
    const char* Name;
    std::function<void(PolygonFlashTest&)> Happen;
    std::function<EndState(int flash)> End;
};

void PrintTo(const FlashEvent& event, std::ostream* out) {
    *out << event.Name;
}

class PolygonFlashTest : public PolygonWatchScreenTest,
                         public testing::WithParamInterface<std::tuple<FlashEvent, int>> {
public:
    PolygonFlashTest() {
        Type(Screen, "txtHvalue", "5"); // in period 3 all three Regions signal
        RunFields();
        before_ = Script.YieldCalls();
    }

    using PolygonWatchScreenTest::Folder;
    using PolygonWatchScreenTest::Frame;
    using PolygonWatchScreenTest::Graph;
    using PolygonWatchScreenTest::Map;
    using PolygonWatchScreenTest::Periods;
    using PolygonWatchScreenTest::Regions;
    using PolygonWatchScreenTest::Run;
    using PolygonWatchScreenTest::Screen;
    using PolygonWatchScreenTest::Script;

    void Push(const char* button) { Press(Screen, button); }
    void Write(const char* box, const std::string& text) { Type(Screen, box, text); }
    void Choose(const char* entry) { Command(entry); }
    void ChooseFile(const char* entry, const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
        if (path.empty()) Script.ExpectMessage("You didn't specify shapefile.");
        Command(entry);
    }
    std::string Other() {
        return WriteDataset(Folder, "two", {{"KEY", 'N', 3}, {"Y", 'N', 3}}, {{"1", "1"}, {"2", "1"}});
    }
    void PressOnMap(double x) {
        const PlotPoint middle = WorldToPlot(x, 0.5);
        Mouse(*The_<PlotWidget>(Map, "picSHP")).Click(middle.X, middle.Y);
    }
    void UseTool(const char* key) { Map.findChild<QAction*>(key)->trigger(); }

    EndState Now() {
        return {Script.YieldCalls() - before_,
                Graph.IsLoaded() ? Text(Graph, "Text1") : "",
                Picture(),
                Regions()->ListCount(),
                ws.bCusumMapping,
                Map.IsLoaded() && Map.IsToolPressed("Graph")};
    }

    /// The picture by the colours of the second and the third square.
    std::string Picture() {
        if (!Map.IsLoaded()) return "closed";
        const QColor second = ColourOf(1.5), third = ColourOf(5.5);
        if (second == Yellow || third == Yellow) return "highlight";
        return second == Red ? "cusums" : "outlines";
    }

    /// The flashes end in this one, before anything else.
    static EndState Ended(int flash) {
        EndState end;
        end.Yields = flash;
        end.ChartText = "";
        end.Picture = "outlines";
        end.CusumMapping = end.GraphTool = false;
        return end;
    }
    static EndState EndedWithoutAMap(int flash) {
        EndState end = Ended(flash);
        end.Picture = "closed";
        return end;
    }
    static EndState WentOn(int) { return {}; }
    /// The window of the map came back as it is loaded.
    static EndState WentOnOnANewMap(int) {
        EndState end;
        end.GraphTool = false;
        return end;
    }

private:
    long before_ = 0;
};

const FlashEvent Events[] = {
    {"Nothing", [](auto&) {}, &PolygonFlashTest::WentOn},
    {"AnotherRegionIsClicked", [](auto& test) { test.Regions()->SetListIndex(2); },
     [](int) { // both go on with the one that was picked last
         EndState end;
         end.Yields = 3 + 3;
         end.ChartText = "C in 3: ---> 10.00";
         return end;
     }},
    {"ARegionIsClickedOnTheMap", [](auto& test) { test.PressOnMap(5.5); },
     [](int) {
         EndState end;
         end.Yields = 3 + 3;
         end.ChartText = "C in 3: ---> 10.00";
         return end;
     }},
    {"AnotherPeriodIsClicked", [](auto& test) { test.Periods()->SetListIndex(3); },
     [](int) {
         EndState end;
         end.ChartText = "B in 2: ---> 11.00";
         end.RegionRows = 1;
         return end;
     }},
    {"ATitleRowIsClicked", [](auto& test) { test.Periods()->SetListIndex(0); },
     [](int) { // the cusums come back on the map, and nothing else of them
         EndState end;
         end.RegionRows = 0;
         end.CusumMapping = end.GraphTool = false;
         return end;
     }},
    {"RunIsPressed", [](auto& test) { test.Run(); },
     [](int flash) { // the newer run plays to its end
         EndState end;
         end.Yields = flash + 3;
         end.ChartText = "";
         return end;
     }},
    {"RunIsPressedAndRefused",
     [](auto& test) {
         test.Write("txtSigma", "-1");
         test.Script.ExpectMessage("Parameters should be positive values.");
         test.Run();
     },
     [](int flash) {
         EndState end = PolygonFlashTest::Ended(flash);
         end.Picture = "highlight";
         end.RegionRows = 0;
         end.CusumMapping = end.GraphTool = true; // of the run before
         return end;
     }},
    {"TheChartIsClosed", [](auto& test) { test.Graph.Unload(); }, &PolygonFlashTest::WentOn},
    {"TheMapIsEnlarged",
     [](auto& test) {
         test.UseTool("ZoomIn");
         test.PressOnMap(1.5);
     },
     &PolygonFlashTest::WentOnOnANewMap}, // its tool is the other one
    {"TheMapIsResized", [](auto& test) { test.Map.Frame()->resize(400, 300); }, &PolygonFlashTest::WentOn},
    {"TheMapIsClosed", [](auto& test) { test.Map.Frame()->close(); }, &PolygonFlashTest::WentOnOnANewMap},
    {"TheStartOptionChanges", [](auto& test) { test.Push("optPre"); }, &PolygonFlashTest::WentOn},
    {"TheDataOptionChanges", [](auto& test) { test.Push("optExistingTextfile"); }, &PolygonFlashTest::WentOn},
    {"TheWindowIsClosed", [](auto& test) { test.Screen.Frame()->close(); }, &PolygonFlashTest::Ended},
    {"AnotherDatasetIsOpened", [](auto& test) { test.ChooseFile("mnuOpenShapePro", test.Other()); },
     &PolygonFlashTest::Ended},
    {"NoDatasetIsChosen", [](auto& test) { test.ChooseFile("mnuOpenShapePro", ""); },
     [](int flash) { // only a dataset clears the flag
         EndState end = PolygonFlashTest::EndedWithoutAMap(flash);
         end.CusumMapping = true;
         return end;
     }},
    {"NoDatasetOfTheOtherTestIsChosen", [](auto& test) { test.ChooseFile("mnuOpenShapeRetro", ""); },
     &PolygonFlashTest::EndedWithoutAMap},
    {"TheWatchOnPointsIsOpened", [](auto& test) { test.Choose("mnuOpenTextPro"); },
     &PolygonFlashTest::EndedWithoutAMap},
};

} // namespace

TEST_P(PolygonFlashTest, EndsAsItShould) {
    const auto& [event, flash] = GetParam();
    Script.AtYield(flash, [&, &happen = event.Happen] {
        EXPECT_EQ(Picture(), "highlight");
        happen(*this);
    });
    Regions()->SetListIndex(1);
    EXPECT_EQ(Now(), event.End(flash));
    EXPECT_FALSE(Script.BusyPointer());
}

INSTANTIATE_TEST_SUITE_P(InsideAFlash, PolygonFlashTest,
                         testing::Combine(testing::ValuesIn(Events), testing::Values(1, 2, 3)),
                         [](const auto& test) {
                             return std::get<0>(test.param).Name + std::string("InFlash") +
                                    std::to_string(std::get<1>(test.param));
                         });
