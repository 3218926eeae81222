#include <QApplication>
#include <QCoreApplication>
#include <cstring>
#include <memory>

#include "SimulatorApp.h"
#include "SimulatorWindow.h"

namespace {

// A window only when asked for none of help and --no-window, and a display is there.
bool wantsWindow(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        for (const char* headless : {"--no-window", "--help", "-h", "-?", "--help-all"})
            if (std::strcmp(argv[i], headless) == 0) return false;
    }
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
           !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

int run(sidekin::hostsim::SimulatorApp& simulator) {
    if (const auto status = simulator.start(QCoreApplication::arguments())) return *status;
    return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace sidekin::hostsim;
    if (!wantsWindow(argc, argv)) {
        QCoreApplication app(argc, argv);
        QCoreApplication::setApplicationName(QStringLiteral("zentrovar-hostsim"));
        SimulatorApp simulator;
        return run(simulator);
    }
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zentrovar-hostsim"));
    SimulatorApp simulator;
    std::unique_ptr<SimulatorWindow> window;  // goes before the engine it shows
    simulator.setWindowMaker([&window](HostSimulator& engine, FrameLog& log, int instrument) {
        window = std::make_unique<SimulatorWindow>(engine, log, instrument);
        window->show();
        return window->hostHandle();
    });
    return run(simulator);
}
