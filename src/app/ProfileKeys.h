#pragma once

#include <QString>

// Section and key names of the configuration files, spelled as the files spell them.
namespace sidekin::profile {

// ORQ.INI in the instrument folder.
inline const QString OrqIniName = QStringLiteral("ORQ.INI");
inline const QString Operators = QStringLiteral("Operators");
inline const QString NumOperators = QStringLiteral("NumOperators");
inline const QString OperatorPrefix = QStringLiteral("Operator");  // Operator1, Operator2, ...
inline const QString System = QStringLiteral("System");
inline const QString DataSubDirMode = QStringLiteral("DataSubDirMode");
inline const QString DataSubDir = QStringLiteral("DataSubDir");
// Keys of a pair section "sample,method".
inline const QString DataFile = QStringLiteral("DataFile");
inline const QString DataFileNaming = QStringLiteral("DataFileNaming");
inline const QString PrefixCounter = QStringLiteral("PrefixCounter");

// injector.mth in a method's folder.
inline const QString InjectorFileName = QStringLiteral("injector.mth");
inline const QString Injector = QStringLiteral("Injector");
inline const QString MethodInjectors = QStringLiteral("_MethodInjectors");

// zentrovar.ini, the host's file: one section "PCS,<instrument>" per instrument.
inline const QString HostIniFile = QStringLiteral("zentrovar.ini");
inline const QString PcsPrefix = QStringLiteral("PCS,");
inline const QString DdeOnline = QStringLiteral("_DDEOnLine");
inline const QString DdeOffline = QStringLiteral("_DDEOffLine");

// The value GetPvtProfileStr answers for a missing or empty key.
inline const QString Missing = QStringLiteral("-1");

}  // namespace sidekin::profile
