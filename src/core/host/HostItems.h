#pragma once

#include <QString>

// The items the host publishes, by the names both ends of the link use.
namespace sidekin::items {

inline const QString DataPath = QStringLiteral("_DATAPATH$");
inline const QString InstPath = QStringLiteral("_INSTPATH$");
inline const QString MethPath = QStringLiteral("_METHPATH$");
inline const QString SystemStatus = QStringLiteral("GUISystemStatus$");
inline const QString StatusTime = QStringLiteral("GUIStatusTime$");
inline const QString RunEngine = QStringLiteral("ORQ_RunEngineStatus$");
inline const QString ShowOrq = QStringLiteral("ShowORQ$");

}  // namespace sidekin::items
