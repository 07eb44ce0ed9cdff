#pragma once

#include "core/prospective/PolygonPeriods.h"
#include "core/prospective/PolygonSource.h"
#include "desktop/prospective/CusumScreen.h"

#include <memory>

namespace Ui {
class frmUnivariate;
}

namespace vastrel {

class ComboBox;

/// The screen of the prospective test on polygons. Its results are the store's, its map is the map window,
/// the chart of one Region stands in frmGraph.
class frmUnivariate : public CusumScreen {
    Q_OBJECT

public:
    frmUnivariate();
    ~frmUnivariate() override;

    /// A run that goes on from PreviousCusum, which was read from a file, with the k, h and speed that Run
    /// has taken before.
    void Continue(ShownPeriods shown, const std::string& savedFile);

    void DisableSaveCusum();

    /// Fills frmGraph, without showing it, with the cusums of SelectedRegion.
    void ShowRegionChart();

protected:
    void Form_Load() override;
    void Form_Unload() override;

    CusumOutputs Results() override;
    std::ptrdiff_t RegionCount() const override;
    std::ptrdiff_t ListedPeriods() const override;
    void SelectPeriod(std::ptrdiff_t period) override;
    void PeriodSelected() override;
    void SelectNoPeriod() override;
    void ForgetPeriodOnShow() override;
    std::vector<std::ptrdiff_t>& Signaled() override;
    std::ptrdiff_t SignalCount() const override;
    Array1<std::string> SignalLabels() override;
    void RegionPicked(std::ptrdiff_t region) override;
    std::ptrdiff_t ResultPeriods() const override;
    std::vector<std::string> CusumLines() override;
    LayerEntry& RunLayer() override;

private:
    void ConnectControls();

    void cmdCalc_Click();
    void cboStartZ_Click();
    void cboEndZ_Click();
    void DataOption_Click();
    void StartOption_Click();

    ZSource Source() const;
    bool ReadFields();
    bool ReadText(StartOption start);
    int BeginPlain();
    void RunFrom(int run, StartOption start, ShownPeriods shown);
    bool Play(int run, StartOption start, ShownPeriods shown);
    void OfferLayer();
    void PlayPeriod(ShownPeriods shown, std::ptrdiff_t t);

    std::unique_ptr<Ui::frmUnivariate> ui_;
    Table<double> fieldZScore_;       // of the last run from columns; filtered ones after it
    std::vector<std::string> inputs_; // files of the last run
};

} // namespace vastrel
