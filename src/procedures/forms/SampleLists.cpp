#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "AppState.h"
#include "EntryFormTools.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "RunTableColumns.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/ListControls.h"

namespace sidekin {

void InitForm(EntryForm& frm) {
    handled("InitForm", [&] {
        frm.PreviousSample.clear();
        const QString section = frmORQ().cboOperator->currentText();
        const std::int16_t count =
            CInt(Val(GetPvtProfileStr(section, profile::NumSamples, App.GlblIniFile)));
        for (std::int16_t i = 1; i <= count; i = add16(i, 1))
            AddItem(*frm.cboSample,
                    GetPvtProfileStr(section, profile::SamplePrefix + CStr(i), App.GlblIniFile));
        setListText(*frm.cboInjVial, QStringLiteral("1"));
        for (int i = 1; i <= 8; ++i) AddItem(*frm.cboInjVial, QString::number(i));
    });
}

void SampleClick(EntryForm& frm) {
    handled("SampleClick", [&] {
        const QString sample = frm.cboSample->currentText();
        if (sample == frm.PreviousSample) return;
        ClearList(*frm.cboMethod);
        for (QLineEdit* field : {frm.txtInjType, frm.txtDataFile}) field->clear();
        frm.txtSampleInfo->clear();
        for (QLineEdit* field : {frm.txtSampleID, frm.txtSampleAmt, frm.txtISTDAmt}) field->clear();
        ClearList(*frm.cboVialNum);
        setListText(*frm.cboInjVial, QStringLiteral("1"));
        frm.PreviousSample = sample;
        const std::int16_t count =
            CInt(Val(GetPvtProfileStr(sample, profile::NumMethods, App.GlblIniFile)));
        for (std::int16_t i = 1; i <= count; i = add16(i, 1))
            AddItem(*frm.cboMethod,
                    GetPvtProfileStr(sample, profile::MethodPrefix + CStr(i), App.GlblIniFile));
        if (count == 1) {
            setListText(*frm.cboMethod, frm.cboMethod->itemText(0));
            frm.cboMethod->setEnabled(false);
        } else {
            frm.cboMethod->setEnabled(true);
        }
        setBackColour(*frm.cboMethod, count == 1);
    });
}

void AddEntryToForm(EntryForm& frm, std::int16_t& row) {
    handled("AddEntryToForm", [&] {
        const FlexGrid& grid = frmORQ().fgrdRunTable->grid();
        if (grid.Rows() <= 1) return;
        const auto cell = [&](int column) { return grid.TextArray(grid.Cols() * row + column); };
        // Sample, then method: their clicks fill the lists that the row's own values then
        // overwrite.
        setListText(*frm.cboSample, cell(ColSample));
        setListText(*frm.cboMethod, cell(ColMethod));
        frm.txtSampleID->setText(cell(ColSampleId));
        frm.txtInjType->setText(cell(ColInjectionType));
        setListText(*frm.cboVialNum, cell(ColVial));
        frm.txtDataFile->setText(cell(ColDataFile));
        frm.txtSampleAmt->setText(cell(ColSampleAmount));
        frm.txtISTDAmt->setText(cell(ColIstdAmount));
        frm.txtSampleInfo->setPlainText(cell(ColSampleInfo));

        static const struct {
            int type, caption, tip;
        } vialCaptions[] = {{17048, 17059, 17159},
                            {17044, 17061, 17161},
                            {17045, 17062, 17162},
                            {17046, 17060, 17160},
                            {17047, 17063, 17163}};
        const QString type = frm.txtInjType->text();
        for (const auto& c : vialCaptions) {
            if (type == GetResourceString(c.type)) {
                frm.lblVial->setText(GetResourceString(c.caption));
                frm.cboVialNum->setToolTip(GetResourceString(c.tip));
                break;
            }
        }
    });
}

}  // namespace sidekin
