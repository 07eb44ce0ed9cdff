#pragma once

#include "core/layer/Layer.h"

#include <QPointer>

#include <functional>
#include <string>
#include <vector>

class QAction;
class QMenu;

namespace vastrel {

/// "Save Layer As..." of a window menu, and the layer of the last run that it saves. It is enabled from the
/// end of a run on, until its results are no longer those of the data.
class LayerEntry {
public:
    void AddTo(QMenu& menu);

    /// Keeps the way to the layer of a run, which may still be played, and the files that it was made from.
    void Keep(std::function<Layer()> layer, std::vector<std::string> inputs);

    /// The run has come to its good end. Nothing where its layer was dropped in the meantime.
    void Offer();

    /// There is no layer any more.
    void Drop();

private:
    void Enable(bool enabled);
    void Save();

    QPointer<QAction> action_;
    bool offered_ = false;
    std::function<Layer()> layer_;
    std::vector<std::string> inputs_;
};

} // namespace vastrel
