#include "Manual.h"

#include <QGuiApplication>
#include <QPageLayout>

#include <cstdio>
#include <iostream>

/// Makes the manual of one piece from the pages of the user guide, and prints the sheet on which each begins:
///
///     vastrel-manual DOCS UserManual.pdf
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::cerr << "usage: vastrel-manual DOCS UserManual.pdf\n";
        return 2;
    }
    const std::vector<GuidePage> guide = ReadGuide(argv[1]);
    const QString whole = argv[2], part = whole + ".part";

    {
        QPdfWriter writer(part);
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
    // Beside its place first, so that a reader never opens half a manual.
    if (std::rename(qPrintable(part), qPrintable(whole)) == 0) return 0;
    std::cerr << qPrintable(whole) << " cannot be written.\n";
    return 1;
}
