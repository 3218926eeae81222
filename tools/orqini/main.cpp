#include <QCoreApplication>
#include <QStringDecoder>
#include <QStringList>
#include <cstdio>

#include "platform/ProfileFile.h"

namespace {

const char kUsage[] =
    "usage: orqini get FILE SECTION KEY\n"
    "       orqini set FILE SECTION KEY VALUE\n"
    "       orqini list FILE [SECTION]\n"
    "A FILE without a folder lives in the profile folder.\n";

void printLine(const QString& text) { std::fputs(text.toUtf8().append('\n').constData(), stdout); }

// The arguments as given. Qt's own list drops a leading U+FEFF, which in a
// value is text, as the file reader keeps it.
QStringList givenArguments(int argc, char** argv) {
#ifdef Q_OS_WIN
    (void)argc;
    (void)argv;
    return QCoreApplication::arguments().mid(1);
#else
    QStringList args;
    for (int i = 1; i < argc; ++i) {
        QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                      QStringDecoder::Flag::ConvertInitialBom);
        args << utf8(QByteArrayView(argv[i]));
    }
    return args;
#endif
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = givenArguments(argc, argv);
    const QString verb = args.value(0);
    const qsizetype count = args.size();

    if (verb == QLatin1String("get") && count == 4) {
        // Answers as the application's own reader does: a missing or empty value is -1.
        QString buffer;
        const int n =
            sidekin::GetPrivateProfileStringA(args[2], args[3], QString(), buffer, 256, args[1]);
        printLine(n > 0 ? buffer.left(n) : QStringLiteral("-1"));
        return 0;
    }
    if (verb == QLatin1String("set") && count == 5) {
        if (sidekin::WritePrivateProfileStringA(args[2], args[3], args[4], args[1])) return 0;
        std::fprintf(stderr, "orqini: cannot write %s\n",
                     qPrintable(sidekin::resolveProfilePath(args[1])));
        return 1;
    }
    if (verb == QLatin1String("list") && (count == 2 || count == 3)) {
        const QStringList names =
            count == 2 ? sidekin::profileSections(args[1]) : sidekin::profileKeys(args[2], args[1]);
        for (const QString& name : names) printLine(name);
        return 0;
    }
    std::fputs(kUsage, stderr);
    return 2;
}
