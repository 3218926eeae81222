#include "ShowHideOrq.h"

#include <QLineEdit>

#include "AppState.h"
#include "EntryForms.h"
#include "FrmOrq.h"
#include "HostItems.h"
#include "LinkProtocol.h"
#include "LinkTextBox.h"
#include "platform/ErrorHandler.h"
#include "platform/Events.h"
#include "platform/LegacyText.h"

namespace sidekin {

void ShowHideOrq() {
    handled("ShowHideOrq", [] {
        const QString text = frmORQ().ddeShowORQ->text();
        const QString value = Left(text, static_cast<int>(text.size()) - 2);  // less the line end
        if (value == QLatin1String("11")) {
            if (!frmORQ().isVisible()) frmORQ().show();
        } else if (value == QLatin1String("01")) {
            // Asking an entry form brings it into being, hidden, as its first use would.
            if (frmRnTblAdd().isVisible()) frmRnTblAdd().hide();
            if (frmRnTblEdit().isVisible()) frmRnTblEdit().hide();
            if (frmORQ().isVisible()) frmORQ().hide();
        } else if (value == QLatin1String("00")) {
            frmRnTblAdd().hide();
            frmRnTblEdit().hide();
            endProgram();
        }
    });
}

}  // namespace sidekin

namespace sidekin {

void iNITddesHOWorq() {
    handled("iNITddesHOWorq", [] {
        LinkTextBox& box = *frmORQ().ddeShowORQ;
        box.setLinkMode(LinkTextBox::None);
        box.LinkTopic = App.GlblDDEApp + QLatin1Char('|') + link::TopicNoWait;
        box.LinkItem = items::ShowOrq;
        box.setLinkMode(LinkTextBox::Manual);
        box.LinkRequest();
        box.setLinkMode(LinkTextBox::Automatic);
    });
}

}  // namespace sidekin
