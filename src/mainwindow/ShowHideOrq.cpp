#include "ShowHideOrq.h"

#include "FrmOrq.h"
#include "platform/ErrorHandler.h"
#include "platform/Events.h"
#include "platform/LegacyText.h"

#include <QLineEdit>

namespace sidekin {

void ShowHideOrq() {
    handled("ShowHideOrq", [] {
        const QString text = frmORQ().ddeShowORQ->text();
        const QString value = Left(text, static_cast<int>(text.size()) - 2);  // less the line end
        if (value == QLatin1String("11")) {
            if (!frmORQ().isVisible()) frmORQ().show();
        } else if (value == QLatin1String("01")) {
            if (frmORQ().isVisible()) frmORQ().hide();
        } else if (value == QLatin1String("00")) {
            endProgram();
        }
    });
}

}  // namespace sidekin
