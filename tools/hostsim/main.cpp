#include <QCoreApplication>

#include "SimulatorApp.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zentrovar-hostsim"));
    sidekin::hostsim::SimulatorApp simulator;
    if (const auto status = simulator.start(QCoreApplication::arguments())) return *status;
    return QCoreApplication::exec();
}
