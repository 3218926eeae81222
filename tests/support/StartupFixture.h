#pragma once

#include <gtest/gtest.h>

#include "FakeClock.h"
#include "FakeWindowSystem.h"
#include "QtPrinters.h"
#include "ScriptedDialogs.h"
#include "TempFolder.h"

namespace sidekin::test {

// Thrown by the test's stand-in for the end of the process.
struct ProgramEnded {};

// A fresh process for each case: shared state reset, English texts, a settable
// clock, a fake window tree, scripted dialogs and a private profile folder.
class StartupFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Writes "zentrovar.ini" into the profile folder.
    void writeHostIni(const QByteArray& text);
    // Switches to a made-up language whose table holds only these texts.
    void useTexts(const QByteArray& table);

    ScriptedDialogs dialogs;
    FakeClock clock;
    FakeWindowSystem windows;
    TempFolder config;
    TempFolder texts;
};

}  // namespace sidekin::test
