#include <QLocalSocket>

#include "LinkSend.h"

namespace sidekin::link {

// A pipe has no send call beside Qt's own: write and flush.
void sendNow(QLocalSocket& socket, const QByteArray& bytes) {
    socket.write(bytes);
    socket.flush();
}

}  // namespace sidekin::link
