#pragma once

#include <memory>

#include "FormsFixture.h"
#include "InProcessHost.h"
#include "WaitUntil.h"

namespace sidekin::test {

// The program's link, item feed, main window and run control against a host:
// the simulator's engine in process unless a case connects to another.
class WalkFixture : public FormsFixture {
protected:
    void TearDown() override;

    // Runs last an hour unless ended by finishRun(), or no time with quickRuns.
    void startHost(hostsim::SimConfig config = InProcessHost::defaultConfig());
    void startHostWithQuickRuns();
    // The program's start-up fetch against the service, an operator chosen, a subdirectory.
    void connectProgram(const QString& service, const QString& configFolder);
    // Waits for the host's run to be under way, then ends it.
    void finishRun();

    // A run row: method, injection type id, vial text, data file.
    void addRun(const QString& method, int injectionTypeId, const QString& vial,
                const QString& dataFile, const QString& info = QString());
    void threeRows();
    void clickStartPauseResume();
    void clickStop();
    bool waitForIdle(int ms = 20000);
    bool waitForState(std::int16_t state, int ms = 20000);

    QString text(int id) const;
    QString currentRunText() const;
    // The Start button's caption and tool tip, and the pair the texts give.
    QString startButton() const;
    QString startButton(int captionId, int toolTipId) const;
    unsigned rowColour(int row) const;
    int hostStarts() const;

    std::unique_ptr<InProcessHost> host;
};

}  // namespace sidekin::test
