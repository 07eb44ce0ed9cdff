#pragma once

#include "core/display/PolygonMap.h"
#include "desktop/toolkit/LayerEntry.h"
#include "desktop/toolkit/Screen.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

class QAction;

namespace Ui {
class frmPolygonSHP;
}

namespace vastrel {

/// What the map window needs of the retrospective test. The test stands above the map window and hands itself
/// over when it is made.
struct MappedTest {
    std::function<RetroVariable()> Variable = [] { return RetroVariable::Unadjusted; };
    std::function<int()> Generation = [] { return 0; };
    std::function<void(std::ptrdiff_t row)> PickGlobalRow = [](std::ptrdiff_t) {};
    std::function<void(std::ptrdiff_t row)> PickLocalRow = [](std::ptrdiff_t) {};
};

/// The window of the polygon map: its toolbar, the map, the printed legend beside it, the slider of the
/// bandwidths.
///
/// A drawing that an open, a run or a click asks for shows a closed window again.
class frmPolygonSHP : public Screen {
    Q_OBJECT

public:
    frmPolygonSHP();
    ~frmPolygonSHP() override;

    /// What the tools and the pictures work on.
    PolygonMap Map();

    void DrawPlainMap();
    void DrawPlainMapNoPan();
    void ShowRetroMap(Array1<double>& classValues, const Array1<double>& drawValues);
    void DrawCusumMap(std::ptrdiff_t period);

    /// Paints one Region, counted from 0, yellow; all others turn white.
    void DrawHighlight(std::ptrdiff_t region);

    /// Clears the printed legend and draws the outlines.
    void ClearMap();

    /// What an unload step does: the outlines, without the printed legend; nothing on a closed window.
    void ClearMapIfOpen(bool withSettledPan);

    /// The tools and commands of the toolbar, by their keys.
    void EnableButton(const std::string& key, bool enabled);
    void PressTool(const std::string& key, bool pressed);
    bool IsToolPressed(const std::string& key) const;

    void ShowMLegend(bool shown);
    void ShowCusumLegend(bool shown);
    void HideAnimationControls();

    MappedTest Test;

    /// What the Graph tool fills frmGraph with, for SelectedRegion: set by the screen that holds the cusums.
    std::function<void()> ShowRegionChart;

    /// The layer of the run that the map shows; it goes when the window is closed.
    LayerEntry RunLayer;

    void FillWindowMenu(QMenu& menu) override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildToolbar();
    void Toolbar1_ButtonClick(const std::string& key);
    void Form_Activate();
    void Form_Resize();
    void sliderStatsRange_Scroll();
    void sliderStatsRange_Change();
    void Animate();

    bool IsShown();
    void Draw(const std::function<void(const PolygonMap&)>& drawing);

    std::unique_ptr<Ui::frmPolygonSHP> ui_;
    std::map<std::string, QAction*> buttons_;
    QSize arranged_; // the size that the map was fitted to last
};

} // namespace vastrel
