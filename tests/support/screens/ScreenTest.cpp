#include "support/screens/ScreenTest.h"

#include "core/workspace/Workspace.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/ScreenChecks.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QStyleFactory>
#include <QTest>

namespace vastrel {

namespace {

/// One frame serves all tests of the process: the forms keep to the frame that they were shown in first.
MDIFrmMain& SharedFrame() {
    static auto* const frame = new MDIFrmMain;
    return *frame;
}

} // namespace

ScreenTest::ScreenTest() : Frame(SharedFrame()) {
    ws = Workspace{};
    Frame.ShowFrame();
    Frame.showNormal(); // the offscreen desktop is smaller than the frame
    const QStringList size = qEnvironmentVariable("VASTREL_SHOT_SIZE", "1280x860").split('x');
    Frame.resize(size[0].toInt(), size[1].toInt());
}

ScreenTest::~ScreenTest() {
    Frame.Unload();
}

void ScreenTest::Press(QWidget& screen, const char* button) {
    auto* control = The_<QAbstractButton>(screen, button);
    ASSERT_TRUE(control->isEnabled()) << button;
    if (auto* option = qobject_cast<OptionButton*>(control))
        option->click();
    else
        QTest::mouseClick(control, Qt::LeftButton);
}

void ScreenTest::Type(QWidget& screen, const char* edit, const std::string& text) {
    The_<QLineEdit>(screen, edit)->setText(QString::fromStdString(text));
}

void ScreenTest::Key(QWidget& screen, const char* control, Qt::Key key) {
    auto* focused = The_<QWidget>(screen, control);
    focused->setFocus();
    QTest::keyClick(focused, key);
}

std::string ScreenTest::Text(QWidget& screen, const char* control) {
    if (auto* label = screen.findChild<QLabel*>(control)) return label->text().toStdString();
    return The_<QLineEdit>(screen, control)->text().toStdString();
}

std::vector<std::string> ScreenTest::Rows(const ListBox* list) {
    std::vector<std::string> rows;
    for (int row = 0; row < list->ListCount(); ++row)
        rows.push_back(list->List(row));
    return rows;
}

bool ScreenTest::IsEnabled(QWidget& screen, const char* control) {
    return The_<QWidget>(screen, control)->isEnabled();
}

bool ScreenTest::IsShown(QWidget& screen, const char* control) {
    return !The_<QWidget>(screen, control)->isHidden();
}

void ScreenTest::Command(const char* entry) {
    ASSERT_TRUE(Frame.Entry(entry)->isEnabled()) << entry;
    Frame.Entry(entry)->trigger();
}

void ScreenTest::Shot(QWidget& widget, const std::string& name) {
    KeepShot(widget, name);
}

} // namespace vastrel

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
