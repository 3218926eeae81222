#pragma once

#include <QString>

namespace sidekin {

class LinkTextBox;

// The four ways of talking to the host, always on the link box ddeDummy.

// Reads a host item or variable into Text, less its line end, trimmed.
void DDERequest(LinkTextBox& link, const QString& item);
// Has the host carry out a command and waits until it has.
void DDEexecute(LinkTextBox& link, const QString& command);
// Sends a command and waits, with no limit, until the host reports the method loaded.
void DDEExecut_LoadMethod(LinkTextBox& link, const QString& command);
// Sends a command and waits until the host reports the run started, or 45 seconds.
// pendingError is the error number the caller has pending (normally none).
void DDEExecute_RunMethod(LinkTextBox& link, const QString& command, int pendingError = 0);

// The host's service for this instrument, from "zentrovar.ini".
QString chooseService();

}  // namespace sidekin
