#include "desktop/frontend/MDIFrmMain.h"
#include "desktop/toolkit/QtPlatform.h"

#include <QApplication>
#include <QStyleFactory>

#include <iostream>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (QApplication::arguments().size() > 1) {
        std::cerr << "vastrel takes no arguments; vastrel-batch does the same work from the command line.\n";
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setApplicationName("Vastrel");
    QApplication::setDesktopFileName("org.vastrel.Vastrel");
    QApplication::setQuitOnLastWindowClosed(false); // the frame ends the process itself

    vastrel::QtPlatform desktop;
    vastrel::SetPlatform(&desktop);
    vastrel::MDIFrmMain frame;
    frame.ShowFrame();
    return QApplication::exec();
}
