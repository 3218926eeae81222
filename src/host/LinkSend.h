#pragma once

#include <QByteArray>

class QLocalSocket;

namespace sidekin::link {

// Writes the bytes to a connected local socket now. They go straight to its
// descriptor while the socket holds nothing unsent, because its own buffer turns
// a write notifier on and off and so wakes the event loop twice a frame; what the
// descriptor does not take goes through the socket as before.
void sendNow(QLocalSocket& socket, const QByteArray& bytes);

}  // namespace sidekin::link
