#include "WalkFixture.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "StartupFetch.h"

namespace sidekin::test {

void WalkFixture::TearDown() {
    FormsFixture::TearDown();
    host.reset();
}

void WalkFixture::startHost(hostsim::SimConfig config) {
    host = std::make_unique<InProcessHost>(config);
    connectProgram(host->service(), host->configFolder());
}

void WalkFixture::startHostWithQuickRuns() {
    hostsim::SimConfig config = InProcessHost::defaultConfig();
    config.runSeconds = 0;
    startHost(config);
}

void WalkFixture::connectProgram(const QString& service, const QString& configFolder) {
    qputenv("ZENTROVAR_CONFIG_DIR", configFolder.toUtf8());
    App.GlblDDEApp = service;
    App.GlblInstrument = 1;
    App.GlblOffline = QStringLiteral("0");
    App.GlblOrqDir = configFolder + QStringLiteral("/");
    OpenDDELinks();
    ASSERT_TRUE(waitUntil([] { return !App.GlblIniFile.isEmpty() && !App.GlblDataDir.isEmpty(); }));
    ASSERT_GT(frmORQ().cboOperator->count(), 0);
    // Filling the operator list at load is no choice: nothing opens before the operator's.
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Box, BoxStyle::Plain,
                                   "DDE Initialization NOT Successful !", "VB DDE Error"}}));
    frmORQ().cboOperator->setCurrentIndex(0);
    frmORQ().txtSubDir->setText(QStringLiteral("Batch7"));
    frmORQ().cmdStartPauseResume->setEnabled(true);
    dialogs.shown.clear();
}

void WalkFixture::finishRun() {
    ASSERT_TRUE(waitUntil([this] { return host->simulator().runInProgress(); }));
    host->simulator().finishRunNow();
    QCoreApplication::processEvents();
}

void WalkFixture::addRun(const QString& method, int injectionTypeId, const QString& vial,
                         const QString& dataFile, const QString& info) {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    grid.AddItem(QStringLiteral("%1\tDiesel\t%2\tS-%3\t%4\t%5\t%3\t1.5\t\t%6")
                     .arg(QString::number(grid.Rows()), method, dataFile,
                          GetResourceString(injectionTypeId), vial, info));
}

void WalkFixture::threeRows() {
    addRun("FRONTSTD", 17044, "5", "RunA");
    addRun("BACKSTD", 17045, "7", "RunB", "note");
    addRun("FRONTFAST", 17044, GetResourceString(17042), "RunC");
}

void WalkFixture::clickStartPauseResume() { frmORQ().cmdStartPauseResume->click(); }

void WalkFixture::clickStop() { frmORQ().cmdStop->click(); }

bool WalkFixture::waitForIdle(int ms) {
    return waitUntil([] { return App.GlblRunState == RunStateIdle; }, ms);
}

bool WalkFixture::waitForState(std::int16_t state, int ms) {
    return waitUntil([state] { return App.GlblRunState == state; }, ms);
}

QString WalkFixture::text(int id) const { return GetResourceString(id); }

QString WalkFixture::currentRunText() const { return frmORQ().lblCurrentRun->text(); }

QString WalkFixture::startButton() const {
    return frmORQ().cmdStartPauseResume->text() + " | " + frmORQ().cmdStartPauseResume->toolTip();
}

QString WalkFixture::startButton(int captionId, int toolTipId) const {
    return text(captionId) + " | " + text(toolTipId);
}

unsigned WalkFixture::rowColour(int row) const {
    return frmORQ().fgrdRunTable->grid().cellBackColor(row, 0);
}

int WalkFixture::hostStarts() const {
    return static_cast<int>(host->executed().filter("ORQ_HOST_START").size());
}

}  // namespace sidekin::test
