#pragma once

#include <functional>

namespace sidekin {

// The yield to pending events: every event procedure that is due runs to its
// end before the caller goes on.
void DoEvents();

// Ends the process at once, wherever it stands; nothing is saved.
[[noreturn]] void endProgram();

// Tests replace the end of the process (the hook must not return, e.g. it throws).
void setEndProgramHook(std::function<void()> hook);

}  // namespace sidekin
