#include "OperatorChoice.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "AppState.h"
#include "Counters.h"
#include "EntryFormProcedures.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "RunTableColumns.h"
#include "RunTableCommands.h"
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
        QComboBox& list = *orq.cboOperator;
        if (orq.fgrdRunTable->grid().Rows() < 2) {
            if (list.currentText().size() >= 30) return exclaim(17201, 17260);
            SetSubDirectory();
            InitForm(frmRnTblEdit());
            ClearFrmRnTblAddEntries(frmRnTblAdd());
            orq.cmdRnTblAdd->setEnabled(true);
            cmdRnTblAdd_Click();
        } else if (list.currentText() != App.GlblOperator) {
            if (dialogs().messageBox(BoxStyle::ExclamationYesNo, GetResourceString(17200),
                                     GetResourceString(17260)) == BoxAnswer::Yes) {
                cmdRnTblClear_Click();
            } else {
                // Going back is no operator's choice; the list then shows GlblOperator again.
                const QSignalBlocker back(list);
                list.setCurrentIndex(list.findText(App.GlblOperator, Qt::MatchExactly));
            }
        }
        App.GlblOperator = list.currentText();
    });
}

void cboOperator_KeyUp(int keyCode) {
    handled("cboOperator_Keyup", [keyCode] {
        if (keyCode == 13) cboOperator_Click();
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

namespace sidekin {

void cmdInstructions_Click() {
    handled("CmdInstructions_Click", [] {
        FrmOrq& orq = frmORQ();
        const FlexGrid& grid = orq.fgrdRunTable->grid();
        if (grid.Rows() <= 1) {
            dialogs().openDocument(profile::OrqInitialFile, App.GlblOrqDir);
            return;
        }
        const int row = grid.RowSel();
        const QString section =
            grid.TextMatrix(row, ColSample) + QLatin1Char(',') + grid.TextMatrix(row, ColMethod);
        const QString path = GetPvtProfileStr(section, profile::InstructPath, App.GlblIniFile);
        const QString file = GetPvtProfileStr(section, profile::InstructFile, App.GlblIniFile);
        if (path.trimmed() != profile::Missing || file.trimmed() != profile::Missing)
            dialogs().openDocument(file, path);
        else
            exclaim(17207, 17265);
    });
}

}  // namespace sidekin
