#include "RunTablePrint.h"

#include <QComboBox>
#include <QLineEdit>
#include <array>

#include "AppState.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "NameRules.h"
#include "PrinterObject.h"
#include "platform/Clock.h"
#include "platform/Conversions.h"
#include "platform/DateFormats.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

constexpr int InformationWidth = 80;

// Everything the report says besides the cells, read before the printer is touched.
struct Report {
    QString title, subDirLabel, operatorLabel, instrumentLabel;
    std::array<QString, 10> fieldNames;
    QString dateLine, instrument, subDir, operatorName;
};

QString word(std::int32_t id) { return Trim(GetResourceString(id)); }

// The caption's access-key mark is no part of the word.
QString captionWord(std::int32_t id) {
    return Trim(ReplaceString(GetResourceString(id), QStringLiteral("&"), QString()));
}

Report gather() {
    Report r;
    r.title = word(17006);
    r.subDirLabel = captionWord(17008);
    r.operatorLabel = captionWord(17007);
    r.instrumentLabel = word(17290);
    for (int field = 0; field < 10; ++field) r.fieldNames[field] = word(17025 + field);
    r.dateLine = FormatDate(clock().now(), QStringLiteral("dddddd")) + QStringLiteral("  ") +
                 FormatDate(clock().now(), QStringLiteral("ttttt"));
    r.instrument = QString::number(App.GlblInstrument);
    r.subDir = frmORQ().txtSubDir->text();
    r.operatorName = frmORQ().cboOperator->currentText();
    return r;
}

void setFont(PrinterObject& printer, double size, bool bold) {
    printer.Font.Name = QStringLiteral("Courier New");
    printer.Font.Size = size;
    printer.Font.Bold = bold;
}

// Long information in lines of at most 80 characters: at a return, else at the
// last blank, else hard; the last piece goes to PrintIntended.
void printInformation(PrinterObject& printer, const QString& cell) {
    QString rest = cell;
    while (!rest.isEmpty()) {
        if (rest.size() <= InformationWidth) {
            PrintIntended(rest);
            return;
        }
        const QString head = Left(rest, InformationWidth);
        const int cr = InStr(head, QStringLiteral("\r"));
        if (cr > 0) {
            // The return and the line feed taken to follow it.
            printer.PrintTab(9, Left(rest, cr - 1));
            rest = Mid(rest, cr + 2);
            continue;
        }
        const int blank = static_cast<int>(head.lastIndexOf(QLatin1Char(' '))) + 1;
        if (blank > 0) {
            printer.PrintTab(9, Left(head, blank - 1));
            rest = Mid(rest, blank + 1);
            continue;
        }
        printer.PrintTab(9, head);
        rest = Mid(rest, InformationWidth + 1);
    }
}

void printReport(const Report& r) {
    const FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    PrinterObject& printer = Printer();
    setFont(printer, 14, true);
    printer.Font.Charset = App.GlblFontCharset;
    printer.Print(QString(24, QLatin1Char(' ')) + QStringLiteral("Zentrovar Sidekin"));

    setFont(printer, 12, false);
    printer.Print(r.dateLine);
    printer.Print();
    printer.Print(r.title);
    printer.Print();
    printer.Print(r.instrumentLabel + QStringLiteral(": ") + r.instrument);
    printer.Print(r.operatorLabel + QStringLiteral(": ") + r.operatorName);
    printer.Print(r.subDirLabel + QStringLiteral(": ") + r.subDir);

    setFont(printer, 10, false);
    printer.Font.Charset = App.GlblFontCharset;
    for (int row = 1; row <= grid.Rows() - 1; ++row) {
        printer.Print();
        printer.PrintTab(3, r.fieldNames[0] + QStringLiteral(": ") + grid.TextMatrix(row, 0));
        for (int col = 1; col <= 8; ++col)
            printer.PrintTab(6,
                             r.fieldNames[col] + QStringLiteral(": ") + grid.TextMatrix(row, col));
        printer.PrintTab(6, r.fieldNames[9] + QStringLiteral(": "));
        printInformation(printer, grid.TextMatrix(row, 9));
    }
    printer.EndDoc();
}

}  // namespace

void cmdRnTblPrint_Click() {
    handled("cmdRnTblPrint_Click", [] { PrintTable(); });
}

void PrintTable() {
    Report report;
    bool gathered = false;
    handled("PrintTable", [&] {
        FlexGrid& grid = frmORQ().fgrdRunTable->grid();
        App.GlblFontCharset = CInt(Val(GetResourceString(17320)));
        grid.setFontCharset(App.GlblFontCharset);
        if (grid.Rows() < 2) return;
        report = gather();
        gathered = true;
    });
    if (!gathered) return;

    try {
        printReport(report);
    } catch (const RuntimeError& error) {
        // The job stays open: no EndDoc after a failure.
        dialogs().messageBox(
            BoxStyle::ExclamationOk,
            ResourceWithTokens(17231, QStringLiteral("<NUMBER>"), QString::number(error.number())),
            GetResourceString(17268));
    }
}

void PrintIntended(const QString& text) {
    handled("PrintIntended", [&] {
        const QString indent(9, QLatin1Char(' '));
        // ReplaceString starts over after each replacement, so a line feed put
        // back with the indent would be found again: go through a token.
        QString lines = ReplaceString(text, QStringLiteral("\n"), QStringLiteral("<LF>"));
        lines = ReplaceString(lines, QStringLiteral("<LF>"), QStringLiteral("\n") + indent);
        Printer().Print(indent + lines);
    });
}

}  // namespace sidekin
