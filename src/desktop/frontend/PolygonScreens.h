#pragma once

#include <functional>

namespace vastrel {

// The screens of the polygon tests, as the commands that open a dataset use them. Unloading a screen that is
// not loaded does nothing.

/// The map window: closes it, or draws the outlines without a pan, which shows it.
void UnloadMap();
void DrawPlainMapNoPan();

/// The screen of the retrospective test.
void UnloadRetroScreen();
void ShowRetroScreen();

/// What that screen's Data Reset shows.
void UseForDataReset(std::function<void()> showDataInput);

/// Adds the two levels to the alpha list of that screen, which loads it without showing it, sets AlphaLevel
/// to 0.05 and disables its Save button.
void TakeAlphaValues();

/// The chart of a sweep over bandwidths.
void UnloadSigmaChart();

/// The screen of the prospective test. A run or a flash that it plays at this moment can be ended, which then
/// finds itself replaced; the screen stays as it stands.
void UnloadWatchScreen();
void EndWatchRun();
void ShowWatchScreen();

/// The chart of one Region.
void UnloadGraph();

} // namespace vastrel
