#pragma once

#include <QObject>
#include <QTimer>

namespace vastrel {

/// Keeps input from the windows of the program: the clicks and keys that wait in the queue at one moment.
/// Everything else that waits there, paints and resizes among it, is served as ever.
class InputGate : public QObject {
    Q_OBJECT

public:
    InputGate();

    /// Drops the input that has come so far, as the loop comes to it. What comes later is served.
    void DropPending();

    /// Serves what waits, and drops the input among it.
    void ServeWithoutInput();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool KeepsOut(QEvent* event);

    QTimer turn_;              // of the loop, behind all that waits
    int turnsLeft_ = 0;        // until the queue of the moment of the call is empty
    Qt::MouseButtons dropped_; // whose press was dropped, so that their release is too
};

} // namespace vastrel
