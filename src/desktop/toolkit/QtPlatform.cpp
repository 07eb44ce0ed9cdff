#include "desktop/toolkit/QtPlatform.h"

#include "core/platform/RunTimeError.h"
#include "desktop/toolkit/InputGate.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace vastrel {

namespace {

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QMessageBox::Icon IconOf(Message::Icon symbol) {
    switch (symbol) {
    case Message::Icon::Stop:
        return QMessageBox::Critical;
    case Message::Icon::Information:
        return QMessageBox::Information;
    case Message::Icon::Plain:
        break;
    }
    return QMessageBox::NoIcon;
}

/// The filter in the toolkit's form. The pattern for every file is "*" here: names without a dot count too.
QString DialogFilter(const std::string& filter) {
    const QStringList pieces = Text(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        const QString caption = pieces[i].section(" (", 0, 0);
        filters << caption + " (" + (pieces[i + 1] == "*.*" ? "*" : pieces[i + 1]) + ")";
    }
    return filters.join(";;");
}

/// The extension of a filter in the toolkit's form: "PNG picture (*.png)" has "png", that for every file
/// none.
QString SuffixOf(const QString& filter) {
    return filter.section("*.", 1).section(')', 0, 0);
}

/// What a name that is typed without an extension gets: the extension asked for, or else the filter's first.
QString DefaultSuffix(const FileQuestion& question) {
    if (!question.DefaultExtension.empty()) return Text(question.DefaultExtension);
    return SuffixOf(DialogFilter(question.Filter).section(";;", 0, 0));
}

} // namespace

QtPlatform::QtPlatform() : gate_(std::make_unique<InputGate>()) {
    // The toolkit's file dialog would write its history and sizes there, without being asked.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

QtPlatform::~QtPlatform() = default;

void QtPlatform::DropInput() {
    gate_->DropPending();
}

void QtPlatform::ShowMessage(const Message& message) {
    if (computes_) DropInput();
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(Text(message.Title));
    box.setText(Text(message.Text));
    box.setTextFormat(Qt::PlainText);
    box.setIcon(IconOf(message.Symbol));
    box.exec();
}

FileChoice QtPlatform::ChooseFile(const FileQuestion& question) {
    const bool open = question.Way == FileQuestion::Kind::Open;
    QFileDialog dialog(QApplication::activeWindow(), open ? "Open" : "Save As", QDir::currentPath(),
                       DialogFilter(question.Filter));
    dialog.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (!open) {
        dialog.setDefaultSuffix(DefaultSuffix(question));
        QObject::connect(&dialog, &QFileDialog::filterSelected,
                         [&dialog](const QString& filter) { dialog.setDefaultSuffix(SuffixOf(filter)); });
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {"", "", true};
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    QDir::setCurrent(chosen.absolutePath());
    return {chosen.absoluteFilePath().toStdString(), chosen.fileName().toStdString(), false};
}

void QtPlatform::SetBusyPointer(bool busy) {
    if (!busy && computes_) DropInput();
    computes_ = busy;
    if (busy == busy_) return;
    busy_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::BusyCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtPlatform::Yield(long count) {
    // Events are served about once a millisecond of yields: more often would only burn the processor.
    constexpr long together = 100;
    if (computes_) gate_->ServeWithoutInput();
    computes_ = false;
    const auto start = std::chrono::steady_clock::now();
    for (long done = 0; done < count;) {
        QApplication::processEvents();
        done = count < together ? done + 1 : std::min(count, done + together);
        std::this_thread::sleep_until(start + done * YieldTime);
    }
}

void QtPlatform::ReportRunTimeError(const RunTimeError& error) {
    Message report;
    report.Text = ReportText(error);
    report.Title = "Vastrel";
    ShowMessage(report);
    computes_ = false; // the command has ended, the pointer stays
}

void QtPlatform::EndProcess(int status) {
    std::fflush(nullptr);
    std::_Exit(status); // also from inside a yield, where no stack is left to unwind in peace
}

std::string QtPlatform::ProgramFolder() {
    const QDir program(QApplication::applicationDirPath());
    for (const char* place : {".", "..", "../share/vastrel", "../../..", "../.."})
        if (QDir(program.filePath(place)).exists("BitMaps")) return program.filePath(place).toStdString();
    return program.path().toStdString();
}

} // namespace vastrel
