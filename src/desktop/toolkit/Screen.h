#pragma once

#include "desktop/toolkit/DesignState.h"

#include <QWidget>

class QMenu;

namespace vastrel {

/// A form. One object stands for the life of the process; loading and unloading only change its state, so a
/// command that is running when its window is closed meets no dangling pointer.
class Screen : public QWidget {
    Q_OBJECT

public:
    /// A child screen is a window inside the main frame; the others stand on their own.
    enum class Kind { Child, Window };

    explicit Screen(Kind kind);

    bool IsLoaded() const { return loaded_; }
    Kind ScreenKind() const { return kind_; }

    /// Puts the controls back to their design state and runs the load step. Nothing when loaded already. A
    /// screen whose load step ends with a fault is not loaded.
    void Load();

    /// Runs the unload step and hides. Nothing when not loaded. A fault of the step goes on to the caller
    /// when the screen is unloaded all the same.
    void Unload();

    /// Loads where needed, and comes to the front.
    void Show();

    /// The same, and waits until the screen is unloaded.
    void ShowModal();

    /// Counts the runs and unloads of this screen. A command that yields remembers the number and ends
    /// quietly when it finds another one.
    int Generation() const { return generation_; }
    int BeginRun() { return ++generation_; }

    /// The window that holds the form: the sub-window of a child, otherwise the form itself.
    QWidget* Frame();

    /// Moves the window inside the main frame: the rest of the frame's size over a divisor in each direction.
    void PlaceInFrame(double leftDivisor, double topDivisor);

    /// Adds the screen's own entries to the menu of its title bar's icon; called once, when its window is
    /// made.
    virtual void FillWindowMenu(QMenu&) {}

protected:
    virtual void Form_Load() {}
    virtual void Form_Unload() {}

    /// Where the keyboard begins when the screen is shown newly loaded: the first control that the Tab key
    /// comes to. An option that is not selected is passed over.
    virtual QWidget* FirstControl();

    /// To be called behind setupUi.
    void TakeDesign();

    /// Escape closes this screen, as it does every window that stands on its own.
    void CloseByEscape() { closesByEscape_ = true; }

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Kind kind_;
    DesignState design_;
    bool loaded_ = false;
    bool begins_ = false; // loaded and not yet shown
    bool closesByEscape_;
    int generation_ = 0;
};

} // namespace vastrel
