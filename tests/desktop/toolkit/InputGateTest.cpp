// What becomes of clicks and keys that are made while a command computes.
#include "desktop/toolkit/InputGate.h"

#include "core/platform/Computation.h"
#include "core/platform/RunTimeError.h"
#include "desktop/toolkit/QtPlatform.h"
#include "support/screens/PostedInput.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

class PaintCounter : public QWidget {
public:
    int Paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++Paints; }
};

/// A window with a button, a line of text and a picture.
class InputGateTest : public testing::Test {
protected:
    InputGateTest() {
        auto* layout = new QVBoxLayout(&Window);
        for (QWidget* part : std::initializer_list<QWidget*>{&Button, &Edit, &Picture})
            layout->addWidget(part);
        QObject::connect(&Button, &QPushButton::clicked, [this] { ++Clicks; });
        Button.setFocusPolicy(Qt::NoFocus); // so that the keys go on to the line
        Window.resize(300, 200);
        Window.show();
        Window.activateWindow();
        Edit.setFocus();
        ServeEvents();
    }
    ~InputGateTest() override { Desktop.SetBusyPointer(false); }

    void PostInput() {
        PostClick(Button);
        PostKey(Window, Qt::Key_A, "a");
    }

    QWidget Window;
    QPushButton Button{&Window};
    QLineEdit Edit{&Window};
    PaintCounter Picture;
    QtPlatform Desktop;
    int Clicks = 0;
};

} // namespace

TEST_F(InputGateTest, ServesWhatComesWhileNothingComputes) {
    PostInput();
    ServeEvents();
    EXPECT_EQ(Clicks, 1);
    EXPECT_EQ(Edit.text(), "a");
}

TEST_F(InputGateTest, DropsWhatCameDuringARunAndPaintsAllTheSame) {
    Desktop.SetBusyPointer(true);
    PostInput();
    const int paints = Picture.Paints;
    Picture.update();
    Desktop.SetBusyPointer(false);
    ServeEvents();
    EXPECT_EQ(Clicks, 0);
    EXPECT_EQ(Edit.text(), "");
    EXPECT_GT(Picture.Paints, paints);

    PostInput(); // the run has ended
    ServeEvents();
    EXPECT_EQ(Clicks, 1);
    EXPECT_EQ(Edit.text(), "a");
}

TEST_F(InputGateTest, DropsItAlsoAtTheEndOfACommandWithoutTheBusyPointer) {
    SetPlatform(&Desktop);
    {
        const Computation command;
        PostInput();
    }
    ServeEvents();
    EXPECT_EQ(Clicks, 0);
    EXPECT_EQ(Edit.text(), "");

    try {
        const Computation command;
        PostInput();
        RaiseCustomary(DivisionByZero, "test");
    } catch (const RunTimeError&) {
    }
    ServeEvents();
    EXPECT_EQ(Clicks, 0);

    PostInput(); // the command has ended
    ServeEvents();
    EXPECT_EQ(Clicks, 1);
    EXPECT_EQ(Edit.text(), "a");
    SetPlatform(nullptr);
}

TEST_F(InputGateTest, DropsWhatCameBeforeAYieldAndServesWhatComesInsideIt) {
    Desktop.SetBusyPointer(true);
    PostInput(); // while the run computes, before it plays
    Desktop.Yield(1);
    EXPECT_EQ(Clicks, 0);
    for (int yield = 1; yield <= 2; ++yield) {
        QMetaObject::invokeMethod(
            &Window, [this] { PostInput(); }, Qt::QueuedConnection);
        Desktop.Yield(5);
        EXPECT_EQ(Clicks, yield);
        EXPECT_EQ(Edit.text().size(), yield);
    }
    PostInput(); // behind the last frame of what plays
    Desktop.SetBusyPointer(false);
    ServeEvents();
    EXPECT_EQ(Clicks, 3);

    Desktop.SetBusyPointer(true); // and another run computes again
    PostInput();
    Desktop.SetBusyPointer(false);
    ServeEvents();
    EXPECT_EQ(Clicks, 3);
}

// The report is gone already as the loop comes to what was made before it.
TEST_F(InputGateTest, DropsWhatCameBeforeAFaultAndServesWhatComesBehindItsReport) {
    Desktop.SetBusyPointer(true);
    QMetaObject::invokeMethod(
        &Window,
        [this] {
            if (auto* box = QApplication::activeModalWidget()) box->close();
            Window.activateWindow();
            Edit.setFocus();
        },
        Qt::QueuedConnection);
    PostInput();
    Desktop.ReportRunTimeError(RunTimeError(DivisionByZero, "test", CustomaryText(DivisionByZero)));
    ServeEvents();
    EXPECT_EQ(Clicks, 0);
    EXPECT_EQ(Edit.text(), "");

    PostInput();
    Desktop.Yield(5); // the command has ended, though the pointer stays busy
    EXPECT_EQ(Clicks, 1);
    EXPECT_EQ(Edit.text(), "a");
}

TEST_F(InputGateTest, LetsAButtonUpThatWasPressedBefore) {
    PostMouse(Button, QEvent::MouseButtonPress);
    ServeEvents();
    EXPECT_TRUE(Button.isDown());
    Desktop.SetBusyPointer(true);
    PostMouse(Button, QEvent::MouseButtonRelease);
    Desktop.SetBusyPointer(false);
    ServeEvents();
    EXPECT_FALSE(Button.isDown());
    EXPECT_EQ(Clicks, 1);
}

// The release of a press that was dropped is no click either, and no drag.
TEST_F(InputGateTest, DropsTheReleaseOfADroppedPressAlsoBehindTheRun) {
    Desktop.SetBusyPointer(true);
    PostMouse(Button, QEvent::MouseButtonPress);
    Desktop.SetBusyPointer(false);
    ServeEvents();
    int releases = 0;
    class Watch : public QObject {
    public:
        explicit Watch(int& count) : count_(count) {}
        bool eventFilter(QObject*, QEvent* event) override {
            count_ += event->type() == QEvent::MouseButtonRelease ? 1 : 0;
            return false;
        }

    private:
        int& count_;
    } watch(releases);
    Button.installEventFilter(&watch);
    PostMouse(Button, QEvent::MouseButtonRelease);
    ServeEvents();
    EXPECT_EQ(releases, 0);
    PostClick(Button);
    ServeEvents();
    EXPECT_EQ(releases, 1);
    EXPECT_EQ(Clicks, 1);
}
