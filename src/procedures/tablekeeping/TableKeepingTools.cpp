#include "TableKeepingTools.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "platform/OperatorDialogs.h"

namespace sidekin {

QString withTokens(int id, std::initializer_list<std::pair<const char*, QString>> tokens) {
    QString text = GetResourceString(id);
    for (const auto& [token, value] : tokens) text.replace(QLatin1String(token), value);
    return text;
}

void tell(const QString& text, int titleId) {
    dialogs().messageBox(BoxStyle::ExclamationOk, text, GetResourceString(titleId));
}

bool ask(const QString& text, int titleId) {
    return dialogs().messageBox(BoxStyle::ExclamationYesNo, text, GetResourceString(titleId)) ==
           BoxAnswer::Yes;
}

bool walking() { return App.GlblCurrentRun > 0 || App.GlblRunState != RunStateIdle; }

void enableTableCommands() {
    FrmOrq& orq = frmORQ();
    for (QWidget* command :
         {orq.cmdRnTblEdit, orq.cmdRnTblDel, orq.cmdStartPauseResume, orq.cmdRnTblPrint})
        command->setEnabled(true);
    orq.lblSubDir->show();
    orq.txtSubDir->show();
}

}  // namespace sidekin
