#include "RunTableCommands.h"

#include <QPushButton>

#include "AppState.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "OperatorChoice.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

void cmdRnTblEdit_Click() {
    handled("cmdRnTblEdit_Click", [] {
        FrmOrq& orq = frmORQ();
        if (!orq.cmdRnTblEdit->isEnabled()) return;
        if (orq.fgrdRunTable->grid().RowSel() <= App.GlblCurrentRun) {
            dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(17203),
                                 GetResourceString(17262));
            return;
        }
        App.GlblEditOpen = 1;  // Form_Activate of the Edit form fills it from the row, once
        dialogs().showModal(frmRnTblEdit());
    });
}

void fgrdRunTable_DblClick() {
    handled("fgrdRunTable_DblClick", [] {
        if (frmORQ().fgrdRunTable->grid().Rows() > 1)
            cmdRnTblEdit_Click();
        else
            cmdRnTblAdd_Click();
    });
}

}  // namespace sidekin
