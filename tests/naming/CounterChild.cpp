// Takes counter names for ever, printing each one once it is handed out.
// The counter kill test ends it at random moments.
#include <QApplication>
#include <QLineEdit>
#include <cstdio>

#include "AppState.h"
#include "Counters.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    sidekin::App.GlblIniFile = QString::fromLocal8Bit(argv[1]);
    QLineEdit field;
    for (;;) {
        const QString name = sidekin::GetNextFileName(field, "Oil", "FAME");
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
    }
}
