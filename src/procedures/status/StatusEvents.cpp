#include "StatusEvents.h"

#include <QLineEdit>

#include "AppState.h"
#include "CPLinks.h"
#include "StatusDisplay.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

// The box's text less a line end. Texts under two characters raise error 5,
// as the character before the last does not exist.
QString statusOf(const QLineEdit& box) {
    const QString text = box.text();
    const int length = static_cast<int>(text.size());
    if (Mid(text, length - 1, 1) == QChar(13)) return Left(text, length - 2);
    return text;
}

}  // namespace

void DDESystemStatus_Change() {
    handled("DDESystemStatus_Change",
            [] { UpdateSystemStatus(statusOf(*cpLinks().ddeSystemStatus)); });
}

void DDEStstusTime_Change() {
    handled("DDEStstusTime_Change", [] {
        const QString status = statusOf(*cpLinks().ddeStatusTime);
        if (App.GlblRunState != RunStateIdle) UpdateStatusTime(status);
    });
}

}  // namespace sidekin
