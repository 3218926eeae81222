// The Add form: checks before a row enters the table, additions, field limits, help; the Edit
// form: showing a row, walking, and what Replace does with a row's name.
#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "AppState.h"
#include "EntryFixture.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "Profile.h"
#include "RunTable.h"
#include "RunTableColumns.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class EntryAddTest : public EntryFixture {
protected:
    FrmRnTblAdd& form() { return frmRnTblAdd(); }
    FlexGrid& grid() { return frmORQ().fgrdRunTable->grid(); }
    QStringList column(int col) {
        QStringList cells;
        for (int r = 1; r < grid().Rows(); ++r) cells << grid().TextMatrix(r, col);
        return cells;
    }
    void ready(const QString& sample, const QString& method, const QString& count) {
        choose(form(), sample, method);
        form().txtSampleID->setText("S1");
        form().cboInjVial->setEditText(count);
        dialogs.shown.clear();
    }
    QString box(int title, int id, const char* token = nullptr, const QString& value = {}) const {
        return text(title) + ": " + message(id, token, value);
    }
};

TEST_F(EntryAddTest, EachPressReportsOnlyTheFirstFault) {
    connect();
    QDir(App.GlblOrqDir).mkdir("BUSY");  // the host cannot create a file of this name
    addRun("FRONTSTD", 17044, "1", "TAKEN");
    FrmRnTblAdd& f = form();
    QWidget* stays = nullptr;
    const struct {
        std::function<void()> change;
        QString box;
        QWidget* focus;
    } steps[] = {
        {[] {}, box(17264, 17208), stays},
        {[&] { f.cboSample->setCurrentText("Calibration Mix"); }, box(17264, 17209), stays},
        {[&] { f.cboMethod->setCurrentText("FRONTSTD"); }, box(17264, 17210), f.txtSampleID},
        {[&] { f.txtSampleID->setText("S1"), f.txtDataFile->setText("   "); }, box(17264, 17211),
         stays},
        {[&] { f.txtDataFile->setText("BUSY"); }, box(17260, 17212), f.txtDataFile},
        {[&] { f.txtDataFile->setText("TAKEN"); }, box(17263, 17213), f.txtDataFile},
        {[&] { f.txtDataFile->setText("FREE"), f.txtSampleAmt->setText("abc"); }, box(17260, 17229),
         f.txtSampleAmt},
        {[&] { f.txtSampleAmt->setText(" 0 "), f.txtISTDAmt->setText("-1"); }, box(17260, 17230),
         f.txtISTDAmt},
        {[&] { f.txtISTDAmt->setText("3.402823E+38"); }, box(17260, 17230), f.txtISTDAmt},
    };
    f.cboInjVial->setEditText("1");
    f.show();
    for (const auto& step : steps) {
        step.change();
        dialogs.shown.clear();
        QWidget* before = f.focusWidget();
        f.cmdAdd->click();
        EXPECT_EQ(boxes(), QStringList{step.box});
        EXPECT_EQ(f.focusWidget(), step.focus ? step.focus : before) << step.box.toStdString();
        if (auto* field = qobject_cast<QLineEdit*>(step.focus)) {  // selected, to type over
            EXPECT_EQ(field->selectedText(), field->text()) << step.box.toStdString();
        }
    }
    EXPECT_EQ(grid().Rows(), 2);
    f.txtISTDAmt->setText("1E38");
    f.cboInjVial->setEditText("1");  // the method's default was 3
    dialogs.shown.clear();
    f.cmdAdd->click();
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(column(6), (QStringList{"TAKEN", "FREE"}));
}

TEST_F(EntryAddTest, CounterPairTakesOneNamePerInjection) {
    connect();
    ready("Solvent Blank", "FRONTSTD", "3");
    addRun("FRONTSTD", 17044, "1", "BLKF000001");  // a name the counter will meet
    form().cmdAdd->click();
    EXPECT_TRUE(boxes().isEmpty());
    EXPECT_EQ(column(6), (QStringList{"BLKF000001", "BLKF000000", "BLKF000002", "BLKF000003"}));
    EXPECT_EQ(column(0), (QStringList{"1", "2", "3", "4"}));
    EXPECT_EQ(form().txtDataFile->text(), "BLKF000004");
    EXPECT_EQ(GetPvtProfileStr("Solvent Blank,FRONTSTD", "DataFile", App.GlblIniFile), "BLKF,4");
    EXPECT_EQ(grid().RowSel(), 4);
}

