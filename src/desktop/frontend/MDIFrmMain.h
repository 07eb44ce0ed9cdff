#pragma once

#include <QMainWindow>

#include <memory>

namespace Ui {
class MDIFrmMain;
}

class QAction;

namespace vastrel {

class Screen;

/// The main frame: the menu with its commands, the status bar, and the area of the child screens. It holds no
/// state of its own; each command closes what would conflict and hands over to a screen.
class MDIFrmMain : public QMainWindow {
    Q_OBJECT

public:
    MDIFrmMain();
    ~MDIFrmMain() override;

    /// Loads the frame where it is not loaded, and shows it: maximised where the desktop is smaller.
    void ShowFrame();

    /// Whether a frame of this size has its title bar and its status bar on the desktop.
    static bool FitsDesktop(const QSize& frame, const QSize& desktop);

    /// Unloads all child screens and the frame. Its window stays for the reload that follows at once, or for
    /// the end of the process.
    void Unload();

    /// Enables what an open polygon dataset serves.
    void EnableShapeEntries();

    /// A menu entry by its name.
    QAction* Entry(const char* name) const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void ConnectMenu();
    void MDIFrmMain_Load();

    void OpenText(Screen& screen);
    void mnuAttTable_Click();
    void mnuManual_Click();

    std::unique_ptr<Ui::MDIFrmMain> ui_;
    bool loaded_ = false;
};

} // namespace vastrel
