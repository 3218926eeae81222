#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace sidekin {

enum RunState : std::int16_t {
    RunStateIdle = 0,
    RunStateRunning = 1,
    RunStatePausing = 2,
    RunStatePaused = 3,
    RunStateStopping = 4,
};

// The one record of values shared by all parts of the program. Everything
// starts as 0 or empty text.
struct AppState {
    std::int32_t GlblHostWnd = 0;
    std::int32_t GlblViewMgrWnd = 0;
    std::int32_t GlblPrevParentWnd = 0;
    QString GlblDDEApp;
    QString GlblOrqDir;
    QString GlblIniFile;
    QString GlblMethodDir;
    QString GlblInstDir;
    QString GlblDataDir;
    std::int16_t GlblInstrument = 0;
    QString GlblOffline;
    QString GlblOperator;
    std::int16_t GlblCurrentRun = 0;
    std::int16_t GlblRunState = RunStateIdle;
    std::int16_t GlblMethodLoaded = 0;
    std::int16_t GlblRunStarted = 0;
    std::int16_t GlblEditOpen = 0;
    std::int16_t GlblFontCharset = 0;
    QString GlblLastSysStatus;
    QString GlblLastMethodStatus;
    std::array<QString, 11> DDEItems;
    std::int16_t DDEItemsLast = 0;
    std::int16_t DDEItemIndex = 0;
    std::int32_t GlblNlsHandle = 0;  // never assigned: 0 throughout
    QString GlblNlsBuffer = QString(150, QLatin1Char(' '));
};

extern AppState App;

// Back to the state of a fresh process (tests start each case from here).
void resetAppState();

}  // namespace sidekin
