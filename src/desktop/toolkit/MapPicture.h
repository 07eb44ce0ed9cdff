#pragma once

#include "pictures/Picture.h"

#include <vector>

class QMenu;
class QWidget;

namespace vastrel {

class PlotWidget;

/// A map that can be copied and saved with its legend: how it stands in its window.
struct ShownMap {
    PlotWidget* Map = nullptr;

    /// What stands beside the map; hidden ones are left out.
    std::vector<QWidget*> Legend;

    /// The surface behind the map that its legend is printed on, where there is one: what lies left of the
    /// map counts.
    PlotWidget* Print = nullptr;
};

/// The part of the window that map and legend take. Plot surfaces are painted stroke by stroke.
Picture PictureOf(const ShownMap& shown);

/// Adds the entries of pictures to the window menu of a screen, and lets Ctrl+C copy the map that has the
/// focus.
void OfferMapPicture(QMenu& windowMenu, const ShownMap& shown);

} // namespace vastrel
