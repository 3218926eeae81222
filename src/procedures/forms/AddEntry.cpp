#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "AppState.h"
#include "Counters.h"
#include "DataFileCheck.h"
#include "EntryFormProcedures.h"
#include "EntryFormTools.h"
#include "EntryForms.h"
#include "EntryValidation.h"
#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "Help.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "RunTable.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/Keyboard.h"
#include "platform/LegacyText.h"
#include "platform/ListControls.h"
#include "platform/OperatorDialogs.h"

namespace sidekin {

namespace {

bool isEdit(const EntryForm& form) { return form.Name() == QLatin1String("frmRnTblEdit"); }

void cutAmount(QLineEdit& field) {
    if (Trim(field.text()).size() <= 12) return;
    field.setText(Left(field.text(), 12));
    field.setFocus();
    caretAt100(field);
}

}  // namespace

QString sampleInfoText(const EntryForm& form) {
    return ReplaceString(form.txtSampleInfo->toPlainText(), QStringLiteral("\t"),
                         QStringLiteral("       "));
}

QString runTableLine(const EntryForm& form, std::int16_t row, const QString& info) {
    return QStringList{CStr(row),
                       form.cboSample->currentText(),
                       form.cboMethod->currentText(),
                       form.txtSampleID->text(),
                       form.txtInjType->text(),
                       form.cboVialNum->currentText(),
                       form.txtDataFile->text(),
                       form.txtSampleAmt->text(),
                       form.txtISTDAmt->text(),
                       info}
        .join(QLatin1Char('\t'));
}

void cboSample_Click(EntryForm& form) {
    handled("cboSample_Click", [&] { SampleClick(form); });
}

void cbosample_Change(FrmRnTblEdit& form) {
    handled("cbosample_Change", [&] { SampleClick(form); });
}

void cboMethod_Click(EntryForm& form) {
    handled("cboMethod_Click", [&] {
        MethodClick(form);
        sendTabKey();
    });
}

void txtSampleID_Change(EntryForm& form) {
    handled("txtSampleID_Change", [&] {
        QLineEdit& field = *form.txtSampleID;
        if (field.text().size() <= 16) return;
        field.setText(Left(field.text(), 16));
        exclaim(17224, 17260, {{"<NUMBER>", QStringLiteral("16")}});
        field.setFocus();
        caretAt100(field);
    });
}

void txtDataFile_Change(EntryForm& form) {
    handled(isEdit(form) ? "txtdataFile_Change" : "txtDataFile_Change", [&] {
        QLineEdit& field = *form.txtDataFile;
        QString name = field.text();
        const bool good = IsValidFileChar(name);
        field.setText(name);
        if (good) return;
        exclaim(17225, 17260);
        field.setFocus();
        if (isEdit(form))
            selectFrom0Length100(field);
        else
            caretAt100(field);
    });
}

void txtSampleAmt_Change(EntryForm& form) {
    handled("txtSampleAmt_Change", [&] { cutAmount(*form.txtSampleAmt); });
}

void txtISTDAmt_Change(EntryForm& form) {
    handled("txtISTDAmt_Change", [&] { cutAmount(*form.txtISTDAmt); });
}

void cboInjVial_Change(FrmRnTblAdd& form) {
    handled("cboInjVial_Change", [&] {
        const QString count = form.cboInjVial->currentText();
        if (count.size() <= 2 && IsNumeric(count)) return;
        exclaim(17228, 17260);
        form.cboInjVial->setFocus();
        if (QLineEdit* edit = form.cboInjVial->lineEdit()) caretAt100(*edit);
    });
}

void Field_KeyPress(EntryForm& form, KeyField field, std::int16_t keyAscii) {
    static const char* const titles[] = {"txtSampleID_KeyPress",  "txtDataFile_KeyPress",
                                         "cboVialNum_KeyPress",   "cboInjVial_KeyPress",
                                         "txtSampleAmt_KeyPress", "txtISTDAmt_KeyPress"};
    const char* title = field == KeyField::SampleID && !isEdit(form)
                            ? "txtxSampleID_KeyPress"
                            : titles[static_cast<int>(field)];
    handled(title, [&] {
        std::int16_t copy = keyAscii;  // the field keeps its key
        ConvReturn2Tab(copy);
    });
}

void btnClose_Click(EntryForm& form) {
    handled(isEdit(form) ? "btnCloce_Click" : "btnClose_Click", [&] {
        if (!DataFileExits().isEmpty()) exclaim(17214, 17263);
        form.hide();
    });
}

void Form_KeyDown(EntryForm& form, int keyCode) {
    if (keyCode != 112) return;
    if (isEdit(form))
        showHelpTopic(QStringLiteral("662574987--v1.htm"), QStringLiteral("662574987--v2.htm"));
    else
        showHelpTopic(QStringLiteral("662573707--v1.htm"), QStringLiteral("662573707--v2.htm"));
}

void Form_Load(FrmRnTblAdd& form) {
    handled("Form_Load_ORQRnTblAdd", [&] { form.txtDataFile->setMaxLength(MaxFileNameChars); });
}

void ClearFrmRnTblAddEntries(FrmRnTblAdd& form) {
    handled("ClearFrmRnTblAddEntries", [&] {
        ClearList(*form.cboSample);
        ClearList(*form.cboMethod);
        form.txtSampleID->clear();
        form.txtInjType->clear();
        ClearList(*form.cboVialNum);
        form.txtDataFile->clear();
        ClearList(*form.cboInjVial);
        form.txtSampleAmt->clear();
        form.txtISTDAmt->clear();
        form.txtSampleInfo->clear();
        form.txtInfoLine->clear();
        InitForm(form);
    });
}

void btnClear_Click() {
    handled("btnClear_Click", [] { ClearFrmRnTblAddEntries(frmRnTblAdd()); });
}

void cmdAdd_Click() {
    handled("cmdAdd_Click", [] {
        FrmRnTblAdd& form = frmRnTblAdd();
        FrmOrq& orq = frmORQ();
        FlexGrid& grid = orq.fgrdRunTable->grid();
        QLineEdit& dataFile = *form.txtDataFile;
        const QString none = QStringLiteral("None");
        const std::int16_t count = CInt(form.cboInjVial->currentText());
        for (std::int16_t i = 1; i <= count; i = add16(i, 1)) {
            const QString sample = form.cboSample->currentText();
            const QString method = form.cboMethod->currentText();
            const QString section = pairSection(form);
            if (GetPvtProfileStr(section, profile::DataFileNaming, App.GlblIniFile) ==
                profile::PrefixCounter) {
                // The Edit form's field: in counter mode it is not read.
                const auto next = [&] {
                    dataFile.setText(
                        GetNextFileName(frmRnTblEdit().txtDataFile->text(), sample, method));
                };
                next();
                const std::int32_t max = GetDataFileCountMax(sample, method);
                std::int32_t tries = 1;
                while (!FileNameUniqueToTable(dataFile.text(), none) && tries <= max) {
                    next();
                    ++tries;
                }
                if (tries > max) {
                    exclaim(17226, 17263, {{"<NUMBER>", CStr(i - 1)}});
                    return;
                }
            }
            if (!ValidRunTableEntries(orq, form)) return;
            for (QWidget* command : {orq.cmdRnTblEdit, orq.cmdRnTblDel, orq.cmdRnTblAdd,
                                     orq.cmdStartPauseResume, orq.cmdRnTblPrint})
                command->setEnabled(true);
            orq.lblSubDir->show();
            orq.txtSubDir->show();
            const std::int16_t row = toInt16(grid.Rows());
            const QString line = runTableLine(form, row, sampleInfoText(form));
            const QString naming =
                GetPvtProfileStr(section, profile::DataFileNaming, App.GlblIniFile);
            if (naming == profile::PrefixCounter)
                dataFile.setText(PeekNextFileName(sample, method));
            grid.AddItem(line);
            RenumberRunTable(grid);
            SelectRunTableRow(grid, row);

            const double wanted = Val(form.cboInjVial->currentText());
            if (naming != profile::Manual || wanted <= 1 || wanted <= i) continue;
            QString answer = dataFile.text();
            bool named = false;
            for (int attempt = 1; attempt <= 6 && !named; ++attempt) {
                QString prompt = ReplaceString(GetResourceString(17120),
                                               QStringLiteral("<NUMBER1>"), CStr(i + 1));
                prompt = ReplaceString(prompt, QStringLiteral("<NUMBER2>"),
                                       form.cboInjVial->currentText());
                answer = dialogs().inputBox(prompt, GetResourceString(17121), answer);
                if (answer.isEmpty()) return;
                const bool good = IsValidFileChar(answer) && !Trim(answer).isEmpty();
                if (good && FileNameUniqueToTable(answer, none)) {
                    dataFile.setText(answer);
                    named = true;
                } else if (good) {
                    exclaim(17213, 17263);
                } else {
                    exclaim(17225, 17260);
                }
            }
            if (!named) {
                exclaim(17227, 17260);
                return;
            }
        }
    });
}

}  // namespace sidekin
