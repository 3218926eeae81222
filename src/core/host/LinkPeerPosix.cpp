#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>

#include "LinkProtocol.h"

namespace sidekin::link {

QString serverName(const QString& service) {
    return QStringLiteral("zentrovar-%1-%2").arg(getuid()).arg(service);
}

bool peerIsSameUser(qintptr socketDescriptor) {
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (getsockopt(static_cast<int>(socketDescriptor), SOL_SOCKET, SO_PEERCRED, &credentials,
                   &size) != 0)
        return false;
    return credentials.uid == getuid();
}

}  // namespace sidekin::link
