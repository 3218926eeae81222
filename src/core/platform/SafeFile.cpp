#include "platform/SafeFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <cerrno>

namespace sidekin {

namespace {

bool writeAll(int fd, const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += n;
    }
    return true;
}

// A writer holds a lock on its temporary until the rename, so an unlocked
// temporary was left by a writer that died.
void removeStrayTemporaries(const QString& folder, const QString& prefix) {
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!name.startsWith(prefix)) continue;
        const QByteArray path = QFile::encodeName(folder + '/' + name);
        const int fd = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0) continue;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) ::unlink(path.constData());
        ::close(fd);
    }
}

bool syncFolder(const QString& folder) {
    const int fd =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool synced = ::fsync(fd) == 0;
    return ::close(fd) == 0 && synced;
}

}  // namespace

bool replaceFileSafely(const QString& path, const QByteArray& bytes, std::optional<unsigned> mode) {
    const QFileInfo info(path);
    const QString folder = info.absolutePath();
    const QString prefix = '.' + info.fileName() + ".tmp-";
    removeStrayTemporaries(folder, prefix);

    QByteArray temporary;
    int fd = -1;
    for (int attempt = 0; attempt < 16 && fd < 0; ++attempt) {
        const quint32 tag = QRandomGenerator::global()->generate();
        temporary = QFile::encodeName(folder + '/' + prefix +
                                      QString::number(tag, 16).rightJustified(8, u'0'));
        fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) return false;
    }
    if (fd < 0) return false;
    bool ok = ::flock(fd, LOCK_EX) == 0 && (!mode || ::fchmod(fd, mode_t(*mode)) == 0) &&
              writeAll(fd, bytes) && ::fsync(fd) == 0 &&
              ::rename(temporary.constData(), QFile::encodeName(path).constData()) == 0;
    ok = ::close(fd) == 0 && ok;
    if (!ok) {
        ::unlink(temporary.constData());
        return false;
    }
    return syncFolder(folder);
}

}  // namespace sidekin
