#pragma once

#include "core/platform/ErrorBoundary.h"

#include <QObject>

#include <functional>
#include <utility>

namespace vastrel {

/// Connects a signal of the toolkit to a handler inside the error boundary; arguments of the signal are
/// dropped.
template <typename Sender, typename Signal>
void OnEvent(Sender* sender, Signal signal, QObject* context, std::function<void()> handler) {
    QObject::connect(sender, signal, context, [handler = std::move(handler)] { InBoundary(handler); });
}

} // namespace vastrel
