#include "Profile.h"

#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/ProfileFile.h"

namespace sidekin {

namespace {

QString readKey(const QString& section, const QString& key, const QString& file) {
    QString buffer;
    const int count = GetPrivateProfileStringA(section, key, QString(), buffer, 256, file);
    return count > 0 ? buffer.left(count) : QStringLiteral("-1");
}

}  // namespace

QString GetPvtProfileStr(const QString& section, const QString& key, const QString& file) {
    QString result;
    handled("GetPvtProfileStr", [&] { result = readKey(section, key, file); });
    return result;
}

QString GetProfileStr(const QString& section, const QString& key) {
    QString result;
    handled("GetProfileStr", [&] { result = readKey(section, key, profile::HostIniFile); });
    return result;
}

QString GetParameter(const QString& text, std::int16_t index, const QString& separator) {
    QString result;
    handled("GetParameter", [&] {
        QString s = text;
        for (int i = 1; i < index; ++i) {
            const int p = InStr(s, separator);
            s = Trim(Mid(s, p + separator.size()));
            if (p == 0) return;
        }
        const int p = InStr(s, separator);
        if (s.isEmpty() || p == 1) return;
        result = p > 1 ? Left(s, p - 1) : s;
    });
    return result;
}

}  // namespace sidekin
