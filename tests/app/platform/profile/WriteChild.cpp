// Counts up the DataFile key of a profile file, printing each count once it is
// written, until killed (or until its reader goes away and the pipe breaks).
#include <cstdio>

#include "platform/ProfileFile.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const QString file = QString::fromLocal8Bit(argv[1]);
    QString value;
    sidekin::GetPrivateProfileStringA("Diesel,FAME_FAST", "DataFile", "OIL,0", value, 256, file);
    qint64 count = value.section(u',', 1).toLongLong();
    for (int i = 0; i < 100000; ++i) {
        const QString next = QStringLiteral("OIL,%1").arg(++count);
        if (!sidekin::WritePrivateProfileStringA("Diesel,FAME_FAST", "DataFile", next, file))
            return 1;
        std::printf("%lld\n", static_cast<long long>(count));
        std::fflush(stdout);
    }
    return 0;
}
