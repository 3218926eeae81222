// Worklist import and export. Each row of a worklist goes through
// the checks of Add: ValidRunTableEntries on a private entry form (the host's
// name check among them), the operator's samples and the sample's methods as
// the Add form lists them, the vial range MethodClick finds, counter names
// taken as Add takes them, and a data file name unique to the table.
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <map>
#include <memory>

#include "AppState.h"
#include "Counters.h"
#include "EntryFormTools.h"
#include "EntryForms.h"
#include "EntryValidation.h"
#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "RunTable.h"
#include "TableKeeping.h"
#include "TableKeepingTools.h"
#include "WorklistCsv.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/ListControls.h"
#include "platform/SafeFile.h"

namespace sidekin {

namespace {

constexpr int MaxRuns = 32766;        // the grid's row counter is 16-bit
constexpr int ReportedFailures = 30;  // lines in the report box

QStringList columnNames() {
    QStringList names;
    for (int id = 17025; id <= 17034; ++id) names << GetResourceString(id);
    return names;
}

// What the checks would have put before the operator, kept as the row's reason.
class CapturedBoxes : public OperatorDialogs {
public:
    CapturedBoxes() : previous_(&dialogs()) { setDialogs(this); }
    ~CapturedBoxes() override { setDialogs(previous_); }
    BoxAnswer messageBox(BoxStyle style, const QString& text, const QString&) override {
        texts << QString(text).replace(u'\n', u' ');
        return style == BoxStyle::ExclamationYesNo ? BoxAnswer::No : BoxAnswer::Ok;
    }
    QString inputBox(const QString&, const QString&, const QString&) override { return {}; }
    void showModal(QWidget&, QWidget*) override {}
    bool openDocument(const QString&, const QString&) override { return false; }
    bool showHelp(const QString&, const QString&) override { return false; }
    QPrinter* printer() override { return nullptr; }
    QString take() {
        const QString joined = texts.join(QStringLiteral(" "));
        texts.clear();
        return joined;
    }
    QStringList texts;

private:
    OperatorDialogs* previous_;
};

QString failed(QString& reason, const QString& why) {
    reason = why;
    return {};
}

// What MethodClick found for a sample and method.
struct Pair {
    QString failure;  // the pair cannot be used
    QStringList vials;
    QString defaultVial;
    QString injectionType;
    bool counter = false;
};

class RowChecker {
public:
    RowChecker() {
        form_.setObjectName(QStringLiteral("worklistImport"));  // not the Add form
        InitForm(form_);
        boxes_.take();
    }

    // The row's run table line, or the reason it is not added.
    QString check(QStringList cells, QString& reason) {
        for (int c = 0; c < 10; ++c) {
            if (c == ColSampleInfo)
                cells[c].replace(QStringLiteral("\t"), QStringLiteral("       "));
            else if (cells[c].contains(u'\t'))
                return failed(reason, GetResourceString(18033));
        }
        const QString& sample = cells[ColSample];
        const QString& method = cells[ColMethod];
        if (form_.cboSample->findText(sample, Qt::MatchExactly) < 0)
            return failed(reason, withTokens(18030, {{"<NAME>", sample}}));
        const Pair& pair = pairOf(sample, method);
        if (!pair.failure.isEmpty()) return failed(reason, pair.failure);
        QString& vial = cells[ColVial];
        if (vial.isEmpty()) vial = pair.defaultVial;
        if (!pair.vials.contains(vial))
            return failed(reason, withTokens(18032, {{"<NAME>", vial}}));
        QString& injection = cells[ColInjectionType];
        if (injection.isEmpty()) injection = pair.injectionType;
        if (injection != pair.injectionType)
            return failed(reason, withTokens(18034, {{"<NAME>", injection}}));
        QString& dataFile = cells[ColDataFile];
        if (pair.counter && dataFile.isEmpty()) {
            const std::int32_t max = GetDataFileCountMax(sample, method);
            std::int32_t tries = 0;
            do {
                dataFile = GetNextFileName(QString(), sample, method);
            } while (!FileNameUniqueToTable(dataFile, QStringLiteral("None")) && ++tries <= max);
            if (tries > max) return failed(reason, GetResourceString(18043));
        }
        form_.txtSampleID->setText(cells[ColSampleId]);
        form_.txtDataFile->setText(dataFile);
        form_.txtSampleAmt->setText(cells[ColSampleAmount]);
        form_.txtISTDAmt->setText(cells[ColIstdAmount]);
        boxes_.take();
        if (!ValidRunTableEntries(frmORQ(), form_)) return failed(reason, boxes_.take());
        if (!FileNameUniqueToTable(dataFile, QStringLiteral("None")))
            return failed(reason, GetResourceString(17213));
        return cells.join(u'\t');
    }

private:
    const Pair& pairOf(const QString& sample, const QString& method) {
        const QString key = sample + u'\n' + method;
        auto found = pairs_.find(key);
        if (found != pairs_.end()) return found->second;
        Pair pair;
        setListText(*form_.cboSample, sample);
        SampleClick(form_);
        if (form_.cboMethod->findText(method, Qt::MatchExactly) < 0) {
            pair.failure = withTokens(18031, {{"<NAME>", method}});
        } else {
            setListText(*form_.cboMethod, method);
            ClearList(*form_.cboVialNum);  // nothing left from the pair before
            form_.txtInjType->clear();
            boxes_.take();
            MethodClick(form_);
            const QString said = boxes_.take();
            for (int i = 0; i < form_.cboVialNum->count(); ++i)
                pair.vials << form_.cboVialNum->itemText(i);
            if (pair.vials.isEmpty())
                pair.failure = said.isEmpty() ? GetResourceString(17219) : said;
            pair.defaultVial = form_.cboVialNum->currentText();
            pair.injectionType = form_.txtInjType->text();
            pair.counter = GetPvtProfileStr(pairSection(form_), profile::DataFileNaming,
                                            App.GlblIniFile) == profile::PrefixCounter;
        }
        return pairs_.emplace(key, std::move(pair)).first->second;
    }

