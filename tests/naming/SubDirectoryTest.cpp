#include <QComboBox>
#include <QLineEdit>

#include "AppState.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "SubDirectory.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class SubDirectoryTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        unloadFrmORQ();
        App.GlblIniFile = config.file("ORQ.INI");
        clock.moment = QDateTime(QDate(2009, 12, 22), QTime(10, 0));
        frmORQ().cboOperator->addItem("Smith");
        frmORQ().cboOperator->setCurrentIndex(0);
        frmORQ().txtSubDir->setText("Before");
        dialogs.shown.clear();
    }
    void TearDown() override {
        unloadFrmORQ();
        FormsFixture::TearDown();
    }
    QString propose(const QByteArray& system) {
        config.write("ORQ.INI", "[System]\n" + system);
        SetSubDirectory();
        return frmORQ().txtSubDir->text();
    }
};

TEST_F(SubDirectoryTest, EachModeFormsItsName) {
    struct {
        const char* mode;
        const char* expected;
    } cases[] = {{"Manual", "Lab"},
                 {"FullDate", "20091222"},
                 {"PrefixDate", "Lab091222"},
                 {"PrefixJulian", "Lab2009356"},
                 {"PrefixMonth", "Lab1222"},
                 {"OperatorDate", "Smith091222"},
                 {"OperatorJulian", "Smith2009356"},
                 {"OperatorMonth", "Smith1222"}};
    for (auto c : cases)
        EXPECT_EQ(propose(QByteArray("DataSubDirMode=") + c.mode + "\nDataSubDir= Lab \n"),
                  c.expected)
            << c.mode;
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SubDirectoryTest, NothingStoredMeansManualAndAnEmptyField) { EXPECT_EQ(propose(""), ""); }

TEST_F(SubDirectoryTest, UnknownModeLeavesTheField) {
    EXPECT_EQ(propose("DataSubDirMode=prefixdate\nDataSubDir=Lab\n"), "Before");
    EXPECT_EQ(propose("DataSubDirMode=Weekly\nDataSubDir=Lab\n"), "Before");
}

TEST_F(SubDirectoryTest, LengthCapsAndDayDigits) {
    const QByteArray fifty(50, 'P');
    EXPECT_EQ(propose("DataSubDirMode=PrefixDate\nDataSubDir=" + fifty + "\n"),
              QString(34, u'P') + "091222");
    clock.moment = QDateTime(QDate(2024, 1, 1), QTime(10, 0));
    EXPECT_EQ(propose("DataSubDirMode=PrefixJulian\nDataSubDir=L\n"), "L2024001");
    clock.moment = QDateTime(QDate(2024, 12, 31), QTime(10, 0));
    EXPECT_EQ(propose("DataSubDirMode=PrefixJulian\nDataSubDir=L\n"), "L2024366");
}

TEST_F(SubDirectoryTest, ABlankInTheOperatorCutsTheNameWithAMessage) {
    frmORQ().cboOperator->setItemText(0, "Ana Ruiz");
    EXPECT_EQ(propose("DataSubDirMode=OperatorDate\n"), "Ana");
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Box, BoxStyle::ExclamationOk, GetResourceString(17205),
                                   GetResourceString(17260)}}));
}

}  // namespace
