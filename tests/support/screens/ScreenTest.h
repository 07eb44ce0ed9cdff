#pragma once

#include "desktop/frontend/MDIFrmMain.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/Screens.h"
#include "support/ScriptedPlatform.h"

#include <QAbstractButton>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace vastrel {

/// A test that presses real widgets: a fresh store, a scripted platform and a loaded main frame, every screen
/// unloaded.
class ScreenTest : public testing::Test {
protected:
    ScreenTest();
    ~ScreenTest() override;

    /// The control of a screen, by its name; a failure where there is none.
    template <typename Control>
    static Control* The_(QWidget& screen, const char* name) {
        auto* control = screen.findChild<Control*>(name);
        if (control == nullptr) ADD_FAILURE() << name << " does not stand on the screen.";
        return control;
    }

    static void Press(QWidget& screen, const char* button);
    static void Type(QWidget& screen, const char* edit, const std::string& text);
    /// Comes to a control and presses a key there.
    static void Key(QWidget& screen, const char* control, Qt::Key key);

    /// The text of a line edit or of a label.
    static std::string Text(QWidget& screen, const char* control);
    static bool IsEnabled(QWidget& screen, const char* control);
    static bool IsShown(QWidget& screen, const char* control);

    static std::vector<std::string> Rows(const ListBox* list);

    /// Chooses a menu entry of the frame.
    void Command(const char* entry);

    /// Keeps a picture of a widget in the folder named by VASTREL_SHOTS, for a person to look at.
    static void Shot(QWidget& widget, const std::string& name);

    ScriptedPlatform Script;
    MDIFrmMain& Frame;
};

} // namespace vastrel
