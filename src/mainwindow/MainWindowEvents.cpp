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
#include "KeyAscii.h"
#include "LinkTextBox.h"
#include "OperatorChoice.h"
#include "RunControl.h"
#include "RunTableCommands.h"
#include "RunTablePrint.h"
#include "ShowHideOrq.h"
#include "StatusEvents.h"
#include "SubDirectory.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

namespace {

// Key presses and focus loss of txtSubDir reach their procedures; nothing is swallowed.
class SubDirectoryEvents : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const std::int16_t ascii = keyAscii(*static_cast<QKeyEvent*>(event));
            if (ascii != 0) txtSubDir_KeyPress(ascii);
        } else if (event->type() == QEvent::FocusOut) {
            txtSubDir_LostFocus();
        }
        return false;
    }
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
    QObject::connect(form.cmdRnTblPrint, &QPushButton::clicked, &form, &cmdRnTblPrint_Click);
    QObject::connect(form.fgrdRunTable, &FlexGridView::DblClick, &form, &fgrdRunTable_DblClick);
    QObject::connect(form.cboOperator, &QComboBox::currentIndexChanged, &form, [](int index) {
        if (index >= 0) cboOperator_Click();
    });
    QObject::connect(form.txtSubDir, &QLineEdit::textChanged, &form, &txtSubDir_Change);
    form.txtSubDir->installEventFilter(new SubDirectoryEvents(form.txtSubDir));
}

void installEventWiring() {
    setFrmOrqLoader(&loadFrmOrq);
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
