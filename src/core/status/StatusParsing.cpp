#include "StatusParsing.h"

#include "ColourTable.h"
#include "Profile.h"
#include "StatusTranslation.h"
#include "platform/Conversions.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

const QString Bar = QStringLiteral("|");

std::optional<LabelColours> coloursOf(const QString& colourName) {
    if (colourName.isEmpty()) return std::nullopt;
    QString background;
    QString text;
    if (CS2VbColor(colourName, background, text) != 0) return std::nullopt;
    return LabelColours{CLng(background), CLng(text)};
}

}  // namespace

SystemStatusUpdate parseSystemStatus(const QString& status) {
    SystemStatusUpdate update;
    update.readyColours = coloursOf(GetParameter(status, 3, Bar));
    if (!update.readyColours) return update;
    const QString ready = GetParameter(status, 4, Bar);
    if (ready.isEmpty()) return update;
    update.readyText = Trim(LocalizeSysStatusReady(ready));

    update.methodColours = coloursOf(GetParameter(status, 5, Bar));
    if (!update.methodColours) return update;
    const QString method = GetParameter(status, 6, Bar);
    update.methodText = Trim(LocalizeSysStatusMethod(method));
    update.complete = true;
    update.hostReady = ready;
    update.hostMethod = method;
    return update;
}

std::optional<QString> statusTimeText(const QString& status) {
    const QString measure = GetParameter(status, 1, Bar);
    if (measure.isEmpty()) return std::nullopt;
    const QString description = LocalizeStatusDescript(measure);
    const QString value = GetParameter(status, 2, Bar);
    if (value.isEmpty()) return std::nullopt;
    const QString unit = LocalizeStatusTimeUnits(GetParameter(status, 3, Bar));
    return Trim(description + QStringLiteral(": ") + value + u' ' + unit);
}

}  // namespace sidekin
