// An operator's round against the host simulator as a separate process, in real time:
// a table built on the Add form, then walked; the commands as the host received them.
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "EntryFixture.h"
#include "FrmOrq.h"
#include "SimulatorProcess.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class EntrySimulatorTest : public EntryFixture {
protected:
    void SetUp() override {
        EntryFixture::SetUp();
        setClock(nullptr);
    }
    void TearDown() override {
        EntryFixture::TearDown();
        simulator.reset();
    }
    QStringList commands() const {
        QStringList all;
        for (const QString& c : simulator->executed()) all << c.section(QLatin1Char('\t'), 1);
        return all;
    }
    std::unique_ptr<SimulatorProcess> simulator;
};

TEST_F(EntrySimulatorTest, AddThreeInjectionsAndRunThem) {
    simulator = std::make_unique<SimulatorProcess>(QStringList{"--run-seconds", "0.4"});
    ASSERT_TRUE(simulator->started());
    connectProgram(simulator->service(), simulator->configFolder());
    frmORQ().cboOperator->setCurrentText("Training");
    const qsizetype before = commands().size();

    FrmRnTblAdd& form = frmRnTblAdd();
    choose(form, "Solvent Blank", "FRONTSTD");
    form.txtSampleID->setText("Blank-1");
    form.cboInjVial->setEditText("3");
    form.cmdAdd->click();

    EXPECT_TRUE(dialogs.boxTitles().isEmpty()) << dialogs.boxTitles().join(", ").toStdString();
    QStringList expected{
        R"(ddeORQ = TestForDevice("4410", 0, ""))", R"(ddeORQ = MyTestForDevice("RC4420", 0, ""))",
        R"(ddeORQ = MyTestForDevice("RC4430", 0, ""))", "ddeORQ$ = ORQGetInjectorVialRange$(1)"};
    for (const char* name : {"BLKF000000", "BLKF000001", "BLKF000002"}) {
        const QString path = App.GlblOrqDir + name;
        expected << "ORQNameCheck=0;On Error ORQNameCheck=1;Open \"" + path +
                        "\" For Output As #3; On Error"
                 << "Close #3"
                 << "Delete \"" + path + "\",DontAsk";
    }
    EXPECT_TRUE(waitUntil([&] { return commands().size() - before >= expected.size(); }));
    EXPECT_EQ(commands().mid(before), expected);
    clickStartPauseResume();
    ASSERT_TRUE(waitForIdle(30000));
    const QStringList runs = commands().filter("ORQ_");
    ASSERT_EQ(runs.size(), 7);
    EXPECT_EQ(runs[0], "ORQ_SetRunTableVars \"Training\", \"" + frmORQ().txtSubDir->text() + "\"");
    EXPECT_EQ(
        runs[5],
        R"(ORQ_PrepareSingleRun "FRONTSTD", 1, "Blank-1", 101, "BLKF000002", "", "", "", "", "")");
    EXPECT_EQ(runs[6], "ORQ_HOST_START 3");
}

}  // namespace
