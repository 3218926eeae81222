#include "FrameLog.h"

#include <cstdio>

namespace sidekin::hostsim {

bool FrameLog::open(const QString& file, QString* error) {
    file_.setFileName(file);
    if (file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) return true;
    *error = QStringLiteral("cannot write the log %1: %2").arg(file, file_.errorString());
    return false;
}

QString FrameLog::escape(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        switch (c.unicode()) {
            case '\\':
                out += QLatin1String("\\\\");
                break;
            case '\r':
                out += QLatin1String("\\r");
                break;
            case '\n':
                out += QLatin1String("\\n");
                break;
            case '\t':
                out += QLatin1String("\\t");
                break;
            default:
                out += c;
        }
    }
    return out;
}

QString FrameLog::verbName(link::Verb verb) {
    switch (verb) {
        case link::Verb::Execute:
            return QStringLiteral("Execute");
        case link::Verb::Request:
            return QStringLiteral("Request");
        case link::Verb::Advise:
            return QStringLiteral("Advise");
        case link::Verb::Ack:
            return QStringLiteral("Ack");
        case link::Verb::Data:
            return QStringLiteral("Data");
        case link::Verb::Refused:
            return QStringLiteral("Refused");
        case link::Verb::Update:
            return QStringLiteral("Update");
    }
    return QStringLiteral("Verb%1").arg(static_cast<int>(verb));
}

void FrameLog::frame(int number, int connection, const link::Frame& frame) {
    QString line = QStringLiteral("%1\t%2\t%3\t%4\t%5")
                       .arg(number)
                       .arg(connection)
                       .arg(verbName(frame.verb), escape(frame.topic), escape(frame.name));
    if (!frame.value.isEmpty()) line += u'\t' + escape(frame.value);
    write(line);
}

void FrameLog::malformed(int number, int connection) {
    write(QStringLiteral("%1\t%2\tMalformed\t\t").arg(number).arg(connection));
}

void FrameLog::write(const QString& line) {
    const QByteArray bytes = line.toUtf8() + '\n';
    if (file_.isOpen()) {
        file_.write(bytes);
        file_.flush();
    }
    if (echo_) {
        std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
        std::fflush(stdout);
    }
    if (listener_) listener_(line);
}

}  // namespace sidekin::hostsim
