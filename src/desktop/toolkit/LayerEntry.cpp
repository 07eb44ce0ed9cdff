#include "desktop/toolkit/LayerEntry.h"

#include "core/layer/SaveLayer.h"
#include "core/platform/ErrorBoundary.h"

#include <QAction>
#include <QMenu>

namespace vastrel {

void LayerEntry::AddTo(QMenu& menu) {
    action_ = menu.addAction("Save &Layer As...", &menu, [this] { InBoundary([this] { Save(); }); });
    Enable(offered_);
}

void LayerEntry::Keep(std::function<Layer()> layer, std::vector<std::string> inputs) {
    Drop();
    layer_ = std::move(layer);
    inputs_ = std::move(inputs);
}

void LayerEntry::Offer() {
    Enable(layer_ != nullptr);
}

void LayerEntry::Drop() {
    layer_ = nullptr;
    Enable(false);
}

void LayerEntry::Enable(bool enabled) {
    offered_ = enabled;
    if (action_ != nullptr) action_->setEnabled(enabled);
}

void LayerEntry::Save() {
    SaveLayerAs(layer_(), inputs_);
}

} // namespace vastrel