TEST_F(EntryAddTest, ManualPairPromptsForEachFurtherName) {
    connect();
    ready("Calibration Mix", "FRONTSTD", "3");
    form().txtSampleInfo->setPlainText("a\tb");
    dialogs.answerInput("CAL02");
    dialogs.answerInput("CAL03");
    form().cmdAdd->click();
    const QString title = text(17121);
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Input, BoxStyle::Plain,
                                   message(17120, "<NUMBER1>", "2", "<NUMBER2>", "3"), title},
                                  {Shown::Input, BoxStyle::Plain,
                                   message(17120, "<NUMBER1>", "3", "<NUMBER2>", "3"), title}}));
    EXPECT_EQ(column(6), (QStringList{"CAL01", "CAL02", "CAL03"}));
    EXPECT_EQ(column(9).first(), "a       b");
    EXPECT_EQ(form().txtSampleInfo->toPlainText(), "a\tb");
}

TEST_F(EntryAddTest, RefusedAndCancelledPromptsEndTheAddition) {
    connect();
    ready("Calibration Mix", "FRONTSTD", "2");
    for (const char* answer : {"CAL01", "bad*", ""}) dialogs.answerInput(answer);
    form().cmdAdd->click();
    EXPECT_EQ(boxes(), (QStringList{box(17263, 17213), box(17260, 17225)}));
    EXPECT_EQ(column(6), QStringList{"CAL01"});
    EXPECT_EQ(form().txtDataFile->text(), "CAL01");

    dialogs.shown.clear();
    for (int i = 0; i < 6; ++i) dialogs.answerInput("CAL01");
    form().txtDataFile->setText("CAL09");
    form().cmdAdd->click();
    EXPECT_EQ(boxes().size(), 7);
    EXPECT_EQ(boxes().last(), box(17260, 17227));
    EXPECT_EQ(column(6), (QStringList{"CAL01", "CAL09"}));
}

TEST_F(EntryAddTest, InjectionCountsBelowOneAddNothing) {
    connect();
    for (auto [count, box] :
         {std::pair<const char*, QStringList>{"abc", {"cmdAdd_Click: Type mismatch"}},
          {"0", {}},
          {"-1", {}}}) {
        ready("Solvent Blank", "FRONTSTD", count);
        form().cmdAdd->click();
        EXPECT_EQ(boxes(), box) << count;
        EXPECT_EQ(grid().Rows(), 1) << count;
    }
    form().btnClear->click();  // cleared, the same sample fills its methods again
    choose(form(), "Solvent Blank");
    EXPECT_TRUE(items(*form().cboMethod).contains("FRONTSTD"));
}

TEST_F(EntryAddTest, FieldLimits) {
    connect();
    choose(form(), "Calibration Mix", "FRONTSTD");
    FrmRnTblAdd& f = form();
    const QString id17 = "ABCDEFGHIJKLMNOPQ";
    const struct {
        const char* name;
        std::function<void(const QString&)> type;
        std::function<QString()> read;
        QString typed, kept;
        QStringList boxes;
        // clang-format off
    } limits[] = {
        {"sample_id_17th", [&](auto& t) { f.txtSampleID->setText(t); },
         [&] { return f.txtSampleID->text(); }, id17, id17.left(16),
         {box(17260, 17224, "<NUMBER>", "16")}},
        {"amount_13th_vanishes", [&](auto& t) { f.txtSampleAmt->setText(t); },
         [&] { return f.txtSampleAmt->text(); }, "1234567890123", "123456789012", {}},
        {"amount_leading_blank_not_counted", [&](auto& t) { f.txtISTDAmt->setText(t); },
         [&] { return f.txtISTDAmt->text(); }, " 123456789012", " 123456789012", {}},
        {"data_file_cut_at_bad_character", [&](auto& t) { f.txtDataFile->setText(t); },
         [&] { return f.txtDataFile->text(); }, "AB*C", "AB", {box(17260, 17225)}},
        {"injections_three_digits", [&](auto& t) { f.cboInjVial->setEditText(t); },
         [&] { return f.cboInjVial->currentText(); }, "123", "123", {box(17260, 17228)}},
        {"injections_empty", [&](auto& t) { f.cboInjVial->setEditText(t); },
         [&] { return f.cboInjVial->currentText(); }, "", "", {box(17260, 17228)}},
    };
    // clang-format on
    for (const auto& l : limits) {
        dialogs.shown.clear();
        l.type(l.typed);
        EXPECT_EQ(l.read(), l.kept) << l.name;
        EXPECT_EQ(boxes(), l.boxes) << l.name;
    }
    // Only a cut amount takes the focus and puts the caret behind the text.
    f.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
    f.txtSampleID->setFocus();
    f.txtSampleAmt->setText("12345");
    EXPECT_TRUE(f.txtSampleID->hasFocus());
    f.txtSampleAmt->setFocus();
    f.txtSampleAmt->setCursorPosition(2);
    QTest::keyClick(f.txtSampleAmt, '9');
    EXPECT_EQ(f.txtSampleAmt->text(), "129345");
    EXPECT_EQ(f.txtSampleAmt->cursorPosition(), 3);
    f.txtSampleID->setFocus();
    f.txtISTDAmt->setText("1234567890123");
    EXPECT_TRUE(f.txtISTDAmt->hasFocus());
    EXPECT_EQ(f.txtISTDAmt->cursorPosition(), 12);
    QTest::keyClick(f.txtISTDAmt, Qt::Key_Return);  // moves on, as Tab does
    EXPECT_TRUE(QTest::qWaitFor([&] { return !f.txtISTDAmt->hasFocus(); }));
    f.hide();
}

