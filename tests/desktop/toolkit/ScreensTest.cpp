#include "desktop/toolkit/Screens.h"

#include "core/platform/RunTimeError.h"
#include "desktop/toolkit/OnEvent.h"
#include "desktop/toolkit/Screen.h"
#include "support/screens/ScreenTest.h"

#include <QMdiArea>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace vastrel;

namespace {

/// A form of a line edit and two buttons that counts its load and unload steps.
class Form : public Screen {
public:
    explicit Form(Kind kind) : Screen(kind) {
        auto* layout = new QVBoxLayout(this);
        for (QWidget* part :
             {static_cast<QWidget*>(&Edit), static_cast<QWidget*>(&Plain), static_cast<QWidget*>(&Default)})
            layout->addWidget(part);
        resize(320, 200);
        Plain.setAutoDefault(false);
        Default.setDefault(true);
        OnEvent(&Plain, &QPushButton::clicked, this, [this] { Pressed += "plain "; });
        OnEvent(&Default, &QPushButton::clicked, this, [this] { Pressed += "default "; });
        TakeDesign();
    }

    using Screen::CloseByEscape;

    void Form_Load() override { ++Loads; }
    void Form_Unload() override {
        ++Unloads;
        if (AtUnload) AtUnload();
        if (Faulty) RaiseCustomary(DivisionByZero, "Form_Unload");
    }

    QLineEdit Edit{"design"};
    QPushButton Plain{"&Plain"}, Default{"&Default"};
    int Loads = 0, Unloads = 0;
    bool Faulty = false;
    std::function<void()> AtUnload;
    std::string Pressed;
};

/// The forms of these tests; a form stands for the life of the process.
Form& Child() {
    static auto* const form = new Form(Screen::Kind::Child);
    return *form;
}
Form& Window() {
    static auto* const form = new Form(Screen::Kind::Window);
    return *form;
}

class ScreensTest : public ScreenTest {
protected:
    ScreensTest() {
        for (auto* form : {&Child(), &Window()}) {
            form->Loads = form->Unloads = 0;
            form->Faulty = false;
            form->Pressed.clear();
        }
    }
    ~ScreensTest() override {
        for (auto* form : {&Child(), &Window()}) {
            form->Faulty = false;
            form->Unload();
        }
    }
};

} // namespace

TEST_F(ScreensTest, LoadsOnceAndUnloadsOnce) {
    Child().Unload();
    EXPECT_EQ(Child().Unloads, 0); // not loaded: nothing
    Child().Load();
    EXPECT_TRUE(Child().IsLoaded());
    EXPECT_FALSE(Child().isVisible()); // loaded is not shown
    Child().Show();
    Child().Show();
    EXPECT_EQ(Child().Loads, 1);
    EXPECT_TRUE(Child().isVisible());
    Child().Unload();
    Child().Unload();
    EXPECT_EQ(Child().Unloads, 1);
    EXPECT_FALSE(Child().IsLoaded());
    EXPECT_FALSE(Child().isVisible());
}

TEST_F(ScreensTest, PutsControlsBackAtTheNextLoadNotAtTheUnload) {
    Child().Show();
    Child().Edit.setText("typed");
    Child().Unload();
    EXPECT_EQ(Child().Edit.text(), "typed");
    Child().Show();
    EXPECT_EQ(Child().Edit.text(), "design");
}

TEST_F(ScreensTest, ComesBackAtItsDesignSizeAndPlace) {
    Child().Show();
    const QRect design = Child().Frame()->geometry();
    EXPECT_EQ(design.topLeft(), QPoint(0, 0));
    EXPECT_GE(design.width(), 320);
    Child().Frame()->setGeometry(50, 60, 700, 500);
    Child().Unload();
    Child().Show();
    EXPECT_EQ(Child().Frame()->geometry(), design);
    Child().Frame()->setWindowState(Qt::WindowMaximized);
    Child().Unload();
    Child().Show();
    EXPECT_FALSE(Child().Frame()->isMaximized());
    EXPECT_EQ(Child().Frame()->geometry(), design);
}

TEST_F(ScreensTest, UnloadsWhenItsWindowIsClosed) {
    for (auto* form : {&Child(), &Window()}) {
        form->Show();
        form->Frame()->close();
        EXPECT_FALSE(form->IsLoaded());
        EXPECT_EQ(form->Unloads, 1);
        form->Show();
        EXPECT_TRUE(form->isVisible());
    }
}

