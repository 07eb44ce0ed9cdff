#include "frontend/screens/PolygonScreens.h"

namespace vastrel {

void UnloadMap() {}
void DrawPlainMapNoPan() {}
void UnloadRetroScreen() {}
void ShowRetroScreen() {}
void TakeAlphaValues() {}
void UnloadSigmaChart() {}
void UnloadWatchScreen() {}
void ShowWatchScreen() {}
void UnloadGraph() {}

} // namespace vastrel
