#include "Counters.h"

#include "AppState.h"
#include "G11n.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/ProfileFile.h"

namespace sidekin {

namespace {

QString pairSection(const QString& sample, const QString& method) {
    return sample + QLatin1Char(',') + method;
}

QString storedDataFile(const QString& section) {
    const QString value = GetPvtProfileStr(section, profile::DataFile, App.GlblIniFile);
    return value == profile::Missing ? QString() : value;
}

struct Counter {
    QString prefix;
    std::int16_t count = 0;
    QString name;
};

Counter readCounter(const QString& section) {
    const QString value = storedDataFile(section);
    Counter c;
    c.prefix = Trim(GetParameter(value, 1, QStringLiteral(",")));
    c.count = CInt(Val(GetParameter(value, 2, QStringLiteral(",")).remove(u' ')));
    const int room = std::min(15 - static_cast<int>(c.prefix.size()), 6);
    c.name = c.prefix + FormatZeros(c.count, Left(QStringLiteral("000000"), room));
    return c;
}

}  // namespace

QString PeekNextFileName(const QString& sample, const QString& method) {
    QString result;
    handled("PeekNextFileName", [&] { result = readCounter(pairSection(sample, method)).name; });
    return result;
}

QString GetNextFileName(const QString& txtDataFile, const QString& sample, const QString& method) {
    QString result;
    handled("GetNextFileName", [&] {
        const QString section = pairSection(sample, method);
        if (GetPvtProfileStr(section, profile::DataFileNaming, App.GlblIniFile) !=
            profile::PrefixCounter) {
            result = txtDataFile;
            return;
        }
        const Counter counter = readCounter(section);
        result = counter.name;
        // The count is stored before the name leaves: a name handed out is never given again.
        const QString next = counter.prefix + QLatin1Char(',') + CStr(add16(counter.count, 1));
        if (WritePrivateProfileStringA(section, profile::DataFile, next, App.GlblIniFile) == 0)
            dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(17222),
                                 GetResourceString(17267));
    });
    return result;
}

std::int32_t GetDataFileCountMax(const QString& sample, const QString& method) {
    std::int32_t result = 0;
    handled("GetDataFileCountMax", [&] {
        const QString prefix =
            GetParameter(storedDataFile(pairSection(sample, method)), 1, QStringLiteral(","));
        const QString nines = Right(QStringLiteral("999999"), 15 - static_cast<int>(prefix.size()));
        result = CLng(Val(nines)) + 1;
    });
    return result;
}

}  // namespace sidekin
