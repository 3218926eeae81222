// The floor of startup_bench: a Qt Widgets program that does nothing but show a
// window with one label. Started as the program is, it notes its first paint in
// $SIDEKIN_STARTUP_REPORT in the same way, then runs until it is ended.
#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <chrono>

#include "StartupReport.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QWidget window;
    window.setObjectName(QStringLiteral("bareWindow"));
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QLabel(QStringLiteral("Ready"), &window));
    const QString report = qEnvironmentVariable("SIDEKIN_STARTUP_REPORT");
    if (!report.isEmpty())
        sidekin::reportFirstPaint(QStringLiteral("bareWindow"), report,
                                  [] { return std::chrono::system_clock::time_point{}; });
    window.show();
    return app.exec();
}
