#include "Manual.h"

#include <QBuffer>
#include <QDateTime>
#include <QGuiApplication>
#include <QHashSeed>
#include <QPageLayout>

#include <cstdio>
#include <fstream>
#include <iostream>

namespace {

/// Puts the date that SOURCE_DATE_EPOCH names in the place of the clock's, so that one source makes the same
/// bytes at any time. The date keeps its length, so that the places of all objects in the file hold.
void SetCreationDate(QByteArray& pdf) {
    bool named = false;
    const qint64 epoch = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&named);
    const QByteArray key = "/CreationDate (D:";
    const qsizetype at = pdf.indexOf(key);
    if (!named || at < 0) return;
    const QByteArray date =
        QDateTime::fromSecsSinceEpoch(epoch, Qt::UTC).toString("yyyyMMddHHmmss").toLatin1();
    pdf.replace(at + key.size(), date.size(), date);
}

} // namespace

/// Makes the manual of one piece from the pages of the user guide, and prints the sheet on which each begins:
///
///     vastrel-manual DOCS UserManual.pdf
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QHashSeed::setDeterministicGlobalSeed(); // the order of the fonts in the file follows hashes
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::cerr << "usage: vastrel-manual DOCS UserManual.pdf\n";
        return 2;
    }
    const std::vector<GuidePage> guide = ReadGuide(argv[1]);
    const QString whole = argv[2], part = whole + ".part";

    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&pdf);
        writer.setResolution(300);
        writer.setTitle("Vastrel User Manual");
        writer.setCreator("Vastrel " VASTREL_VERSION);
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                         QMarginsF(20, 18, 20, 12), QPageLayout::Millimeter));
        Manual manual(guide, VASTREL_VERSION, writer);
        manual.Print();
        for (size_t i = 0; i < guide.size(); ++i)
            std::cout << manual.SheetOfPage().at(i) << ' ' << guide[i].Path.toStdString() << '\n';
    }
    QByteArray bytes = pdf.data();
    SetCreationDate(bytes);
    // Beside its place first, so that a reader never opens half a manual.
    std::ofstream file(qPrintable(part), std::ios::binary);
    file.write(bytes.constData(), bytes.size());
    file.close();
    if (file.good() && std::rename(qPrintable(part), qPrintable(whole)) == 0) return 0;
    std::cerr << qPrintable(whole) << " cannot be written.\n";
    return 1;
}
