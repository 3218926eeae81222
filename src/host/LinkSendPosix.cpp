#include <sys/socket.h>

#include <QLocalSocket>
#include <cerrno>

#include "LinkSend.h"

namespace sidekin::link {

void sendNow(QLocalSocket& socket, const QByteArray& bytes) {
    qsizetype done = 0;
    if (socket.bytesToWrite() == 0 && socket.state() == QLocalSocket::ConnectedState) {
        const int fd = static_cast<int>(socket.socketDescriptor());
        while (done < bytes.size()) {
            const ssize_t n =
                ::send(fd, bytes.constData() + done, static_cast<size_t>(bytes.size() - done),
                       MSG_NOSIGNAL | MSG_DONTWAIT);
            if (n > 0)
                done += n;
            else if (n < 0 && errno == EINTR)
                continue;
            else
                break;
        }
    }
    if (done == bytes.size()) return;
    socket.write(bytes.constData() + done, bytes.size() - done);
    socket.flush();
}

}  // namespace sidekin::link
