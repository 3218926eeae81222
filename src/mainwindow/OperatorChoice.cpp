#include "OperatorChoice.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "Counters.h"
#include "EntryFormProcedures.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "SubDirectory.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

namespace {

void exclaim(int messageId, int titleId) {
    dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(messageId),
                         GetResourceString(titleId));
}

}  // namespace

void cboOperator_Click() {
    handled("cboOperator_Click", [] {
        FrmOrq& orq = frmORQ();
        if (orq.fgrdRunTable->grid().Rows() >= 2) return;  // a change with runs comes later
        if (orq.cboOperator->currentText().size() >= 30) return exclaim(17201, 17260);
        SetSubDirectory();
        InitForm(frmRnTblEdit());
        ClearFrmRnTblAddEntries(frmRnTblAdd());
        orq.cmdRnTblAdd->setEnabled(true);
        cmdRnTblAdd_Click();
        App.GlblOperator = orq.cboOperator->currentText();
    });
}

void cmdRnTblAdd_Click() {
    handled("cmdRnTblAdd", [] {
        FrmOrq& orq = frmORQ();
        if (!orq.cmdRnTblAdd->isEnabled()) return;
        if (orq.cboOperator->currentText().isEmpty()) return exclaim(17206, 17264);
        FrmRnTblAdd& form = frmRnTblAdd();
        const QString method = form.cboMethod->currentText();
        if (!method.isEmpty()) {
            const QString sample = form.cboSample->currentText();
            if (GetPvtProfileStr(sample + QLatin1Char(',') + method, profile::DataFileNaming,
                                 App.GlblIniFile) == profile::PrefixCounter)
                form.txtDataFile->setText(PeekNextFileName(sample, method));
        }
        dialogs().showModal(form);
    });
}

}  // namespace sidekin
