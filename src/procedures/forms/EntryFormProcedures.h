#pragma once

#include <cstdint>

namespace sidekin {

class EntryForm;
class FrmRnTblAdd;
class FrmRnTblEdit;

// Events of both entry forms; each takes the form it belongs to.
void cboSample_Click(EntryForm& form);
void cboMethod_Click(EntryForm& form);
void txtSampleID_Change(EntryForm& form);
void txtDataFile_Change(EntryForm& form);
void txtSampleAmt_Change(EntryForm& form);
void txtISTDAmt_Change(EntryForm& form);
// Return in a field moves the focus on; the key still reaches the field.
enum class KeyField { SampleID, DataFile, VialNum, InjVial, SampleAmt, ISTDAmt };
void Field_KeyPress(EntryForm& form, KeyField field, std::int16_t keyAscii);
void btnClose_Click(EntryForm& form);
// F1 opens the form's help topic.
void Form_KeyDown(EntryForm& form, int keyCode);

// frmRnTblAdd.
void Form_Load(FrmRnTblAdd& form);
void cboInjVial_Change(FrmRnTblAdd& form);
void ClearFrmRnTblAddEntries(FrmRnTblAdd& form);
void btnClear_Click();
void cmdAdd_Click();

// frmRnTblEdit.
void cbosample_Change(FrmRnTblEdit& form);
void Form_Activate();
void btnPrevious_Click();
void btnNext_Click();
void btnReplace_Click();

}  // namespace sidekin
