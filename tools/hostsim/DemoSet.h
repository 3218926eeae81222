#pragma once

#include <QString>
#include <QStringList>

#include "HostSimulator.h"

namespace sidekin::hostsim {

// The folder the demo set goes to when no root is given.
QString defaultDemoRoot();

// The host's folders under a demo root.
Folders demoFolders(const QString& root);

// Copies the bundled instrument and method files below root and makes the data
// folder. Files already there are kept (ORQ.INI holds counters) unless reset.
bool installDemoSet(const QString& root, bool reset, QString* error);

// The service names of [PCS,1] to [PCS,4] (_DDEOnLine, then _DDEOffLine), once each.
QStringList servicesFromIni(const QString& file);

// Sets _DDEOnLine and _DDEOffLine of [PCS,instrument], keeping the rest of the file.
bool writeServicesIni(const QString& file, int instrument, const QString& online,
                      const QString& offline, QString* error);

}  // namespace sidekin::hostsim