    CapturedBoxes boxes_;
    FrmRnTblAdd form_;
    std::map<QString, Pair> pairs_;
};

// Which table column each worklist column is; a whole-file fault as text.
QString mapHeader(const QStringList& header, std::vector<int>& columnOf) {
    const QStringList names = columnNames();
    QStringList unknown, twice;
    std::vector<bool> seen(10, false);
    for (const QString& field : header) {
        int column = -1;
        for (int c = 0; c < 10 && column < 0; ++c)
            if (Trim(field).compare(Trim(names[c]), Qt::CaseInsensitive) == 0) column = c;
        if (column < 0)
            unknown << field;
        else if (seen[column])
            twice << field;
        else
            seen[column] = true;
        columnOf.push_back(column);
    }
    if (!unknown.isEmpty())
        return withTokens(18025, {{"<NAME>", unknown.join(QStringLiteral(", "))}});
    if (!twice.isEmpty()) return withTokens(18037, {{"<NAME>", twice.join(QStringLiteral(", "))}});
    QStringList missing;
    for (int c : {ColSample, ColMethod, ColSampleId, ColDataFile})
        if (!seen[c]) missing << names[c];
    if (!missing.isEmpty())
        return withTokens(18024, {{"<NAME>", missing.join(QStringLiteral(", "))}});
    return {};
}

void importBytes(const QByteArray& bytes) {
    const CsvRead csv = readCsv(bytes);
    if (csv.error == CsvError::Empty) return tell(GetResourceString(18022), 18010);
    if (csv.error == CsvError::UnclosedQuote)
        return tell(withTokens(18023, {{"<LINE>", QString::number(csv.errorLine)}}), 18010);
    std::vector<int> columnOf;
    const QStringList& header = csv.records.front().fields;
    const QString fault = mapHeader(header, columnOf);
    if (!fault.isEmpty()) return tell(fault, 18010);
    const int total = int(csv.records.size()) - 1;
    if (total == 0) return tell(GetResourceString(18022), 18010);
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    if (grid.Rows() - 1 + total > MaxRuns)
        return tell(withTokens(18026, {{"<NUMBER>", QString::number(total)}}), 18010);

    QStringList failures;
    int added = 0;
    {
        // The checks' boxes are taken as reasons only while the checker lives.
        RowChecker checker;
        for (size_t r = 1; r < csv.records.size(); ++r) {
            const CsvRecord& record = csv.records[r];
            QString reason;
            QString line;
            if (record.fields.size() != header.size()) {
                reason = withTokens(18029, {{"<NUMBER>", QString::number(record.fields.size())},
                                            {"<NAME>", QString::number(header.size())}});
            } else {
                QStringList cells(10);
                for (qsizetype f = 0; f < record.fields.size(); ++f)
                    if (columnOf[f] >= 0) cells[columnOf[f]] = record.fields[f];
                cells[ColRunNumber] = QString::number(grid.Rows());
                line = checker.check(cells, reason);
            }
            if (line.isEmpty()) {
                failures << withTokens(
                    18028, {{"<LINE>", QString::number(record.line)}, {"<REASON>", reason}});
                continue;
            }
            grid.AddItem(line);
            ++added;
        }
    }
    if (added > 0) {
        RenumberRunTable(grid);
        enableTableCommands();
        SelectRunTableRow(grid, static_cast<std::int16_t>(grid.Rows() - 1));
    }
    if (failures.isEmpty()) {
        dialogs().messageBox(BoxStyle::Plain,
                             withTokens(18036, {{"<NUMBER>", QString::number(added)}}),
                             GetResourceString(18010));
        return;
    }
    QStringList report{withTokens(
        18027, {{"<NUMBER>", QString::number(added)}, {"<NAME>", QString::number(total)}})};
    report << failures.mid(0, ReportedFailures);
    if (failures.size() > ReportedFailures)
        report << withTokens(18035,
                             {{"<NUMBER>", QString::number(failures.size() - ReportedFailures)}});
    tell(report.join(u'\n'), 18010);
}

}  // namespace

void ImportWorklistFile(const QString& path) {
    handled("ImportWorklist", [&] {
        if (walking()) return tell(GetResourceString(18020), 18010);
        if (frmORQ().cboOperator->currentText().isEmpty())
            return tell(GetResourceString(18021), 18010);
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) return tell(GetResourceString(18014), 18010);
        const QByteArray bytes = file.readAll();
        if (file.error() != QFileDevice::NoError) return tell(GetResourceString(18014), 18010);
        importBytes(bytes);
    });
}

void ImportWorklist() {
    const QString path = dialogs().openFileName(GetResourceString(18010), GetResourceString(18007));
    if (!path.isEmpty()) ImportWorklistFile(path);
}

bool ExportWorklistFile(const QString& path) {
    bool written = false;
    handled("ExportWorklist", [&] {
        std::vector<QStringList> records{columnNames()};
        for (const RunTableRow& row : snapshotOf(frmORQ().fgrdRunTable->grid()).rows)
            records.emplace_back(row.cells.begin(), row.cells.end());
        written = replaceFileSafely(path, writeCsv(records));
        if (!written) tell(GetResourceString(18019), 18011);
    });
    return written;
}

void ExportWorklist() {
    QString path = dialogs().saveFileName(GetResourceString(18011), GetResourceString(18007),
                                          QStringLiteral("worklist.csv"));
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".csv");
    ExportWorklistFile(path);
}

}  // namespace sidekin
