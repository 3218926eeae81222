#pragma once

#include <QString>
#include <cstdint>
#include <optional>

// Every text the program sends to the host, and every host item and variable
// it reads. The host runs these in its own command language: letters, blanks
// and quotes are a contract. Nothing inside an argument is escaped.
namespace sidekin::commands {

QString SetRunTableVars(const QString& operatorName, const QString& subDirectory);

struct SingleRun {
    QString method;
    std::int16_t injector = 1;
    QString sampleId;
    std::optional<double> vial;  // nullopt leaves the vial position out
    QString dataFile;
    QString sampleAmount;
    QString istdAmount;
    QString sampleInfo;
};
QString PrepareSingleRun(const SingleRun& run);

QString HostStart(std::int16_t row);
QString LoadMethod(const QString& method);

// Questions: an assignment to a scratch variable, then a request of it.
QString CheckIfValidVial(std::int16_t injector, std::int32_t vial);
QString InjectorVialRange(std::int16_t injector);
inline const QString FrontTowerCapacity =
    QStringLiteral(R"(ddeORQ = RCGetResourceVal("GC1","config",  "ALS.Fr.Capacity"))");
inline const QString TestFor4410 = QStringLiteral(R"(ddeORQ = TestForDevice("4410", 0, ""))");
inline const QString TestFor4420 = QStringLiteral(R"(ddeORQ = MyTestForDevice("RC4420", 0, ""))");
inline const QString TestFor4430 = QStringLiteral(R"(ddeORQ = MyTestForDevice("RC4430", 0, ""))");
inline const QString NumberVariable = QStringLiteral("ddeORQ");
inline const QString TextVariable = QStringLiteral("ddeORQ$");

// The name check: the host tries to create the file, then closes and deletes it.
QString NameCheckOpen(const QString& folder, const QString& name);
inline const QString NameCheckVariable = QStringLiteral("ORQNameCheck");
inline const QString NameCheckClose = QStringLiteral("Close #3");
QString NameCheckDelete(const QString& folder, const QString& name);

}  // namespace sidekin::commands
