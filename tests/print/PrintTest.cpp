// The printed run table, read back from the PDF it makes: to a file through
// the scripted printer, and once through the system's default printer (CUPS).
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QLocale>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QSignalBlocker>

#include "AppState.h"
#include "FlexGridView.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "PrinterObject.h"
#include "QtOperatorDialogs.h"
#include "WaitUntil.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

QString text(int id) { return GetResourceString(id).trimmed(); }

// The text of the PDF on a grid of 6 pt, one character of the 10 pt runs.
QStringList pdfLines(const QString& pdf) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {"-fixed", "6", pdf, "-"});
    p.waitForFinished(20000);
    return QString::fromUtf8(p.readAllStandardOutput()).remove(QLatin1Char('\f')).split('\n');
}

qsizetype indentOf(const QString& line) { return line.size() - QString(line).trimmed().size(); }

class PrintTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        App.GlblInstrument = 3;
        FrmOrq& f = frmORQ();
        const QSignalBlocker quietOperator(f.cboOperator), quietSubDir(f.txtSubDir);
        f.cboOperator->addItem(QStringLiteral("A&B"));
        f.txtSubDir->setText(QStringLiteral("Q&A"));
        f.cmdRnTblPrint->setEnabled(true);
        file.setOutputFormat(QPrinter::PdfFormat);
        file.setOutputFileName(folder.file(QStringLiteral("table.pdf")));
        dialogs.printerToGive = &file;
    }
    void addRun(const QString& information) {
        FlexGrid& grid = frmORQ().fgrdRunTable->grid();
        grid.AddItem(QStringLiteral("%1\tOil\tFAME\tS-1\t%2\t12\tOIL0001\t1.5\t0.25\t")
                         .arg(grid.Rows())
                         .arg(text(17044)));
        grid.setTextMatrix(grid.Rows() - 1, 9, information);
    }
    void print() { frmORQ().cmdRnTblPrint->click(); }

    QPrinter file{QPrinter::HighResolution};
    TempFolder folder;
};

TEST_F(PrintTest, HeadingAndOneBlockPerRunWithTheInformationWrapped) {
    const QString eighty = QStringLiteral("abcd ").repeated(15) + QStringLiteral("abcde");
    const QString x80(80, QLatin1Char('x'));
    // Each printed line of the information as "print column|text".
    const struct {
        const char* name;
        QString information;
        QStringList lines;
    } cases[] = {
        {"empty", "", {}},
        {"short", "one piece", {"10|one piece"}},
        {"CR LF", "first\r\nsecond", {"10|first", "10|second"}},
        {"LF", "first\nsecond", {"10|first", "10|second"}},
        {"tab", "a\tb", {"10|a b"}},
        {"exactly 80", eighty, {"10|" + eighty}},
        {"81 wraps at the last blank", eighty + "f", {"9|" + eighty.left(74), "10|abcdef"}},
        {"81 without blanks", x80 + "y", {"9|" + x80, "10|y"}},
        {"return at 1", "\r\n" + x80 + "yz", {"9|", "9|" + x80, "10|yz"}},
    };
    for (const auto& c : cases) addRun(c.information);
    print();
    EXPECT_TRUE(dialogs.boxTitles().isEmpty()) << dialogs.boxTitles().join(", ").toStdString();

    const QStringList lines = pdfLines(file.outputFileName());
    const QString all = lines.join('\n').simplified();
    for (const QString& expected :
         QStringList{QStringLiteral("Zentrovar Sidekin"), text(17006),
                     QLocale::system().toString(clock.now().date(), QLocale::LongFormat),
                     text(17290) + ": " + QString::number(App.GlblInstrument),
                     text(17007).remove('&') + ": A&B", text(17008).remove('&') + ": Q&A"})
        EXPECT_TRUE(all.contains(expected)) << expected.toStdString();

    // Each block: the run, eight fields and the label at Tab(6), then the information.
    qsizetype at = 0;
    for (std::size_t row = 0; row < std::size(cases); ++row) {
        SCOPED_TRACE(cases[row].name);
        const QString run = text(17025) + ": " + QString::number(row + 1);
        while (at < lines.size() && lines[at].trimmed() != run) ++at;
        ASSERT_LT(at + 9, lines.size());
        const qsizetype left = indentOf(lines[at]) - 2;  // Tab(3)
        EXPECT_EQ(lines[at + 4], QString(left + 5, ' ') + text(17029) + ": " + text(17044));
        EXPECT_EQ(lines[at + 9].trimmed(), text(17034) + ":");
        EXPECT_EQ(indentOf(lines[at + 9]), left + 5);
        QStringList printed;
        for (at += 10; at < lines.size() && !lines[at].contains(text(17025) + ":"); ++at)
            printed << QString::number(lines[at].isEmpty() ? 9 : indentOf(lines[at]) - left + 1) +
                           "|" + lines[at].trimmed();
        while (printed.endsWith("9|")) printed.removeLast();
        EXPECT_EQ(printed, cases[row].lines);
    }
}