TEST_F(EntryAddTest, F1HelpFallsBackToEnglishThenSaysSo) {
    connect();
    dialogs.helpOpens = false;
    const struct {
        QLocale locale;
        QWidget* form;
        Shown first, retry;
        // clang-format off
    } cases[] = {
        {QLocale(QLocale::Japanese), frmRnTblAdd().txtSampleID, {Shown::Help, {}, "helpenu/ja/Zentro.chm",
         "662573707--v1.htm"}, {Shown::Help, {}, "helpenu/Zentro.chm", "662573707--v2.htm"}},
        {QLocale(QLocale::German), frmRnTblEdit().txtSampleID, {Shown::Help, {}, "helpenu/Zentro.chm",
         "662574987--v2.htm"}, {Shown::Help, {}, "helpenu/Zentro.chm", "662574987--v2.htm"}},
        {QLocale(QLocale::Chinese), frmORQ().cboOperator, {Shown::Help, {},
         "helpenu/zh-CHS/Zentro.chm", "662742667--v1.htm"}, {Shown::Help, {}, "helpenu/Zentro.chm",
         "662742667--v1.htm"}},
    };
    // clang-format on
    const QLocale previous;
    for (const auto& c : cases) {
        QLocale::setDefault(c.locale);
        dialogs.shown.clear();
        QTest::keyClick(c.form, Qt::Key_F1);
        EXPECT_EQ(dialogs.shown,
                  (std::vector<Shown>{
                      c.first, c.retry, {Shown::Box, BoxStyle::Plain, text(17324), "Error"}}));
    }
    QLocale::setDefault(previous);
}

class EntryEditTest : public EntryFixture {
public:
    FlexGrid& grid() { return frmORQ().fgrdRunTable->grid(); }

protected:
    // Rows added through the Add form, then the Edit form opened on row.
    void addThenEdit(const QString& sample, const QString& method, const QString& count, int row) {
        choose(frmRnTblAdd(), sample, method);
        frmRnTblAdd().txtSampleID->setText("S1");
        frmRnTblAdd().cboInjVial->setEditText(count);
        frmRnTblAdd().cmdAdd->click();
        SelectRunTableRow(grid(), row);
        App.GlblEditOpen = 1;
        frmRnTblEdit().show();
        dialogs.shown.clear();
    }
    QString counter() const {
        return GetPvtProfileStr("Solvent Blank,FRONTSTD", "DataFile", App.GlblIniFile);
    }
};

TEST_F(EntryEditTest, ActivationFillsTheFormOnce) {
    connect();
    addThenEdit("Calibration Mix", "FRONTSTD", "1", 1);
    FrmRnTblEdit& edit = frmRnTblEdit();  // what it shows: the pictures; this is hidden
    EXPECT_EQ(edit.txtInjType->text(), text(17044));
    EXPECT_EQ(App.GlblEditOpen, 0);
    edit.txtSampleID->setText("typed");
    edit.hide();
    edit.show();
    EXPECT_EQ(edit.txtSampleID->text(), "typed");
}

TEST_F(EntryEditTest, TheVialCaptionAndTipFollowTheRowsInjectionType) {
    connect();
    frmRnTblEdit().btnReplace->click();  // an empty table: nothing to replace, nothing to say
    EXPECT_EQ(grid().Rows(), 1);
    EXPECT_TRUE(dialogs.shown.empty());
    addThenEdit("Calibration Mix", "FRONTSTD", "1", 1);
    FrmRnTblEdit& edit = frmRnTblEdit();
    const int types[][3] = {{17048, 17059, 17159},
                            {17044, 17061, 17161},
                            {17045, 17062, 17162},
                            {17046, 17060, 17160},
                            {17047, 17063, 17163}};
    for (const auto& [type, caption, tip] : types) {
        edit.hide();
        grid().setTextMatrix(1, ColInjectionType, text(type));
        App.GlblEditOpen = 1;
        edit.show();
        EXPECT_EQ(edit.lblVial->text(), text(caption)) << type;
        EXPECT_EQ(edit.cboVialNum->toolTip(), text(tip)) << type;
    }
}

