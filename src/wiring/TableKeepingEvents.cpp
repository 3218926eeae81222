#include "TableKeepingEvents.h"

#include <QAction>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>

#include "AppState.h"
#include "CPLinks.h"
#include "DesktopNotice.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "TableKeeping.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

namespace {

QString lastRunLabel;

QString noticeTitle() {
    return GetResourceString(18038).replace(QStringLiteral("<INSTRUMENT>"),
                                            QString::number(App.GlblInstrument));
}

void showMenuAt(QWidget& widget, const QPoint& position) {
    QMenu menu(&widget);
    fillRunTableMenu(menu);
    menu.exec(widget.mapToGlobal(position));
}

}  // namespace

void fillRunTableMenu(QMenu& menu) {
    const bool empty = frmORQ().fgrdRunTable->grid().Rows() <= 1;
    const QString offer = recoverOfferText();
    if (!offer.isEmpty()) {
        menu.addAction(offer, [] { RecoverRunTable(); });
        menu.addSeparator();
    }
    QAction* save = menu.addAction(GetResourceString(18002), [] { SaveRunTable(); });
    save->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    save->setEnabled(!empty);
    QAction* open = menu.addAction(GetResourceString(18003), [] { OpenRunTable(); });
    open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    menu.addSeparator();
    menu.addAction(GetResourceString(18004), [] { ImportWorklist(); });
    menu.addAction(GetResourceString(18005), [] { ExportWorklist(); })->setEnabled(!empty);
}

void noticeWalkOutcome() {
    const QString label = frmORQ().lblCurrentRun->text();
    if (label == lastRunLabel) return;
    lastRunLabel = label;
    const QString stopped = GetResourceString(17104);
    const QString aborted = GetResourceString(17107);
    QString body;
    if (label == GetResourceString(17102))
        body = GetResourceString(18039);
    else if (!stopped.isEmpty() && label.startsWith(stopped))
        body = GetResourceString(18040).replace(QStringLiteral("<RUN>"), label.mid(stopped.size()));
    else if (!aborted.isEmpty() && label.startsWith(aborted))
        body = GetResourceString(18041).replace(QStringLiteral("<RUN>"), label.mid(aborted.size()));
    if (!body.isEmpty()) showDesktopNotice(noticeTitle(), body);
}

void wireTableKeeping(FrmOrq& form) {
    for (QWidget* view : {static_cast<QWidget*>(form.fgrdRunTable),
                          static_cast<QWidget*>(form.fgrdRunTable->fixedColumnsView())}) {
        if (!view) continue;
        view->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(view, &QWidget::customContextMenuRequested, view,
                         [view](const QPoint& at) { showMenuAt(*view, at); });
    }
    auto* save = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), &form);
    save->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(save, &QShortcut::activated, &form, [] { SaveRunTable(); });
    auto* open = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_O), &form);
    open->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(open, &QShortcut::activated, &form, [] { OpenRunTable(); });
    // After the legacy handlers, which are connected first: the label then tells the outcome.
    lastRunLabel = form.lblCurrentRun->text();
    QObject::connect(cpLinks().ddeRunEngineStatus, &QLineEdit::textChanged, &form,
                     [] { noticeWalkOutcome(); });
    QObject::connect(form.cmdStop, &QPushButton::clicked, &form, [] { noticeWalkOutcome(); });
}

void installTableKeeping() {
    handled("installTableKeeping", [] {
        wireTableKeeping(frmORQ());
        startTableJournal();
    });
}

}  // namespace sidekin
