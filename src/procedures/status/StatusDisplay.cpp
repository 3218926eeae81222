#include "StatusDisplay.h"

#include <QLabel>

#include "AppState.h"
#include "FontCharset.h"
#include "FrmOrq.h"
#include "LabelColours.h"
#include "StatusParsing.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

void UpdateSystemStatus(const QString& status) {
    handled("UpdateSystemStatus", [&] {
        FrmOrq& form = frmORQ();
        const int charset = readFontCharset();
        applyFontCharset(*form.lblSysStatusReady, charset);
        applyFontCharset(*form.lblSysStatusMethod, charset);

        const SystemStatusUpdate update = parseSystemStatus(status);
        if (update.readyColours)
            setLabelColours(*form.lblSysStatusReady, update.readyColours->background,
                            update.readyColours->text);
        if (update.readyText) form.lblSysStatusReady->setText(*update.readyText);
        if (update.methodColours)
            setLabelColours(*form.lblSysStatusMethod, update.methodColours->background,
                            update.methodColours->text);
        if (update.methodText) form.lblSysStatusMethod->setText(*update.methodText);
        if (update.complete) {
            App.GlblLastSysStatus = update.hostReady;
            App.GlblLastMethodStatus = update.hostMethod;
        }
    });
}

void UpdateStatusTime(const QString& status) {
    handled("UpdateStatusTime", [&] {
        QLabel& label = *frmORQ().lblStatusTime;
        applyFontCharset(label, readFontCharset());
        if (const auto text = statusTimeText(status)) label.setText(*text);
    });
}

}  // namespace sidekin