// A printer that breaks after 25 lines.
struct BrokenPrinter : PrinterObject {
    void PrintTab(int, const QString& text) override {
        if (printed.size() == 25) raiseError(ErrPrinter);
        printed << text;
    }
    void EndDoc() override { ended = true; }
    QStringList printed;
    bool ended = false;
};

TEST_F(PrintTest, AnEmptyTableOrAFailingPrinter) {
    const Shown asked{Shown::Printer, {}, {}, {}},
        failed{Shown::Box, BoxStyle::ExclamationOk,
               ResourceWithTokens(17231, "<NUMBER>", QString::number(ErrPrinter)),
               GetResourceString(17268)};
    QPrinter refusing{QPrinter::HighResolution};
    refusing.setOutputFileName(folder.file(QStringLiteral("no such folder/table.pdf")));
    BrokenPrinter broken;
    const struct {
        const char* name;
        int runs;
        QPrinter* printer;
        PrinterObject* object;
        std::vector<Shown> shown;
    } cases[] = {
        {"empty table", 0, &file, nullptr, {}},
        {"no default printer", 1, nullptr, nullptr, {asked, failed}},
        {"printer refuses the job", 1, &refusing, nullptr, {asked, failed}},
        {"printer breaks in the second run", 3, nullptr, &broken, {failed}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        frmORQ().fgrdRunTable->grid().setRows(1);
        for (int run = 0; run < c.runs; ++run) addRun(QStringLiteral("info"));
        dialogs.shown.clear();
        dialogs.printerToGive = c.printer;
        setPrinter(c.object);
        print();
        setPrinter(nullptr);
        EXPECT_EQ(dialogs.shown, c.shown);
    }
    EXPECT_FALSE(QFile::exists(file.outputFileName()));
    EXPECT_EQ(broken.printed.size(), 25);
    EXPECT_FALSE(broken.ended);
}

TEST_F(PrintTest, TheTableReachesTheDefaultPrinter) {
    // Where the CUPS queue writes (scripts/cups-pdf-queue.sh).
    const QDir out(qEnvironmentVariable("SIDEKIN_PRINT_OUT", "/var/spool/sidekin-pdf"));
    QtOperatorDialogs system;
    dialogs.printerToGive = system.printer();
    ASSERT_NE(dialogs.printerToGive, nullptr)
        << "No default printer: scripts/cups-pdf-queue.sh (run by scripts/test.sh) sets up CUPS";
    ASSERT_TRUE(out.exists()) << "No cups-pdf output folder " << out.path().toStdString();
    const QStringList before = out.entryList({QStringLiteral("*.pdf")});
    addRun(QStringLiteral("sent through CUPS"));
    print();
    EXPECT_TRUE(dialogs.boxTitles().isEmpty());
    QString printed;
    EXPECT_TRUE(waitUntil(
        [&] {
            for (const QString& name : out.entryList({QStringLiteral("*.pdf")}))
                if (!before.contains(name)) printed = pdfLines(out.filePath(name)).join(' ');
            return printed.contains(QStringLiteral("sent through CUPS"));
        },
        30000))
        << "Nothing printed into " << out.path().toStdString() << " within 30 s";
}

}  // namespace
