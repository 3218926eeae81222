#include "Main.h"

#include <QApplication>
#include <QStringList>

#include "StartupReport.h"
#include "TableKeepingEvents.h"
#include "UnloadForms.h"
#include "platform/PlatformWindowSystem.h"
#include "platform/QtOperatorDialogs.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // The host owns the window's life: a hidden main window keeps the program running.
    app.setQuitOnLastWindowClosed(false);
    const sidekin::FormsLifetime forms;

    sidekin::QtOperatorDialogs dialogs;
    sidekin::setDialogs(&dialogs);
    auto windows = sidekin::makePlatformWindowSystem();
    sidekin::setWindowSystem(windows.get());

    // The host hands over one line; a shell may have split it at blanks.
    const QString commandLine = app.arguments().mid(1).join(QLatin1Char(' '));
    const QString report = qEnvironmentVariable("SIDEKIN_STARTUP_REPORT");
    if (!report.isEmpty())
        sidekin::reportFirstPaint(QStringLiteral("frmORQ"), report,
                                  [&dialogs] { return dialogs.firstBoxShown(); });
    sidekin::Main(commandLine);
    // The run table's journal, menu and notices, after the legacy start-up.
    sidekin::installTableKeeping();
    return app.exec();
}
