#pragma once

#include <cstdint>

namespace sidekin {

// The walk through the run table: the operator's buttons and the host's run
// engine status move it on; nothing else does.

void cmdStartPauseResume_Click();
void cmdStop_Click();
void GoToIdleState();
void DisableRnTblChanges();
void EnableRnTblChanges();

// One row of the table as a prepared and started host run.
void ExecuteRun(std::int16_t row);
// The operator and subdirectory of a walk, sent once at Start.
void SetRunTableVars();

// The host's run engine status arrived in CPLinks.ddeRunEngineStatus.
void DDERunEngineStatus_Change();
void UpdateRunEngineStatus();

}  // namespace sidekin
