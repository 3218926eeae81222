#include <QDir>
#include <QLineEdit>

#include "AppState.h"
#include "DataFileCheck.h"
#include "FlexGridView.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "RunTable.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class DataFileCheckTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        unloadFrmORQ();
        data = config.path() + "/data/";
        App.GlblDataDir = data;
        frmORQ().txtSubDir->setText("Sub");
        for (const char* name : {"RunA", "RunB", "RunC"})
            grid().AddItem(QStringLiteral("0\tOil\tFAME\tS\tT\t1\t") + name);
    }
    void TearDown() override {
        unloadFrmORQ();
        FormsFixture::TearDown();
    }
    FlexGrid& grid() { return frmORQ().fgrdRunTable->grid(); }
    void makeDataFile(const QString& name) { QDir().mkpath(data + "Sub/" + name + ".d"); }
    QString data;
};

TEST_F(DataFileCheckTest, ReportsAndMarksTheComingRowsWhoseFilesExist) {
    makeDataFile("RunB");
    makeDataFile("RunC");
    EXPECT_EQ(DataFileExits(),
              "     Run: 2   Data File Name: RunB\r     Run: 3   Data File Name: RunC\r");
    EXPECT_EQ(grid().cellBackColor(1, 0), RnTblColorNone);
    EXPECT_EQ(grid().cellBackColor(2, 0), RnTblColorFileExists);
    EXPECT_EQ(grid().cellBackColor(3, 1), RnTblColorFileExists);
    EXPECT_NE(grid().cellBackColor(3, 2), RnTblColorFileExists);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(DataFileCheckTest, RowsUpToTheCurrentRunAreLeftAlone) {
    makeDataFile("RunA");
    App.GlblCurrentRun = 1;
    EXPECT_EQ(DataFileExits(), "");
    EXPECT_EQ(grid().cellBackColor(1, 0), 0u);  // never touched
    App.GlblCurrentRun = 3;
    App.GlblDataDir = data;
    EXPECT_EQ(DataFileExits(), "");
}

TEST_F(DataFileCheckTest, TheDataFolderGrowsAtEachCall) {
    makeDataFile("RunA");
    EXPECT_FALSE(DataFileExits().isEmpty());
    EXPECT_EQ(App.GlblDataDir, data + "Sub\\");
    EXPECT_TRUE(DataFileExits().isEmpty());  // now looks in Sub\Sub\ .
    EXPECT_EQ(App.GlblDataDir, data + "Sub\\Sub\\");
    EXPECT_EQ(grid().cellBackColor(1, 0), RnTblColorNone);  // the mark goes with the file
}

TEST_F(DataFileCheckTest, SelectionComesBackOnlyFromRowTwoOn) {
    SelectRunTableRow(grid(), 1);
    DataFileExits();
    EXPECT_EQ(grid().RowSel(), 3);
    App.GlblDataDir = data;
    SelectRunTableRow(grid(), 2);
    DataFileExits();
    EXPECT_EQ(grid().RowSel(), 2);
    EXPECT_EQ(grid().Col(), 2);
}

}  // namespace
