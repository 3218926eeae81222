#pragma once

#include "OperatorDialogs.h"
#include "RuntimeError.h"

namespace sidekin {

// The handler every procedure carries: a run-time error stops the body, its
// description is shown in a plain OK box under the procedure's own title, and
// the caller goes on. A function returns whatever its result held by then.
// Returns true when the body ran to its end.
template <typename Body>
bool handled(const char* title, Body&& body) {
    try {
        body();
        return true;
    } catch (const RuntimeError& error) {
        dialogs().messageBox(BoxStyle::Plain, error.description(), QString::fromUtf8(title));
        return false;
    }
}

}  // namespace sidekin
