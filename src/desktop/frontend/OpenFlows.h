#pragma once

namespace vastrel {

class MDIFrmMain;

// The two ways of opening a polygon dataset. Both close what would conflict, ask for a shapefile and read it;
// then one asks for the columns before it computes and draws, the other afterwards. Their orders differ on
// purpose. Without a file, or with a base name that is too long, they end with the screens closed.

/// For the retrospective test; waits for the data input. Where that is closed without OK the map comes up,
/// and no test screen.
void OpenShapeRetro(MDIFrmMain& frame);

/// For the prospective test; ends while the dialog of the id columns stands.
void OpenShapePro(MDIFrmMain& frame);

} // namespace vastrel