TEST_F(ScreensTest, IsUnloadedAllTheSameAfterAFaultOfItsUnloadStep) {
    Child().Show();
    Child().Faulty = true;
    EXPECT_THROW(Child().Unload(), RunTimeError); // by code: in the caller's boundary
    EXPECT_FALSE(Child().IsLoaded());
    EXPECT_FALSE(Child().isVisible());
    Child().Show();
    Script.ExpectRunTimeError(11);
    Child().Frame()->close();
    EXPECT_FALSE(Child().IsLoaded());
}

TEST_F(ScreensTest, CountsRunsAndUnloads) {
    Child().Show();
    const int run = Child().BeginRun();
    EXPECT_EQ(run, Child().Generation());
    Child().Unload();
    EXPECT_NE(run, Child().Generation());
    Child().Show();
    EXPECT_NE(run, Child().Generation());
}

TEST_F(ScreensTest, PressesTheDefaultButtonOrTheOneWithTheFocusOnEnter) {
    Child().Show();
    Child().Edit.setFocus();
    QTest::keyClick(&Child().Edit, Qt::Key_Return);
    EXPECT_EQ(Child().Pressed, "default ");
    Child().Plain.setFocus();
    QTest::keyClick(&Child().Plain, Qt::Key_Enter);
    EXPECT_EQ(Child().Pressed, "default plain ");
    Child().Default.setEnabled(false);
    Child().Edit.setFocus();
    QTest::keyClick(&Child().Edit, Qt::Key_Return);
    EXPECT_EQ(Child().Pressed, "default plain ");
}

TEST_F(ScreensTest, ClosesWindowsByEscapeAndChildScreensWhereTheySaySo) {
    Window().Show();
    QTest::keyClick(&Window().Edit, Qt::Key_Escape);
    EXPECT_FALSE(Window().IsLoaded());
    Child().Show();
    QTest::keyClick(&Child().Edit, Qt::Key_Escape);
    EXPECT_TRUE(Child().IsLoaded());
    Child().CloseByEscape();
    QTest::keyClick(&Child().Edit, Qt::Key_Escape);
    EXPECT_FALSE(Child().IsLoaded());
}

TEST_F(ScreensTest, WaitsUntilAModalScreenIsUnloaded) {
    bool modal = false;
    QTimer::singleShot(0, [&modal] {
        modal = Window().isModal();
        Window().Unload();
    });
    Window().ShowModal();
    EXPECT_TRUE(modal);
    EXPECT_EQ(Window().Loads, 1);
    EXPECT_EQ(Window().Unloads, 1);
    EXPECT_EQ(Window().windowModality(), Qt::NonModal);
}

TEST_F(ScreensTest, PlacesAScreenInTheRestOfTheFrame) {
    Child().Show();
    Child().PlaceInFrame(2, 3);
    const QSize rest = screens().FrameSize() - Child().Frame()->size();
    EXPECT_EQ(Child().Frame()->pos(), QPoint(rest.width() / 2, rest.height() / 3));
}

TEST_F(ScreensTest, UnloadsTheChildrenAndNotTheWindowsWithTheFrame) {
    Child().Show();
    Window().Show();
    screens().UnloadChildren();
    EXPECT_FALSE(Child().IsLoaded());
    EXPECT_TRUE(Window().IsLoaded());
}

TEST_F(ScreensTest, UnloadsTheChildrenWhereOneOfThemCallsForScreensThatWereNotMadeYet) {
    Child().Show();
    std::vector<std::unique_ptr<Form>> made;
    Child().AtUnload = [&made] {
        for (int i = 0; i < 100; ++i) // more than the list of the screens has room for
            made.push_back(std::make_unique<Form>(Screen::Kind::Window));
    };
    screens().UnloadChildren();
    Child().AtUnload = nullptr;
    EXPECT_FALSE(Child().IsLoaded());
    EXPECT_EQ(made.size(), 100U);
    for (auto& form : made)
        static_cast<void>(form.release()); // a form stands for the life of the process
}

TEST_F(ScreensTest, ScrollsToAChildThatDoesNotFit) {
    auto* area = Frame.findChild<QMdiArea*>("mdiArea");
    EXPECT_EQ(area->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    EXPECT_EQ(area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}
