#include "MainWindowEvents.h"

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include "CPLinks.h"
#include "EntryFormEvents.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "HostLinkMarker.h"
#include "ItemFeed.h"
#include "KeyAscii.h"
#include "LinkTextBox.h"
#include "MainWindowShell.h"
#include "OperatorChoice.h"
#include "RunControl.h"
#include "RunTableCommands.h"
#include "RunTablePrint.h"
#include "ShowHideOrq.h"
#include "StartupFetch.h"
#include "StatusEvents.h"
#include "SubDirectory.h"
#include "platform/ErrorHandler.h"
#include "platform/ListControls.h"

namespace sidekin {

namespace {

// Key presses and focus loss of txtSubDir reach their procedures; nothing is
// swallowed. Focus lost to a box, a popup or another window, or because the
// field was disabled or hidden, is no leaving of the field by the operator.
class SubDirectoryEvents : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const std::int16_t ascii = keyAscii(*static_cast<QKeyEvent*>(event));
            if (ascii != 0) txtSubDir_KeyPress(ascii);
        } else if (event->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            const auto* field = static_cast<QWidget*>(watched);
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
                field->isEnabled() && field->isVisible())
                txtSubDir_LostFocus();
        }
        return false;
    }
};

// The window's size, its F1, and Return in the operator list.
class FrmOrqEvents : public QObject {
public:
    explicit FrmOrqEvents(FrmOrq& form)
        : QObject(&form), form_(form), operatorList_(form.cboOperator) {
        form.installEventFilter(this);
        form.cboOperator->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &form_ && event->type() == QEvent::Resize) Form_Resize(form_);
        if (event->type() == QEvent::KeyPress) {
            const int code = keyCode(*static_cast<QKeyEvent*>(event));
            if (code == 112) {
                Form_KeyDown(form_, code);
                return true;
            }
        }
        if (watched == operatorList_ && event->type() == QEvent::KeyRelease)
            cboOperator_KeyUp(keyCode(*static_cast<QKeyEvent*>(event)));
        return false;
    }

private:
    FrmOrq& form_;
    QObject* operatorList_;  // kept apart: events still come while the form is taken down
};

void loadFrmOrq(FrmOrq& form) {
    wireFrmOrq(form);
    Form_Load(form);
}

}  // namespace

void ddeShowORQ_Change() {
    handled("ddeShowORQ_Change", [] { ShowHideOrq(); });
}

void wireFrmOrq(FrmOrq& form) {
    QObject::connect(form.ddeShowORQ, &QLineEdit::textChanged, &form, &ddeShowORQ_Change);
    QObject::connect(form.cmdStartPauseResume, &QPushButton::clicked, &form,
                     &cmdStartPauseResume_Click);
    QObject::connect(form.cmdStop, &QPushButton::clicked, &form, &cmdStop_Click);
    QObject::connect(form.cmdRnTblAdd, &QPushButton::clicked, &form, &cmdRnTblAdd_Click);
    QObject::connect(form.cmdRnTblEdit, &QPushButton::clicked, &form, &cmdRnTblEdit_Click);
    QObject::connect(form.cmdRnTblDel, &QPushButton::clicked, &form, &cmdRnTblDel_Click);
    QObject::connect(form.cmdRnTblClear, &QPushButton::clicked, &form, &cmdRnTblClear_Click);
    QObject::connect(form.cmdInstructions, &QPushButton::clicked, &form, &cmdInstructions_Click);
    QObject::connect(form.cmdUp, &QPushButton::clicked, &form, &cmdUp_Click);
    QObject::connect(form.cmdDown, &QPushButton::clicked, &form, &cmdDown_Click);
    QObject::connect(form.cmdRnTblPrint, &QPushButton::clicked, &form, &cmdRnTblPrint_Click);
    QObject::connect(form.fgrdRunTable, &FlexGridView::DblClick, &form, &fgrdRunTable_DblClick);
    QObject::connect(form.fgrdRunTable, &FlexGridView::SelChange, &form, &fgrdRunTable_SelChange);
    onListClick(*form.cboOperator, &cboOperator_Click);
    QObject::connect(form.txtSubDir, &QLineEdit::textChanged, &form, &txtSubDir_Change);
    form.txtSubDir->installEventFilter(new SubDirectoryEvents(form.txtSubDir));
    new FrmOrqEvents(form);
}

void installLinkFormWiring() {
    setCPLinksLoader([](CPLinks& links) {
        QObject::connect(&links, &CPLinks::KeyPress, &links, &Form_KeyPress);
    });
}

void installEventWiring() {
    installLinkFormWiring();
    setFrmOrqLoader(&loadFrmOrq);
    itemfeed::setLinkWatcher(&HostLinkChanged);
    installEntryFormWiring();
    CPLinks& links = cpLinks();
    const char* wired = "sidekinEventsWired";
    if (links.property(wired).toBool()) return;
    links.setProperty(wired, true);
    QObject::connect(links.ddeSystemStatus, &QLineEdit::textChanged, &links,
                     &DDESystemStatus_Change);
    QObject::connect(links.ddeStatusTime, &QLineEdit::textChanged, &links, &DDEStstusTime_Change);
    QObject::connect(links.ddeRunEngineStatus, &QLineEdit::textChanged, &links,
                     &DDERunEngineStatus_Change);
}

}  // namespace sidekin
