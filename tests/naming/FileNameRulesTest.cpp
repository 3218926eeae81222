#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "RunTable.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

struct CharCase {
    const char* name;
    QString input;
    bool valid;
    QString after;
};

class IsValidFileCharTest : public ::testing::TestWithParam<CharCase> {};

TEST_P(IsValidFileCharTest, JudgesAndCutsTheName) {
    test::ScriptedDialogs dialogs;
    QString name = GetParam().input;
    EXPECT_EQ(IsValidFileChar(name), GetParam().valid);
    EXPECT_EQ(name, GetParam().after);
    EXPECT_TRUE(dialogs.shown.empty());
}

const QString forty(40, u'a');

INSTANTIATE_TEST_SUITE_P(
    Names, IsValidFileCharTest,
    ::testing::Values(CharCase{"plain", "Run_01", true, "Run_01"},
                      CharCase{"everyPunctuation", "a-_^$~!#&{}@`'()", true, "a-_^$~!#&{}@`'()"},
                      CharCase{"empty", "", true, ""}, CharCase{"fortyPasses", forty, true, forty},
                      CharCase{"fortyOneFailsUntouched", forty + "b", false, forty + "b"},
                      CharCase{"leadingBlanksDroppedSilently", "  abc", true, "abc"},
                      CharCase{"fortyWithLeadingBlankIsTooLong", " " + forty, false, " " + forty},
                      CharCase{"blankBetweenLettersCuts", "a b", false, "a"},
                      CharCase{"leadingDotEmpties", ".abc", false, ""},
                      CharCase{"extensionCut", "run.d", false, "run"},
                      CharCase{"noLocaleLetters", QString::fromUtf8("Prüfung"), false, "Pr"},
                      CharCase{"slashCut", "a/b", false, "a"},
                      CharCase{"percentCut", "50%", false, "50"}),
    [](const auto& info) { return std::string(info.param.name); });

class FileNameTest : public FormsFixture {};

TEST_F(FileNameTest, NamesRefusedBeforeAskingTheHost) {
    for (QString name : {QString(), QString("   "), forty + "x", QString("a b")}) {
        EXPECT_FALSE(IsValidFileName(name)) << name.toStdString();
    }
    EXPECT_TRUE(dialogs.shown.empty());  // no host was asked, so no link error either
}

TEST_F(FileNameTest, TrimmingReachesTheCallersVariable) {
    QString name = QStringLiteral(" ") + forty + QStringLiteral(" x");
    EXPECT_FALSE(IsValidFileName(name));
    EXPECT_EQ(name, forty + " x");
}

TEST_F(FileNameTest, ReplaceStringReplacesEveryOccurrence) {
    EXPECT_EQ(ReplaceString("<N> of <N>", "<N>", "3"), "3 of 3");
    EXPECT_EQ(ReplaceString("no token", "<N>", "3"), "no token");
    EXPECT_EQ(ReplaceString("a\tb", "\t", "       "), "a       b");
    EXPECT_EQ(ReplaceString("<n>", "<N>", "3"), "<n>");  // by character code
    EXPECT_EQ(ReplaceString("", "<N>", "3"), "");
}

TEST_F(FileNameTest, ReturnMovesTheFocusOnButOtherKeysPass) {
    QWidget form;
    auto* first = new QLineEdit(&form);
    auto* second = new QLineEdit(&form);
    auto* layout = new QVBoxLayout(&form);
    layout->addWidget(first);
    layout->addWidget(second);
    form.show();
    QApplication::setActiveWindow(&form);
    first->setFocus();

    std::int16_t key = 65;
    ConvReturn2Tab(key);
    EXPECT_EQ(key, 65);
    QApplication::processEvents();
    EXPECT_TRUE(first->hasFocus());

    key = 13;
    ConvReturn2Tab(key);
    EXPECT_EQ(key, 0);
    QApplication::processEvents();
    EXPECT_TRUE(second->hasFocus());
}

}  // namespace

namespace {

class UniqueToTableTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        unloadFrmORQ();
        for (const char* name : {"RunA", "RunB", "RunC", "runb", ""})
            grid().AddItem(QStringLiteral("0\tOil\tFAME\tS\tT\t1\t") + name);
    }
    void TearDown() override {
        unloadFrmORQ();
        FormsFixture::TearDown();
    }
    FlexGrid& grid() { return frmORQ().fgrdRunTable->grid(); }
};

TEST_F(UniqueToTableTest, ExactWholeNamesCollide) {
    EXPECT_FALSE(FileNameUniqueToTable("RunB", "None"));
    EXPECT_FALSE(FileNameUniqueToTable("runb", "None"));
    EXPECT_TRUE(FileNameUniqueToTable("RUNB", "None"));
    EXPECT_TRUE(FileNameUniqueToTable("Run", "None"));
    EXPECT_FALSE(FileNameUniqueToTable("", "None"));  // the empty cell of row 5
}

TEST_F(UniqueToTableTest, IgSelRowSkipsOnlyTheSelectedRow) {
    SelectRunTableRow(grid(), 3);
    EXPECT_TRUE(FileNameUniqueToTable("RunC", "IgSelRow"));
    EXPECT_FALSE(FileNameUniqueToTable("RunC", "None"));
    EXPECT_FALSE(FileNameUniqueToTable("runb", "IgSelRow"));
}

TEST_F(UniqueToTableTest, AnEmptyTableHasRoomForEveryName) {
    grid().setRows(1);
    EXPECT_TRUE(FileNameUniqueToTable("RunA", "None"));
}

}  // namespace
