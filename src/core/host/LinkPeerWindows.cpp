#include "LinkProtocol.h"

namespace sidekin::link {

// Pipes are per machine: the user's name keeps two users' hosts apart.
QString serverName(const QString& service) {
    return QStringLiteral("zentrovar-%1-%2").arg(qEnvironmentVariable("USERNAME"), service);
}

// A pipe's default security admits only its creator's account (and the
// system's own), so a peer that got in is the same user.
bool peerIsSameUser(qintptr) { return true; }

}  // namespace sidekin::link
