#pragma once

#include "core/prospective/CusumParameters.h"
#include "core/prospective/CusumRules.h"
#include "core/prospective/CusumTables.h"
#include "desktop/toolkit/Screen.h"

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;

namespace vastrel {

class LayerEntry;
class LineChart;
class ListBox;
class OptionButton;

/// What the prospective screens of points and of polygons do alike: reading the parameters, playing the
/// periods, the two lists, the two save buttons. How they differ stands in CusumRules, and in the steps that
/// each screen has for its own map and charts.
class CusumScreen : public Screen {
    Q_OBJECT

protected:
    CusumScreen(Kind kind, const CusumRules& rules) : Screen(kind), rules_(rules) {}

    /// Finds the common controls by their names and connects them; to be called behind setupUi.
    void TakeControls();

    StartOption Start() const;
    long Delay() const;
    CusumTexts Parameters() const;

    /// Empties both lists and begins a run, which ends one that plays at this moment. Gives its number.
    int BeginLists();

    /// The pointer and the title rows, with which every run begins once its parameters are taken.
    void BeginRows();

    /// What a run does from its title rows to its last frame. A fault on the way leaves nothing to save, and
    /// no period that the map would draw again. Gives what the steps give.
    bool RunOrDropResults(const std::function<bool()>& steps);

    /// Plays frame(1) to frame(count), each behind a delay. False where the screen was unloaded or its run
    /// replaced inside a yield: the command ends there, and what that event left stands.
    bool Animate(int run, long delay, std::ptrdiff_t count, const std::function<void(std::ptrdiff_t)>& frame);

    /// The closing row, the buttons, and the last of the periods selected as by a click.
    void FinishRun(StartOption start, std::ptrdiff_t lastPeriod);

    void AddPeriodRow(const std::string& row);
    void ShowMaximumChart();
    void ShowPeriodCaption(std::ptrdiff_t period);

    /// The results of the moment's start option, and how many periods lstPeriod is taken to hold.
    virtual CusumOutputs Results() = 0;
    virtual std::ptrdiff_t RegionCount() const = 0;
    virtual std::ptrdiff_t ListedPeriods() const = 0;

    /// What a click on a period's row does beside caption and lists, and one on a title or closing row.
    virtual void SelectPeriod(std::ptrdiff_t period) = 0;
    virtual void PeriodSelected() {}
    virtual void SelectNoPeriod() {}

    /// The next drawing of the map is plain.
    virtual void ForgetPeriodOnShow() = 0;

    /// The Regions that signal in a period, how many Regions the list goes through (the points of the moment,
    /// and the polygons that have a record), and their labels.
    virtual std::vector<std::ptrdiff_t>& Signaled() = 0;
    virtual std::ptrdiff_t SignalCount() const = 0;
    virtual Array1<std::string> SignalLabels() = 0;

    /// A Region, counted from 1, is picked in lstRegion.
    virtual void RegionPicked(std::ptrdiff_t region) = 0;

    /// The tables behind the save buttons: periods of the report, lines of the cusum file.
    virtual std::ptrdiff_t ResultPeriods() const = 0;
    virtual std::vector<std::string> CusumLines() = 0;

    /// The entry of the window that has the map.
    virtual LayerEntry& RunLayer() = 0;

    const CusumRules& Rules() const { return rules_; }

    OptionButton *optZero = nullptr, *optFIR = nullptr, *optPre = nullptr;
    OptionButton *optFast = nullptr, *optMedium = nullptr;
    QLineEdit *txtKvalue = nullptr, *txtHvalue = nullptr, *txtSigma = nullptr;
    QPushButton *cmdSaveResult = nullptr, *cmdSaveCusum = nullptr;
    LineChart* MSChart1 = nullptr;
    ListBox *lstPeriod = nullptr, *lstRegion = nullptr;
    QLabel* lblY = nullptr;

private:
    void FindControls();
    void lstPeriod_Click();
    void lstRegion_Click();
    void cmdSaveResult_Click();
    void cmdSaveCusum_Click();

    const CusumRules& rules_;
};

} // namespace vastrel
