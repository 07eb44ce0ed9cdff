#pragma once

#include <QWidget>

#include <string>
#include <utility>
#include <vector>

namespace vastrel {

// What every screen is held against: tables written by hand, one for each screen.

/// Pairs (control, caption or text at load); the screen's own name stands for its title.
using CaptionTable = std::vector<std::pair<const char*, const char*>>;
void ExpectCaptions(QWidget& screen, const CaptionTable& table);

/// The enabled ones of these controls are exactly those named.
void ExpectEnabled(QWidget& screen, const std::vector<const char*>& controls,
                   const std::vector<std::string>& enabled);

/// The controls that the Tab key comes to, in its order; of a group of options all are named.
void ExpectTabOrder(QWidget& screen, const std::vector<std::string>& controls);

/// Keeps a picture of a widget in the folder named by VASTREL_SHOTS, for a person to look at.
void KeepShot(QWidget& widget, const std::string& name);

/// Every control, map and chart tells its name to who cannot see it.
void ExpectAccessibleNames(QWidget& screen);

} // namespace vastrel
