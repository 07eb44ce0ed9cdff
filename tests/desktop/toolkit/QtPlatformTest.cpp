#include "desktop/toolkit/QtPlatform.h"

#include "core/platform/RunTimeError.h"
#include "support/TemporaryFolder.h"
#include "support/screens/ScreenChecks.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

/// Waits for the dialog that a call brings up, hands it over, and closes it where that did not.
template <typename Dialog>
void WhenShown(const std::function<void(Dialog&)>& look) {
    QTimer::singleShot(0, [look] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        look(*dialog);
        if (dialog->isVisible()) dialog->close();
    });
}

constexpr const char* TextFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";

} // namespace

TEST(QtPlatformTest, ShowsMessagesWithTheirTitleAndIcon) {
    struct Row {
        Message Shown;
        QMessageBox::Icon Icon;
    };
    const Row rows[] = {
        {{"Bandwidth should be numerical."}, QMessageBox::Critical},
        {{"See <b>here</b> ", "Manual Info.", Message::Icon::Information}, QMessageBox::Information},
        {{"Done.", "Vastrel", Message::Icon::Plain}, QMessageBox::NoIcon}};
    QtPlatform desktop;
    int shown = 0;
    for (const auto& [message, icon] : rows) {
        WhenShown<QMessageBox>([&](QMessageBox& box) {
            ++shown;
            EXPECT_EQ(box.text().toStdString(), message.Text);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.windowTitle().toStdString(), message.Title);
            EXPECT_EQ(box.icon(), icon);
            KeepShot(box, "message-" + std::to_string(shown));
        });
        desktop.ShowMessage(message);
    }
    EXPECT_EQ(shown, 3);
}

TEST(QtPlatformTest, ShowsARunTimeErrorAsAReport) {
    QtPlatform desktop;
    QString text;
    WhenShown<QMessageBox>([&](QMessageBox& box) {
        text = box.text();
        KeepShot(box, "message-run-time-error");
    });
    desktop.ReportRunTimeError(RunTimeError(DivisionByZero, "test", CustomaryText(DivisionByZero)));
    EXPECT_EQ(text.toStdString(), "Run-time error '11':\n\nDivision by zero");
}

TEST(QtPlatformTest, GivesTheChosenFileAndGoesToItsFolder) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("points.txt", "A,1,2,3,4\n");
    QtPlatform desktop;
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"Text Files (*.txt)", "All Files (*)"}));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        dialog.selectFile(QString::fromStdString(path));
        static_cast<QDialog&>(dialog).accept();
    });
    const FileChoice choice = desktop.ChooseFile({FileQuestion::Kind::Open, TextFilter, ""});
    EXPECT_EQ(choice.Path, path);
    EXPECT_EQ(choice.Title, "points.txt");
    EXPECT_FALSE(choice.Cancelled);
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), folder.Path()));
}

TEST(QtPlatformTest, GivesNothingAfterACancel) {
    QtPlatform desktop;
    WhenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    const FileChoice choice = desktop.ChooseFile({FileQuestion::Kind::Open, TextFilter, ""});
    EXPECT_EQ(choice.Path, "");
    EXPECT_EQ(choice.Title, "");
    EXPECT_TRUE(choice.Cancelled);
}

TEST(QtPlatformTest, AddsTheExtensionOfTheFilterInForce) {
    const TemporaryFolder folder;
    const FileQuestion question{FileQuestion::Kind::Save,
                                "PNG picture (*.png)|*.png|PDF document (*.pdf)|*.pdf", "png"};
    QtPlatform desktop;
    const auto chosen = [&](const QString& filter) {
        WhenShown<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
            if (!filter.isEmpty()) {
                dialog.selectNameFilter(filter);
                emit dialog.filterSelected(filter);
            }
            dialog.setDirectory(QString::fromStdString(folder.Path()));
            dialog.selectFile("chart");
            static_cast<QDialog&>(dialog).accept();
        });
        return desktop.ChooseFile(question).Title;
    };
    EXPECT_EQ(chosen(""), "chart.png");
    EXPECT_EQ(chosen("PDF document (*.pdf)"), "chart.pdf");
}

TEST(QtPlatformTest, AddsTheExtensionOfTheFirstFilterWhereNoneIsAskedFor) {
    const TemporaryFolder folder;
    QtPlatform desktop;
    const auto saved = [&](const std::string& filter, const QString& name) {
        WhenShown<QFileDialog>([&](QFileDialog& dialog) {
            dialog.setDirectory(QString::fromStdString(folder.Path()));
            dialog.selectFile(name);
            static_cast<QDialog&>(dialog).accept();
        });
        return desktop.ChooseFile({FileQuestion::Kind::Save, filter, ""}).Title;
    };
    EXPECT_EQ(saved("Text File (*.txt)|*.txt", "report"), "report.txt");
    EXPECT_EQ(saved("Text File (*.txt)|*.txt", "report.dat"), "report.dat");
    EXPECT_EQ(saved(TextFilter, "centroids"), "centroids.txt");
    EXPECT_EQ(saved("All Files (*.*)|*.*|", "any"), "any");
}

TEST(QtPlatformTest, KeepsNoSettingsOfTheFileDialog) {
    QtPlatform desktop;
    const QString place = QSettings(QSettings::UserScope, "QtProject").fileName();
    EXPECT_FALSE(QSettings(QSettings::UserScope, "QtProject").isWritable()) << place.toStdString();
    WhenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    desktop.ChooseFile({FileQuestion::Kind::Open, TextFilter, ""});
    EXPECT_FALSE(QFile::exists(place));
}

TEST(QtPlatformTest, SetsAndResetsTheBusyPointerAsOneState) {
    QtPlatform desktop;
    desktop.SetBusyPointer(true);
    desktop.SetBusyPointer(true);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
    desktop.SetBusyPointer(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    desktop.SetBusyPointer(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(QtPlatformTest, AddsTheExtensionAskedForWhereANameHasNone) {
    const TemporaryFolder folder;
    QtPlatform desktop;
    for (const auto& [name, title] : {std::pair{"saved", "saved.csm"}, std::pair{"saved.x", "saved.x"}}) {
        WhenShown<QFileDialog>([&, name = name](QFileDialog& dialog) {
            dialog.setDirectory(QString::fromStdString(folder.Path()));
            dialog.selectFile(name);
            static_cast<QDialog&>(dialog).accept();
        });
        const FileChoice choice =
            desktop.ChooseFile({FileQuestion::Kind::Save, "cusum files (*.csm)|*.csm", ".csm"});
        EXPECT_EQ(choice.Title, title);
        EXPECT_EQ(choice.Path, folder / title);
    }
}

TEST(QtPlatformTest, ServesEventsInEveryYieldAndPacesThem) {
    QtPlatform desktop;
    int served = 0;
    QMetaObject::invokeMethod(
        qApp, [&served] { ++served; }, Qt::QueuedConnection);
    desktop.Yield(1);
    EXPECT_EQ(served, 1);
    const auto start = std::chrono::steady_clock::now();
    desktop.Yield(3000); // 10 microseconds each
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST(QtPlatformTest, EndsTheProcessAtOnce) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(QtPlatform().EndProcess(3), testing::ExitedWithCode(3), "");
}

TEST(QtPlatformTest, FindsThePicturesOfTheProgram) {
    const QDir folder(QString::fromStdString(QtPlatform().ProgramFolder()));
    EXPECT_TRUE(folder.exists("BitMaps/about.jpg"));
}
