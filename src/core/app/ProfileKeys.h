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
// An operator's section lists samples, a sample's section lists methods.
inline const QString NumSamples = QStringLiteral("NumSamples");
inline const QString SamplePrefix = QStringLiteral("Sample");  // Sample1, Sample2, ...
inline const QString NumMethods = QStringLiteral("NumMethods");
inline const QString MethodPrefix = QStringLiteral("Method");  // Method1, Method2, ...
// Keys of a pair section "sample,method".
inline const QString DataFile = QStringLiteral("DataFile");
inline const QString DataFileNaming = QStringLiteral("DataFileNaming");
inline const QString PrefixCounter = QStringLiteral("PrefixCounter");
inline const QString Manual = QStringLiteral("Manual");
inline const QString SampleISTDEnable = QStringLiteral("SampleISTDEnable");
inline const QString InfoLine = QStringLiteral("InfoLine");
inline const QString VialNumDefault = QStringLiteral("VialNumDefault");
inline const QString InjVialDefault = QStringLiteral("InjVialDefault");
inline const QString InstructPath = QStringLiteral("InstructPath");
inline const QString InstructFile = QStringLiteral("InstructFile");
// The text shown by Instructions while the table is empty, in the program folder.
inline const QString OrqInitialFile = QStringLiteral("ORQInitial.txt");

// injector.mth in a method's folder.
inline const QString InjectorFileName = QStringLiteral("injector.mth");
inline const QString Injector = QStringLiteral("Injector");
inline const QString MethodInjectors = QStringLiteral("_MethodInjectors");
inline const QString InjectionSource = QStringLiteral("_InjectionSource$");
// A method's folder in the host's method folder: the name and this.
inline const QString MethodFolderSuffix = QStringLiteral(".M\\");

// ZE44QK00.INI in the instrument folder, the sampler driver's file.
inline const QString DriverIniName = QStringLiteral("ZE44QK00.INI");
inline const QString DriverSection = QStringLiteral("ZE44QK00");
inline const QString FrLowerVial = QStringLiteral("FrLowerVial");
inline const QString FrUpperVial = QStringLiteral("FrUpperVial");
inline const QString BkLowerVial = QStringLiteral("BkLowerVial");
inline const QString BkUpperVial = QStringLiteral("BkUpperVial");

// zentrovar.ini, the host's file: one section "PCS,<instrument>" per instrument.
inline const QString HostIniFile = QStringLiteral("zentrovar.ini");
inline const QString PcsPrefix = QStringLiteral("PCS,");
inline const QString DdeOnline = QStringLiteral("_DDEOnLine");
inline const QString DdeOffline = QStringLiteral("_DDEOffLine");

// The value GetPvtProfileStr answers for a missing or empty key.
inline const QString Missing = QStringLiteral("-1");

}  // namespace sidekin::profile
