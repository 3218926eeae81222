#include <gtest/gtest.h>

#include "Control.h"
#include "HostScript.h"
#include "HostSimulator.h"
#include "QtPrinters.h"

using namespace sidekin::hostsim;

// The trainer's "abort next run" ends whichever run starts next, once, and is
// taken back by "fault abort off" before a run starts.
TEST(HostSimulator, AbortNextEndsOnlyTheNextRunAborted) {
    HostSimulator sim(SimConfig{}, Folders{});
    QStringList ends;
    QObject::connect(&sim, &HostSimulator::runFinished, [&](int row, const QString& word) {
        ends << QString::number(row) + ' ' + word;
    });
    const auto runRow = [&](int row) {
        QString error;
        const auto script = parseCommand("ORQ_HOST_START " + QString::number(row), &error);
        ASSERT_TRUE(script && sim.run(*script, &error)) << error.toStdString();
        sim.finishRunNow();
    };
    EXPECT_EQ(applyControl(sim, "fault abort next").text, "ok");
    runRow(3);
    runRow(4);
    EXPECT_EQ(applyControl(sim, "fault abort next").text, "ok");
    EXPECT_EQ(applyControl(sim, "fault abort off").text, "ok");
    runRow(5);
    EXPECT_EQ(ends, QStringList({"3 Aborted", "4 Completed", "5 Completed"}));
}
