#pragma once

#include "desktop/frontend/MDIFrmMain.h"
#include "desktop/toolkit/QtPlatform.h"

#include <QRect>

#include <deque>
#include <functional>

/// The running program with someone at it who takes pictures: presses real controls, answers the file dialogs
/// from a list, and keeps what the screens show. A control that is not there, or a message that was not
/// announced, ends the program.
class Desk : public vastrel::QtPlatform {
public:
    /// The samples of the project are copied to `data`, since their path stands on some screens.
    Desk(const QString& project, const QString& data, const QString& pictures);

    void Command(const char* entry);
    /// The file of the sample that the next file dialog gives.
    void Answer(const QString& file) { answers_.push_back(file); }
    /// The next message is kept as a picture, and answered.
    void AwaitMessage(const QString& picture) { messagePicture_ = picture; }
    /// Runs once, behind the next opening of a modal dialog.
    void InDialog(QObject& dialog, const std::function<void()>& steps);

    void Press(QWidget& screen, const char* button);
    void Type(QWidget& screen, const char* edit, const QString& text);
    void Pick(QWidget& screen, const char* comboBox, const QString& entry);
    /// Selects the first row of a list that holds a text.
    void Row(QWidget& screen, const char* list, const QString& text);
    /// Presses, moves and lets go the mouse on a map; positions in pixels of the plot.
    void Drag(QWidget& screen, const char* map, QPoint from, QPoint to);
    void Click(QWidget& screen, const char* map, QPoint at) { Drag(screen, map, at, at); }

    void Keep(QWidget& widget, const QString& name, const QRect& part = {});
    /// What a control takes up on its screen, with some room around.
    QRect Part(QWidget& screen, const char* control) const;

    vastrel::MDIFrmMain& Frame() { return *frame_; }

    void ShowMessage(const vastrel::Message& message) override;
    vastrel::FileChoice ChooseFile(const vastrel::FileQuestion& question) override;
    void Yield(long count) override;
    std::string ProgramFolder() override { return project_.toStdString(); }

private:
    template <typename Control>
    Control& Find(QWidget& screen, const char* name) const;

    QString project_, data_, pictures_, messagePicture_;
    std::deque<QString> answers_;
    vastrel::MDIFrmMain* frame_; // kept until the process ends, as its screens are
};
