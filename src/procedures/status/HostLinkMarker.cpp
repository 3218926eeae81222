#include "HostLinkMarker.h"

#include <QGroupBox>

#include "FrmOrq.h"
#include "G11n.h"
#include "platform/Clock.h"

namespace sidekin {

namespace {

const char* const TitleKept = "titleBeforeLinkLost";
const char* const TipKept = "toolTipBeforeLinkLost";

}  // namespace

void HostLinkChanged(bool alive) {
    QGroupBox& frame = *frmORQ().fraSystemStatus;
    const bool marked = frame.property(TitleKept).isValid();
    if (alive == !marked) return;
    if (alive) {
        frame.setTitle(frame.property(TitleKept).toString());
        frame.setToolTip(frame.property(TipKept).toString());
        frame.setProperty(TitleKept, QVariant());
        frame.setProperty(TipKept, QVariant());
        return;
    }
    const QString time = clock().now().time().toString(QStringLiteral("HH:mm:ss"));
    frame.setProperty(TitleKept, frame.title());
    frame.setProperty(TipKept, frame.toolTip());
    frame.setTitle(frame.title() + QStringLiteral("  \u26A0 ") + time);
    frame.setToolTip(frame.toolTip() + u'\n' +
                     ResourceWithTokens(17325, QStringLiteral("<TIME>"), time));
}

}  // namespace sidekin
