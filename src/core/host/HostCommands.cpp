#include "HostCommands.h"

#include <QStringList>

#include "platform/LegacyText.h"

namespace sidekin::commands {

namespace {

const QChar Q = u'"';
const QString Separator = QStringLiteral(", ");

QString quoted(const QString& text) { return Q + text + Q; }

}  // namespace

QString SetRunTableVars(const QString& operatorName, const QString& subDirectory) {
    return QStringLiteral("ORQ_SetRunTableVars ") + quoted(operatorName) + Separator +
           quoted(subDirectory);
}

QString PrepareSingleRun(const SingleRun& run) {
    const QString vial = run.vial ? CStr(*run.vial) : QString();
    const QStringList arguments{
        quoted(run.method),   CStr(run.injector),       quoted(run.sampleId),   vial,
        quoted(run.dataFile), quoted(run.sampleAmount), quoted(run.istdAmount), quoted(QString()),
        quoted(QString()),    quoted(run.sampleInfo)};
    return QStringLiteral("ORQ_PrepareSingleRun ") + arguments.join(Separator);
}

QString HostStart(std::int16_t row) { return QStringLiteral("ORQ_HOST_START ") + CStr(row); }

QString LoadMethod(const QString& method) { return QStringLiteral("ORQ_LoadMethod ") + method; }

QString CheckIfValidVial(std::int16_t injector, std::int32_t vial) {
    return QStringLiteral("ddeORQ = ORQCheckIfValidVial(") + Str(injector) + QLatin1Char(',') +
           Str(vial) + QLatin1Char(')');
}

QString InjectorVialRange(std::int16_t injector) {
    return QStringLiteral("ddeORQ$ = ORQGetInjectorVialRange$(") + CStr(injector) +
           QLatin1Char(')');
}

QString NameCheckOpen(const QString& folder, const QString& name) {
    return QStringLiteral("ORQNameCheck=0;On Error ORQNameCheck=1;Open ") + quoted(folder + name) +
           QStringLiteral(" For Output As #3; On Error");
}

QString NameCheckDelete(const QString& folder, const QString& name) {
    return QStringLiteral("Delete ") + quoted(folder + name) + QStringLiteral(",DontAsk");
}

}  // namespace sidekin::commands