TEST_F(EntryEditTest, WalkStopsAtBothEnds) {
    connect();
    addThenEdit("Solvent Blank", "FRONTSTD", "2", 1);
    FrmRnTblEdit& edit = frmRnTblEdit();
    edit.btnPrevious->click();
    EXPECT_EQ(grid().RowSel(), 1);
    edit.btnNext->click();
    EXPECT_EQ(grid().RowSel(), 2);
    EXPECT_EQ(edit.txtDataFile->text(), "BLKF000001");
    edit.btnNext->click();
    EXPECT_EQ(grid().RowSel(), 2);
    EXPECT_EQ(grid().Col(), 2);
}

TEST_F(EntryEditTest, ReplaceKeepsOrRenewsTheName) {
    const struct {
        const char* name;
        std::function<void(EntryEditTest&)> change;
        QString dataFile, counter;
        // clang-format off
    } cases[] = {
        {"unchanged_counter_row_keeps_name",
         [](auto&) { frmRnTblEdit().txtSampleID->setText("S2"); }, "BLKF000000", "BLKF,2"},
        {"completed_current_cell_takes_number",
         [](auto& t) { ColorRunTableRow(t.grid(), 1, RnTblColorCompleted); }, "BLKF000002",
         "BLKF,3"},
        {"name_of_another_row_takes_number",
         [](auto& t) { t.grid().setTextMatrix(2, ColDataFile, "BLKF000000"); }, "BLKF000002",
         "BLKF,3"},
        {"edited_name_differs_from_cell_takes_number",
         [](auto&) { frmRnTblEdit().txtDataFile->setText("OTHER"); }, "BLKF000002", "BLKF,3"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        connect();
        addThenEdit("Solvent Blank", "FRONTSTD", "2", 1);
        c.change(*this);
        frmRnTblEdit().btnReplace->click();
        EXPECT_TRUE(boxes().isEmpty()) << boxes().join('\n').toStdString();
        EXPECT_EQ(grid().TextMatrix(1, ColDataFile), c.dataFile);
        EXPECT_EQ(grid().TextMatrix(1, ColRunNumber), "1");
        EXPECT_EQ(grid().Rows(), 3);
        EXPECT_EQ(grid().cellBackColor(1, 0), 0u);
        EXPECT_EQ(counter(), c.counter);
        TearDown();
        SetUp();
    }
}

TEST_F(EntryEditTest, ReplacingTheOnlyRowKeepsOneRow) {
    connect();
    addThenEdit("Calibration Mix", "FRONTSTD", "1", 1);
    frmORQ().cmdRnTblEdit->setEnabled(false);
    frmRnTblEdit().txtSampleID->setText("S9");
    frmRnTblEdit().btnReplace->click();
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(grid().TextMatrix(1, ColRunNumber), "1");
    EXPECT_EQ(grid().TextMatrix(1, ColSampleId), "S9");
    EXPECT_TRUE(frmORQ().cmdRnTblEdit->isEnabled());
    EXPECT_FALSE(frmORQ().txtSubDir->isHidden());
}

TEST_F(EntryEditTest, RefusedReplaceResetsInjectionsOnly) {
    connect();
    addThenEdit("Calibration Mix", "FRONTSTD", "1", 1);
    FrmRnTblEdit& edit = frmRnTblEdit();
    edit.cboInjVial->setEditText("5");
    edit.txtSampleID->setText(" ");
    edit.btnReplace->click();
    EXPECT_EQ(boxes(), QStringList{text(17264) + ": " + text(17210)});
    EXPECT_EQ(edit.cboInjVial->currentText(), "1");
    EXPECT_EQ(grid().TextMatrix(1, ColSampleId), "S1");
}

TEST_F(EntryEditTest, EditOpensOnlyOnARowStillToCome) {
    connect();
    addThenEdit("Solvent Blank", "FRONTSTD", "2", 1);
    frmRnTblEdit().hide();
    App.GlblCurrentRun = 1;
    const Shown edit{Shown::Modal, {}, "frmRnTblEdit", "frmORQ"};
    const Shown refused{Shown::Box, BoxStyle::ExclamationOk, text(17203), text(17262)};
    for (auto [row, expected] : {std::pair{1, refused}, {2, edit}}) {
        SelectRunTableRow(grid(), static_cast<std::int16_t>(row));
        dialogs.shown.clear();
        App.GlblEditOpen = 0;
        // A table with runs opens Edit, wherever the double click fell: here the header row.
        QTest::mouseDClick(frmORQ().fgrdRunTable->horizontalHeader()->viewport(), Qt::LeftButton,
                           {}, QPoint(30, 5));
        EXPECT_EQ(dialogs.shown, std::vector<Shown>{expected}) << row;
        EXPECT_EQ(App.GlblEditOpen, row == 2 ? 1 : 0) << row;
    }
    frmORQ().cmdRnTblEdit->setEnabled(false);  // as during a run: nothing at all
    dialogs.shown.clear();
    frmORQ().cmdRnTblEdit->click();
    emit frmORQ().fgrdRunTable->DblClick();
    EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
