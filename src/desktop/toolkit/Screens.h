#pragma once

#include <QMdiSubWindow>
#include <QObject>
#include <QPoint>
#include <QSize>

#include <functional>
#include <map>
#include <string>
#include <vector>

class QMdiArea;

namespace vastrel {

class Screen;

/// All screens of the process, and the frame that holds the child screens.
class Screens : public QObject {
    Q_OBJECT

public:
    /// What the main frame gives: its area for child screens, and how it comes to stand.
    struct MainFrame {
        QMdiArea* Area = nullptr;
        QWidget* Window = nullptr;
        std::function<void()> Show; // loads the frame where it is not loaded
        std::function<void(const char* entry, bool enabled)> EnableEntry;
        std::function<void(const std::string& text)> ShowStatus;
        std::function<void(const std::string& text)> ShowDataset;
    };

    void UseFrame(const MainFrame& frame) { frame_ = frame; }

    void Enlist(Screen* screen) { all_.push_back(screen); }

    /// Makes a child screen a sub-window of the frame, at its design size in the upper left corner and
    /// smaller where the frame is, and brings the frame back where it is gone. A window of its own stays in
    /// front of the frame.
    void Admit(Screen* screen);

    /// Hides an unloaded screen, and the frame's scroll bars where nothing needs them any longer.
    void Dismiss(Screen* screen);
    void Activate(QMdiSubWindow* child) const;

    /// A handler for the moments when a child screen becomes the active one.
    void OnActivate(Screen* screen, std::function<void()> handler) const;

    /// Enables or disables an entry of the frame's menu, by its name.
    void EnableEntry(const char* entry, bool enabled) const;

    /// Writes the first panel of the frame's status line.
    void ShowStatus(const std::string& text) const;

    /// Names the dataset that is open at the right of the status line: the file at a path, and how many
    /// "regions" or "points" it has.
    void ShowDataset(const std::string& path, std::ptrdiff_t count, const char* ofWhat) const;

    void UnloadChildren();

    QSize FrameSize() const;
    QPoint FramePosition() const;

signals:
    void Unloaded(Screen* screen);

private:
    MainFrame frame_;
    std::vector<Screen*> all_;
    std::map<Screen*, QSize> designSize_; // of the sub-window of a child screen
};

Screens& screens();

/// The one object of a form, made at its first use and kept until the process ends.
template <typename Form>
Form& The() {
    static Form* const form = new Form;
    return *form;
}

} // namespace vastrel
