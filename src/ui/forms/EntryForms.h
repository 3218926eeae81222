#pragma once

#include <QString>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace sidekin {

// The fields that frmRnTblAdd and frmRnTblEdit share by name, and the memory of
// the sample chain. Positions, captions and tab order are each form's own.
class EntryForm : public QWidget {
public:
    // The form's design name, "frmRnTblAdd" or "frmRnTblEdit".
    QString Name() const { return objectName(); }

    QLabel* lblSample;
    QComboBox* cboSample;
    QLabel* lblMethod;
    QComboBox* cboMethod;
    QLabel* lblSampleID;
    QLineEdit* txtSampleID;
    QLabel* lblDataFile;
    QLineEdit* txtDataFile;
    QLabel* lblSampleInfo;
    QPlainTextEdit* txtSampleInfo;
    QLabel* lblVial;
    QComboBox* cboVialNum;
    QLabel* lblInjVial;
    QComboBox* cboInjVial;
    QLabel* lblSampleAmt;
    QLineEdit* txtSampleAmt;
    QLabel* lblISTDAmt;
    QLineEdit* txtISTDAmt;
    QLineEdit* txtInjType;
    QLabel* Image1;
    QPlainTextEdit* txtInfoLine;
    QPushButton* btnClose;

    // The sample for which cboMethod was last filled.
    QString PreviousSample;

protected:
    EntryForm(const char* name, int heightTwips);
    // Places a control at its design position, in twips.
    static void place(QWidget* control, int left, int top, int width, int height);
    // A centred bold 12-point heading.
    QLabel* heading(const char* name);
    QPushButton* button(const char* name);
};

class FrmRnTblAdd : public EntryForm {
public:
    FrmRnTblAdd();
    QLabel* lblAddEntry;
    QPushButton* btnClear;
    QPushButton* cmdAdd;
};

class FrmRnTblEdit : public EntryForm {
public:
    FrmRnTblEdit();
    QLabel* lblEditEntry;
    QPushButton* btnPrevious;
    QPushButton* btnNext;
    QPushButton* btnReplace;
};

// Each form is made at its first access and handed to its loader once, which
// connects its events and runs its Form_Load; it lives until unloadEntryForms.
FrmRnTblAdd& frmRnTblAdd();
FrmRnTblEdit& frmRnTblEdit();
void setEntryFormLoaders(void (*add)(FrmRnTblAdd&), void (*edit)(FrmRnTblEdit&));
// Tests start each case without them.
void unloadEntryForms();

}  // namespace sidekin
