#include "StatusDisplay.h"

#include <QLabel>

#include "AppState.h"
#include "ColourTable.h"
#include "FontCharset.h"
#include "FrmOrq.h"
#include "LabelColours.h"
#include "Profile.h"
#include "StatusTranslation.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

const QString Bar = QStringLiteral("|");

// Colours the label if the name is known; false ends the caller's update.
bool colourLabel(QLabel& label, const QString& colourName) {
    if (colourName.isEmpty()) return false;
    QString background;
    QString text;
    if (CS2VbColor(colourName, background, text) != 0) return false;
    setLabelColours(label, CLng(background), CLng(text));
    return true;
}

}  // namespace

void UpdateSystemStatus(const QString& status) {
    handled("UpdateSystemStatus", [&] {
        FrmOrq& form = frmORQ();
        const int charset = readFontCharset();
        applyFontCharset(*form.lblSysStatusReady, charset);
        applyFontCharset(*form.lblSysStatusMethod, charset);

        if (!colourLabel(*form.lblSysStatusReady, GetParameter(status, 3, Bar))) return;
        const QString ready = GetParameter(status, 4, Bar);
        if (ready.isEmpty()) return;
        form.lblSysStatusReady->setText(Trim(LocalizeSysStatusReady(ready)));

        if (!colourLabel(*form.lblSysStatusMethod, GetParameter(status, 5, Bar))) return;
        const QString method = GetParameter(status, 6, Bar);
        form.lblSysStatusMethod->setText(Trim(LocalizeSysStatusMethod(method)));

        App.GlblLastSysStatus = ready;
        App.GlblLastMethodStatus = method;
    });
}

void UpdateStatusTime(const QString& status) {
    handled("UpdateStatusTime", [&] {
        QLabel& label = *frmORQ().lblStatusTime;
        applyFontCharset(label, readFontCharset());

        const QString measure = GetParameter(status, 1, Bar);
        if (measure.isEmpty()) return;
        const QString description = LocalizeStatusDescript(measure);
        const QString value = GetParameter(status, 2, Bar);
        if (value.isEmpty()) return;
        const QString unit = LocalizeStatusTimeUnits(GetParameter(status, 3, Bar));
        label.setText(Trim(description + QStringLiteral(": ") + value + u' ' + unit));
    });
}

}  // namespace sidekin
