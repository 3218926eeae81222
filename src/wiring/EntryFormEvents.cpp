#include "EntryFormEvents.h"

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include "EntryFormProcedures.h"
#include "EntryForms.h"
#include "KeyAscii.h"
#include "platform/ListControls.h"

namespace sidekin {

namespace {

// A field's key presses reach its procedure and then the field itself.
class FieldKeys : public QObject {
public:
    FieldKeys(EntryForm& form, QWidget& field, KeyField which)
        : QObject(&field), form_(form), which_(which) {
        field.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const std::int16_t ascii = keyAscii(*static_cast<QKeyEvent*>(event));
            if (ascii != 0) Field_KeyPress(form_, which_, ascii);
        }
        return false;
    }

private:
    EntryForm& form_;
    KeyField which_;
};

// F1 anywhere on the form, and the Edit form's activation.
class FormEvents : public QObject {
public:
    FormEvents(EntryForm& form, bool activates)
        : QObject(&form), form_(form), activates_(activates) {
        form.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1) {
            Form_KeyDown(form_, 112);
            return true;
        }
        if (activates_ &&
            (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate))
            Form_Activate();
        return false;
    }

private:
    EntryForm& form_;
    bool activates_;
};

// What both forms share: list clicks, field changes, Return, Close, F1.
void wireShared(EntryForm& form, bool isEdit) {
    onListClick(*form.cboSample, [&form] { cboSample_Click(form); });
    onListClick(*form.cboMethod, [&form] { cboMethod_Click(form); });
    QObject::connect(form.txtSampleID, &QLineEdit::textChanged, &form,
                     [&form] { txtSampleID_Change(form); });
    QObject::connect(form.txtDataFile, &QLineEdit::textChanged, &form,
                     [&form] { txtDataFile_Change(form); });
    QObject::connect(form.txtSampleAmt, &QLineEdit::textChanged, &form,
                     [&form] { txtSampleAmt_Change(form); });
    QObject::connect(form.txtISTDAmt, &QLineEdit::textChanged, &form,
                     [&form] { txtISTDAmt_Change(form); });
    QObject::connect(form.btnClose, &QPushButton::clicked, &form,
                     [&form] { btnClose_Click(form); });
    new FieldKeys(form, *form.txtSampleID, KeyField::SampleID);
    new FieldKeys(form, *form.txtDataFile, KeyField::DataFile);
    new FieldKeys(form, *form.cboVialNum, KeyField::VialNum);
    new FieldKeys(form, *form.cboInjVial, KeyField::InjVial);
    new FieldKeys(form, *form.txtSampleAmt, KeyField::SampleAmt);
    new FieldKeys(form, *form.txtISTDAmt, KeyField::ISTDAmt);
    new FormEvents(form, isEdit);
}

void loadAdd(FrmRnTblAdd& form) {
    wireFrmRnTblAdd(form);
    Form_Load(form);
}

void loadEdit(FrmRnTblEdit& form) { wireFrmRnTblEdit(form); }

}  // namespace

void wireFrmRnTblAdd(FrmRnTblAdd& form) {
    wireShared(form, false);
    QObject::connect(form.cboInjVial, &QComboBox::editTextChanged, &form,
                     [&form] { cboInjVial_Change(form); });
    QObject::connect(form.btnClear, &QPushButton::clicked, &form, &btnClear_Click);
    QObject::connect(form.cmdAdd, &QPushButton::clicked, &form, &cmdAdd_Click);
}

void wireFrmRnTblEdit(FrmRnTblEdit& form) {
    wireShared(form, true);
    // The Edit form also has the list's change event; a second SampleClick on the
    // same sample returns at once.
    QObject::connect(form.cboSample, &QComboBox::currentTextChanged, &form,
                     [&form](const QString& text) {
                         if (!text.isEmpty()) cbosample_Change(form);
                     });
    QObject::connect(form.btnPrevious, &QPushButton::clicked, &form, &btnPrevious_Click);
    QObject::connect(form.btnNext, &QPushButton::clicked, &form, &btnNext_Click);
    QObject::connect(form.btnReplace, &QPushButton::clicked, &form, &btnReplace_Click);
}

void installEntryFormWiring() { setEntryFormLoaders(&loadAdd, &loadEdit); }

}  // namespace sidekin
