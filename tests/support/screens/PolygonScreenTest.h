#pragma once

#include "desktop/display/frmPolygonSHP.h"
#include "desktop/frontend/frmParameter.h"
#include "desktop/frontend/frmSelectName.h"
#include "desktop/retrospective/frmClusterDetection.h"
#include "desktop/spatial/frmAttTable.h"
#include "desktop/toolkit/ComboBox.h"
#include "support/AttributeData.h"
#include "support/screens/ScreenTest.h"

#include <QTimer>

namespace vastrel {

/// A test of what follows the opening of a polygon dataset.
class PolygonScreenTest : public ScreenTest {
protected:
    ~PolygonScreenTest() override {
        // While the shapefile is still there: closing a test screen draws the map once more.
        for (Screen* screen : std::initializer_list<Screen*>{&Parameter, &Retro, &MapWindow})
            screen->Unload();
    }

    static constexpr const char* ShapeFilter = "SHP Files (*.shp)|*.shp|All Files (*.*)|*.*|";

    /// Three squares; every column of counts is good but BAD, which has a null in its second row.
    std::string WriteThree(const std::string& name = "three") {
        return WriteDataset(Folder, name,
                            {{"KEY", 'C', 4},
                             {"POP", 'N', 8},
                             {"CASES", 'N', 4},
                             {"EXPECTED", 'N', 8, 2},
                             {"BAD", 'N', 4},
                             {"DAY", 'D', 8}},
                            {{"a", "100", "1", "1", "5", "20261120"},
                             {"b", "300", "2", "4", "*", "20261121"},
                             {"c", "600", "7", "9", "5", "20261122"}});
    }

    /// Chooses a shapefile in a flow; `inDialog` runs once the modal dialog stands.
    void Open(const char* flow, const std::string& path, const std::function<void()>& inDialog = {}) {
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
        if (inDialog) QTimer::singleShot(0, &Parameter, inDialog);
        Command(flow);
    }
    void OpenRetro(const std::string& path, const std::function<void()>& inDialog) {
        Open("mnuOpenShapeRetro", path, inDialog);
    }
    void OpenPro(const std::string& path) { Open("mnuOpenShapePro", path); }

    /// Picks an entry as the user does, with the event boundary of the toolkit.
    void Pick(QWidget& screen, const char* list, const std::string& entry) {
        auto* box = The_<ComboBox>(screen, list);
        ASSERT_TRUE(box->isEnabled()) << list;
        const int index = box->findText(QString::fromStdString(entry));
        ASSERT_GE(index, 0) << entry << " is not offered by " << list;
        box->setCurrentIndex(index);
        emit box->activated(index);
    }
    std::string Shown(QWidget& screen, const char* list) { return The_<ComboBox>(screen, list)->Text(); }
    std::vector<std::string> Entries(QWidget& screen, const char* list) {
        std::vector<std::string> entries;
        const auto* box = The_<ComboBox>(screen, list);
        for (int k = 0; k < box->count(); ++k)
            entries.push_back(box->itemText(k).toStdString());
        return entries;
    }

    void PickPopCase() {
        Pick(Parameter, "cboBasePopulation", "POP");
        Pick(Parameter, "cboCase", "CASES");
        Pick(Parameter, "cboPrimaryID", "KEY");
    }

    using Names = std::vector<std::string>;
    /// The menu entry that the flows alone enable; the others follow the map window too.
    bool CanExport() { return Frame.Entry("mnuExport")->isEnabled(); }

    TemporaryFolder Folder;
    frmParameter& Parameter = The<frmParameter>();
    frmSelectName& SelectName = The<frmSelectName>();
    frmClusterDetection& Retro = The<frmClusterDetection>();
    frmPolygonSHP& MapWindow = The<frmPolygonSHP>();
    frmAttTable& Grid = The<frmAttTable>();
};

} // namespace vastrel
