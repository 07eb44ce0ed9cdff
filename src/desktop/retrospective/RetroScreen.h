#pragma once

#include "core/retrospective/RetroRules.h"
#include "core/workspace/Arrays.h"
#include "desktop/toolkit/Screen.h"

#include <set>
#include <string>
#include <vector>

class QLineEdit;
class QPushButton;

namespace vastrel {

class ComboBox;
class LayerEntry;
class ListBox;
class OptionButton;
class PictureBox;
struct SweepTexts;

/// What the retrospective screens of points and of polygons do alike: reading the parameters, running the
/// test, filling the two lists, saving the report. How they differ stands in RetroRules, and in the steps
/// that each screen has for its own map and chart.
class RetroScreen : public Screen {
    Q_OBJECT

public:
    /// The list of the bandwidths or of the global results.
    ListBox& GlobalPatternSummary() const { return *lstGlobalPatternSummary; }
    ListBox& LocalPatternSummary() const { return *lstLocalPatternSummary; }

    /// The variable and the bandwidth mode of the moment.
    RetroVariable Variable() const;
    bool IsSingleSigma() const;

protected:
    RetroScreen(Kind kind, const RetroRules& rules) : Screen(kind), rules_(rules) {}

    /// Finds the common controls by their names and connects them; to be called behind setupUi.
    void TakeControls();

    void Form_Load() override;
    void Form_Unload() override;

    /// What comes before the parameters are read: the lists go, and the map of a run begins plain.
    virtual void ClearForRun() = 0;
    virtual void ShowRetroMap(Array1<double>& classValues, const Array1<double>& drawValues) = 0;
    virtual void DrawPlain() = 0;
    virtual void ShowMLegend(bool shown) = 0;
    virtual void FinishSingleRun() = 0;
    virtual void FinishSweep() = 0;
    virtual void DisableMapTools() {}
    virtual void CloseChart() = 0;
    virtual void LocalRow_Click(std::ptrdiff_t row) = 0;

    /// The entry of the window that has the map, and the files of the dataset.
    virtual LayerEntry& RunLayer() = 0;
    virtual std::vector<std::string> Inputs() const = 0;

    const RetroRules& Rules() const { return rules_; }

    /// Whether a legend was built from these class values, and a map shown, since the run, the load or the
    /// click that filled or emptied them last. Otherwise they are no map yet: those behind a run that ended
    /// in a fault, say, or behind a sweep of which no step was picked.
    bool IsMapped(const Array1<double>& classValues) const { return mapped_.contains(&classValues); }
    void ForgetMaps() { mapped_.clear(); }

    OptionButton *optUnadjusted = nullptr, *optAdjusted_Generic = nullptr, *optStandard = nullptr,
                 *optRossi = nullptr;
    OptionButton *optSpatialSingleSigma = nullptr, *optSpatialSigmaRange = nullptr;
    QLineEdit *txtSingleSigma = nullptr, *txtFromSigma = nullptr, *txtToSigma = nullptr, *txtStep = nullptr;
    ComboBox* cboAlpha = nullptr;
    PictureBox* picEquation = nullptr;
    ListBox *lstGlobalPatternSummary = nullptr, *lstLocalPatternSummary = nullptr;
    QPushButton *cmdRun = nullptr, *cmdSave = nullptr, *cmdExit = nullptr;

private:
    void FindControls();

    void VariableOption_Click();
    void optSpatialSingleSigma_Click();
    void optSpatialSigmaRange_Click();
    void cboAlpha_Click();
    void cmdRun_Click();
    void DropResults();
    void cmdSave_Click();
    void lstGlobalPatternSummary_Click();

    SweepTexts RangeTexts() const;
    void ShowMap(Array1<double>& classValues, const Array1<double>& drawValues);
    void ForgetMapsOfRun();
    void OfferLayer();
    bool RunSingle();
    bool RunRange();

    const RetroRules& rules_;
    std::set<const Array1<double>*> mapped_; // class values of the store
};

} // namespace vastrel
