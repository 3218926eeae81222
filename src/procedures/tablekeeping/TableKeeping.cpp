#include "TableKeeping.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>

#include "AppState.h"
#include "EntryFormProcedures.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MethodSelection.h"
#include "RunTable.h"
#include "SubDirectory.h"
#include "TableJournal.h"
#include "TableKeepingTools.h"
#include "platform/ErrorHandler.h"
#include "platform/SafeFile.h"

namespace sidekin {

namespace {

// Lives as a child of the grid's model, so it ends with the main window.
QPointer<TableJournal> journal;

FlexGrid& runTable() { return frmORQ().fgrdRunTable->grid(); }

QString fileErrorText(const RunTableFileRead& read) {
    switch (read.error) {
        case RunTableFileError::Unreadable:
            return GetResourceString(18014);
        case RunTableFileError::Damaged:
            return GetResourceString(18015);
        case RunTableFileError::NotATable:
            return GetResourceString(18016);
        case RunTableFileError::Newer:
            return GetResourceString(18017);
        case RunTableFileError::BadRow:
            return withTokens(18018, {{"<NUMBER>", QString::number(read.badRow)}});
        case RunTableFileError::TooMany:
            return GetResourceString(18044);
        case RunTableFileError::None:
            break;
    }
    return {};
}

// With no operator chosen, the table's operator is chosen as a click on an
// empty table would, without opening the Add form.
bool adoptOperator(const RunTableSnapshot& table) {
    FrmOrq& orq = frmORQ();
    if (!App.GlblOperator.isEmpty()) return true;
    const int index = orq.cboOperator->findText(table.operatorName, Qt::MatchExactly);
    if (table.operatorName.isEmpty() || index < 0) return false;
    {
        const QSignalBlocker quiet(orq.cboOperator);
        orq.cboOperator->setCurrentIndex(index);
    }
    App.GlblOperator = table.operatorName;
    SetSubDirectory();
    InitForm(frmRnTblEdit());
    ClearFrmRnTblAddEntries(frmRnTblAdd());
    orq.cmdRnTblAdd->setEnabled(true);
    return true;
}

// Another operator or instrument: the operator says whether to go on.
bool sameOwnerOrAgreed(const RunTableSnapshot& table, int titleId) {
    const bool otherOperator =
        !App.GlblOperator.isEmpty() && table.operatorName != App.GlblOperator;
    if (!otherOperator && table.instrument == App.GlblInstrument) return true;
    return ask(withTokens(18013, {{"<OPERATOR>", table.operatorName},
                                  {"<INSTRUMENT>", QString::number(table.instrument)}}),
               titleId);
}

void putInPlace(const RunTableSnapshot& table) {
    if (!adoptOperator(table))
        tell(withTokens(18042, {{"<DATE>", QLocale().toString(table.saved, QLocale::ShortFormat)},
                                {"<OPERATOR>", table.operatorName}}),
             18009);
    putTableBack(table);
    if (journal) journal->dropRecoverable();
}

}  // namespace

void startTableJournal() {
    if (journal) return;
    FlexGridModel& model = frmORQ().fgrdRunTable->gridModel();
    journal = new TableJournal(
        model, journalPath(App.GlblInstrument),
        [](RunTableSnapshot& table) {
            table.operatorName = App.GlblOperator;
            table.instrument = App.GlblInstrument;
            table.currentRun = App.GlblCurrentRun;
        },
        &model);
}

void stopTableJournal() { delete journal.data(); }

TableJournal* tableJournal() { return journal.data(); }

RunTableSnapshot currentRunTable() {
    RunTableSnapshot table = snapshotOf(runTable());
    table.operatorName = App.GlblOperator;
    table.instrument = App.GlblInstrument;
    table.currentRun = App.GlblCurrentRun;
    table.saved = QDateTime::currentDateTime();
    return table;
}

void putTableBack(const RunTableSnapshot& table) {
    FrmOrq& orq = frmORQ();
    FlexGrid& grid = runTable();
    ClearRunTable(orq);
    for (const RunTableRow& row : table.rows) {
        QStringList cells(row.cells.begin(), row.cells.end());
        grid.AddItem(cells.join(u'\t'));
    }
    const int fill = grid.FillStyle();
    grid.setFillStyle(FillSingle);
    for (size_t r = 0; r < table.rows.size(); ++r) {
        for (int c = 0; c < 10; ++c) {
            if (table.rows[r].colours[c] == GridDefaultColor) continue;
            grid.setRow(int(r) + 1);
            grid.setCol(c);
            grid.setCellBackColor(table.rows[r].colours[c]);
        }
    }
    grid.setFillStyle(fill);
    if (table.rows.empty()) return;
    enableTableCommands();
    SelectRunTableRow(grid, static_cast<std::int16_t>(table.rows.size()));
}

QString recoverOfferText() {
    if (!journal || !journal->recoverable() || runTable().Rows() > 1) return {};
    const RunTableSnapshot& table = *journal->recoverable();
    return withTokens(18001, {{"<DATE>", QLocale().toString(table.saved, QLocale::ShortFormat)},
                              {"<NUMBER>", QString::number(table.rows.size())}});
}

void RecoverRunTable() {
    handled("RecoverRunTable", [] {
        if (walking()) return tell(GetResourceString(18020), 18009);
        if (!journal || !journal->recoverable() || runTable().Rows() > 1) return;
        const RunTableSnapshot table = *journal->recoverable();
        if (!sameOwnerOrAgreed(table, 18009)) return;
        putInPlace(table);
    });
}

void SaveRunTable() {
    handled("SaveRunTable", [] {
        QString path = dialogs().saveFileName(GetResourceString(18008), GetResourceString(18006),
                                              QStringLiteral("run-table.sidekin-table"));
        if (path.isEmpty()) return;
        if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".sidekin-table");
        if (!replaceFileSafely(path, encodeRunTable(currentRunTable())))
            tell(GetResourceString(18019), 18008);
    });
}

void OpenRunTable() {
    handled("OpenRunTable", [] {
        if (walking()) return tell(GetResourceString(18020), 18009);
        const QString path =
            dialogs().openFileName(GetResourceString(18009), GetResourceString(18006));
        if (path.isEmpty()) return;
        const RunTableFileRead read = readRunTableFile(path);
        if (!read.table) return tell(fileErrorText(read), 18009);
        if (runTable().Rows() > 1 && !ask(GetResourceString(18012), 18009)) return;
        if (!sameOwnerOrAgreed(*read.table, 18009)) return;
        putInPlace(*read.table);
    });
}

}  // namespace sidekin
