#include "WalkFixture.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "CPLinks.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "ItemFeed.h"
#include "RunControl.h"
#include "StartupFetch.h"
#include "StatusEvents.h"

namespace sidekin::test {

void WalkFixture::SetUp() {
    StartupFixture::SetUp();
    setClock(nullptr);  // the simulator runs in real time
    unloadFrmORQ();
    unloadCPLinks();
    itemfeed::reset();
}

void WalkFixture::TearDown() {
    unloadFrmORQ();
    unloadCPLinks();
    itemfeed::reset();
    host.reset();
    StartupFixture::TearDown();
}

void WalkFixture::startHost(double runSeconds, QStringList extra) {
    host = std::make_unique<SimulatorProcess>(
        QStringList{"--run-seconds", QString::number(runSeconds)} + extra);
    ASSERT_TRUE(host->started());
    qputenv("ZENTROVAR_CONFIG_DIR", host->configFolder().toUtf8());
    App.GlblDDEApp = host->service();
    App.GlblInstrument = 1;
    App.GlblOffline = QStringLiteral("0");
    App.GlblOrqDir = host->configFolder() + QStringLiteral("/");
    wireStatusEvents();
    wireRunControl();
    OpenDDELinks();
    ASSERT_TRUE(waitUntil([] { return !App.GlblIniFile.isEmpty() && !App.GlblDataDir.isEmpty(); }));
    ASSERT_GT(frmORQ().cboOperator->count(), 0);
    frmORQ().cboOperator->setCurrentIndex(0);
    frmORQ().txtSubDir->setText(QStringLiteral("Batch7"));
    frmORQ().cmdStartPauseResume->setEnabled(true);
    dialogs.shown.clear();
}

void WalkFixture::addRun(const QString& method, int injectionTypeId, const QString& vial,
                         const QString& dataFile, const QString& info) {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    const QStringList cells{QString::number(grid.Rows()),
                            QStringLiteral("Diesel"),
                            method,
                            QStringLiteral("S-") + dataFile,
                            GetResourceString(injectionTypeId),
                            vial,
                            dataFile,
                            QStringLiteral("1.5"),
                            QString(),
                            info};
    grid.AddItem(cells.join(QLatin1Char('\t')));
}

void WalkFixture::clickStartPauseResume() { frmORQ().cmdStartPauseResume->click(); }

void WalkFixture::clickStop() { frmORQ().cmdStop->click(); }

bool WalkFixture::waitForIdle(int ms) {
    return waitUntil([] { return App.GlblRunState == RunStateIdle; }, ms);
}

bool WalkFixture::waitForState(std::int16_t state, int ms) {
    return waitUntil([state] { return App.GlblRunState == state; }, ms);
}

QString WalkFixture::currentRunText() const { return frmORQ().lblCurrentRun->text(); }

QString WalkFixture::buttonCaption() const { return frmORQ().cmdStartPauseResume->text(); }

unsigned WalkFixture::rowColour(int row) const {
    return frmORQ().fgrdRunTable->grid().cellBackColor(row, 0);
}

QStringList WalkFixture::hostCommands() const {
    QStringList commands;
    for (const QString& c : host->executed()) commands << c.section(QLatin1Char('\t'), 1);
    return commands;
}

}  // namespace sidekin::test
