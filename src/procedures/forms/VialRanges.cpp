#include "AppState.h"
#include "EntryFormTools.h"
#include "FrmOrq.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "LinkTextBox.h"
#include "MethodSelection.h"
#include "ProfileKeys.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/ProfileFile.h"

namespace sidekin {

bool replyIs(const QString& reply, double value) {
    return (reply.isEmpty() ? 0.0 : CDbl(reply)) == value;
}

QString IsVialNumberValid(std::int16_t tray, std::int16_t vial) {
    QString result;
    handled("IsVialNumberValid", [&] {
        LinkTextBox& link = *frmORQ().ddeDummy;
        DDEexecute(link, commands::CheckIfValidVial(tray, vial));
        DDERequest(link, commands::NumberVariable);
        result = link.text();
    });
    return result;
}

void Get4410VialRange(const QString& injector, QString& lowerVial, QString& upperVial) {
    const std::int16_t tray = injector == QLatin1String("Front") ? 1 : 2;
    if (replyIs(IsVialNumberValid(tray, 100), 1)) {
        lowerVial = QStringLiteral("1");
        upperVial = QStringLiteral("100");
        return;
    }
    const std::int16_t base = toInt16(tray * 100);
    lowerVial = Str(base + 1);
    for (int last : {8, 3}) {
        if (replyIs(IsVialNumberValid(tray, toInt16(base + last)), 1)) {
            upperVial = Str(base + last);
            return;
        }
    }
    if (replyIs(IsVialNumberValid(tray, toInt16(base + 1)), 1)) {
        upperVial = lowerVial;
        return;
    }
    lowerVial = QStringLiteral("0");
}

void GetDriverVialRange(const QString& injector, QString& lowerVial, QString& upperVial,
                        std::int16_t is4420) {
    const QString file = App.GlblInstDir + profile::DriverIniName;
    const QString& section = profile::DriverSection;
    const auto read = [&](const QString& key, int fallback) {
        // The program declares the call's result a signed 32-bit number: "-1" stays -1.
        return CStr(static_cast<std::int32_t>(GetPrivateProfileIntA(section, key, fallback, file)));
    };
    if (injector == QLatin1String("Front")) {
        lowerVial = read(profile::FrLowerVial, 0);
        upperVial = read(profile::FrUpperVial, 999);
        if (is4420 == 1 && replyIs(IsVialNumberValid(1, CInt(upperVial)), 0)) {
            LinkTextBox& link = *frmORQ().ddeDummy;
            DDEexecute(link, commands::FrontTowerCapacity);
            DDERequest(link, commands::NumberVariable);
            upperVial = CStr(CDbl(link.text()) + 100);
            lowerVial = QStringLiteral("101");
        }
        return;
    }
    lowerVial = read(profile::BkLowerVial, 0);
    upperVial = read(profile::BkUpperVial, 999);
    if (is4420 != 1) return;
    // The back tray: the probes win and the file is the fallback.
    for (std::int16_t upper : {150, 100}) {
        if (replyIs(IsVialNumberValid(2, upper), 1)) {
            lowerVial = QStringLiteral("1");
            upperVial = CStr(upper);
            return;
        }
    }
}

}  // namespace sidekin
