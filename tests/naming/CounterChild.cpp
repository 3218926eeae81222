// Takes counter names for ever, printing each one once it is handed out.
// The counter kill test ends it at random moments.
#include <QCoreApplication>
#include <cstdio>

#include "AppState.h"
#include "Counters.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    sidekin::App.GlblIniFile = QString::fromLocal8Bit(argv[1]);
    for (;;) {
        const QString name = sidekin::GetNextFileName(QString(), "Oil", "FAME");
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
    }
}
