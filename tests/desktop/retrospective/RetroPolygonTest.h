#pragma once

#include "core/display/PolygonPainter.h"
#include "core/display/PolygonView.h"
#include "core/workspace/Workspace.h"
#include "desktop/retrospective/frmSigmaChart.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/ProjectFolder.h"
#include "support/screens/PolygonScreenTest.h"

#include <QAction>
#include <QCheckBox>
#include <QSlider>

#include <filesystem>

namespace vastrel {

/// The screen of the retrospective test on polygons, opened through the menu and the data input, with its map
/// and its chart.
class RetroPolygonTest : public PolygonScreenTest {
protected:
    /// The sample country as files of the test's own.
    std::string CopySample() {
        for (const char* extension : {".shp", ".shx", ".dbf", ".cpg"})
            Folder.Write(std::string("country") + extension,
                         ReadFile(InProject("samples/country") + extension));
        return Folder / "country.shp";
    }

    /// Picks these columns in the data input and presses OK; names that are empty are left alone.
    void Bind(const CountColumns& columns) {
        Press(Parameter, columns.Pop.empty() ? "optObsExp" : "optPopCase");
        if (!columns.SecondaryID.empty()) The_<QCheckBox>(Parameter, "chkSecondaryID")->click();
        const std::pair<const char*, const std::string&> picks[] = {{"cboBasePopulation", columns.Pop},
                                                                    {"cboCase", columns.Case},
                                                                    {"cboObs", columns.Obs},
                                                                    {"cboExp", columns.Exp},
                                                                    {"cboPrimaryID", columns.PrimaryID},
                                                                    {"cboSecondaryID", columns.SecondaryID}};
        for (const auto& [list, column] : picks)
            if (!column.empty()) Pick(Parameter, list, column);
        Press(Parameter, "cmdOK");
    }
    void OpenBound(const std::string& path, const CountColumns& columns) {
        OpenRetro(path, [&] { Bind(columns); });
    }
    void OpenSample() { OpenBound(CopySample(), SampleColumns()); }
    static CountColumns SampleColumns() { return {"POP", "CASES", "", "", "NAME", ""}; }

    void RunSingle(const char* variable, const std::string& sigma) {
        Press(Retro, "optSpatialSingleSigma");
        Press(Retro, variable);
        Type(Retro, "txtSingleSigma", sigma);
        Press(Retro, "cmdRun");
    }
    void RunRange(const char* variable, const std::string& from, const std::string& to,
                  const std::string& step) {
        Press(Retro, "optSpatialSigmaRange");
        Press(Retro, variable);
        Type(Retro, "txtFromSigma", from);
        Type(Retro, "txtToSigma", to);
        Type(Retro, "txtStep", step);
        Press(Retro, "cmdRun");
    }
    void Save(const std::string& path) {
        Script.ExpectFile(FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", path);
        Press(Retro, "cmdSave");
    }

    ListBox* Global() { return The_<ListBox>(Retro, "lstGlobalPatternSummary"); }
    ListBox* Local() { return The_<ListBox>(Retro, "lstLocalPatternSummary"); }
    ComboBox* Alpha() { return The_<ComboBox>(Retro, "cboAlpha"); }

    /// A button of the map's toolbar.
    QAction* Tool(const char* key) { return MapWindow.findChild<QAction*>(key); }

    QSlider* Slider() { return The_<QSlider>(MapWindow, "sliderStatsRange"); }
    PlotWidget* picSHP() { return The_<PlotWidget>(MapWindow, "picSHP"); }
    QImage Picture() { return picSHP()->Picture(); }
    /// The colour at a position of the map, in plot pixels, at any scale of the display.
    static QColor ColourAt(const QImage& picture, const RegionPoint& position) {
        const PlotPoint at = WorldToPlot(position.X, position.Y);
        const double scale = picture.devicePixelRatio();
        return picture.pixelColor(static_cast<int>(at.X * scale), static_cast<int>(at.Y * scale));
    }
    /// What is printed on the map window beside the map.
    QImage Print() { return The_<PlotWidget>(MapWindow, "picForm")->Picture(); }
    static bool IsWhite(const QImage& picture) {
        QImage white = picture;
        white.fill(Qt::white);
        return picture == white;
    }

    /// What the map would show, drawn over what stands there; the store stays as it is.
    QImage Drawn(const std::function<void(const PolygonMap&)>& draw) {
        const Workspace before = ws;
        draw(MapWindow.Map());
        ws = before;
        return Picture();
    }
    QImage Outlines() {
        return Drawn([](const PolygonMap& map) { vastrel::DrawPlainMap(map.picSHP); });
    }
    QImage ClassesOf(const Array1<double>& values) {
        return Drawn([&](const PolygonMap& map) {
            auto classValues = values;
            vastrel::ShowRetroMap(map, classValues, values);
        });
    }
    /// The local values of a step of the sweep.
    static Array1<double> StepValues(std::ptrdiff_t k) {
        Array1<double> values;
        values.ReDim(ws.NumRegion);
        for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
            values(i) = ws.StatisticTable(i, k);
        return values;
    }

    frmSigmaChart& Chart = The<frmSigmaChart>();
};

} // namespace vastrel
