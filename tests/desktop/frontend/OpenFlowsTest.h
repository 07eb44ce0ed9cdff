#pragma once

#include "core/workspace/Workspace.h"
#include "support/screens/PolygonScreenTest.h"

#include <QTableView>

namespace vastrel {

/// The two ways to open a shapefile, with what they leave standing.
class OpenFlowsTest : public PolygonScreenTest {
protected:
    void OK() { Press(Parameter, "cmdOK"); }
    void BindThree() {
        PickPopCase();
        OK();
    }
    void Close() { Parameter.close(); }

    /// The four flags of the store that the openings set.
    static std::string Flags() {
        return std::string(ws.bShapefileData ? "S" : "-") + (ws.bTextfileData ? "T" : "-") +
               (ws.bRetroMapping ? "R" : "-") + (ws.bCusumMapping ? "C" : "-");
    }
    /// Flags that no opening leaves.
    static void SetOddFlags() { ws.bTextfileData = ws.bRetroMapping = ws.bCusumMapping = true; }

    QTableView* Cells() { return The_<QTableView>(Grid, "MSFlexGrid1"); }
    std::string Cell(int row, int column) {
        return Cells()->model()->index(row, column).data().toString().toStdString();
    }
};

} // namespace vastrel
