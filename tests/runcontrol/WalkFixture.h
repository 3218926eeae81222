#pragma once

#include <memory>

#include "SimulatorProcess.h"
#include "StartupFixture.h"

namespace sidekin::test {

// The program's link, item feed, main window and run control against a real
// host simulator whose runs take runSeconds.
class WalkFixture : public StartupFixture {
protected:
    void SetUp() override;
    void TearDown() override;

    void startHost(double runSeconds, QStringList extra = {});
    // A run row: method, injection type id, vial text (or a text id), data file.
    void addRun(const QString& method, int injectionTypeId, const QString& vial,
                const QString& dataFile, const QString& info = QString());
    void clickStartPauseResume();
    void clickStop();
    // Serves events until the walk is idle again.
    bool waitForIdle(int ms = 20000);
    bool waitForState(std::int16_t state, int ms = 20000);

    QString currentRunText() const;
    QString buttonCaption() const;
    unsigned rowColour(int row) const;
    QStringList hostCommands() const;

    std::unique_ptr<SimulatorProcess> host;
};

}  // namespace sidekin::test
