#include "G11n.h"

#include "AppState.h"
#include "Nls.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

void NLSInitialization() {
    handled("NLSInitialization", [] {
        const std::int16_t task = NLSTaskInit();
        const std::int16_t table = NLSInit(App.GlblNlsHandle);
        if (task == 0 || table == 0)
            dialogs().messageBox(BoxStyle::Critical,
                                 QStringLiteral("Error in loading NLSLibraries"),
                                 QStringLiteral("Error"));
    });
}

QString GetResourceString(std::int32_t id) {
    QString result;
    handled("GetResourceString", [&] {
        QString working = App.GlblNlsBuffer.leftJustified(NlsBufferLength, QLatin1Char(' '), true);
        result = LoadString(App.GlblNlsHandle, id, working, NlsBufferLength);
        App.GlblNlsBuffer = working.leftJustified(NlsBufferLength, QLatin1Char(' '), true);
    });
    return result;
}

QString LoadString(std::int32_t handle, std::int32_t id, QString& buffer, std::int32_t size) {
    QString result;
    handled("LoadString", [&] {
        // The library writes up to size characters in place; give it the room.
        if (buffer.size() < size) buffer = buffer.leftJustified(size, QLatin1Char(' '));
        const std::int32_t written =
            NLSLoadStringW(handle, id, reinterpret_cast<char16_t*>(buffer.data()), size);
        buffer = Left(buffer, toInt16(written));
        result = buffer;
    });
    return result;
}

QString ResourceWithTokens(std::int32_t id, const QString& token, const QString& value) {
    QString text = GetResourceString(id);
    if (!token.isEmpty()) text.replace(token, value);
    return text;
}

}  // namespace sidekin
