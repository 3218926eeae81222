#pragma once

#include <QByteArray>
#include <QString>
#include <QStringEncoder>

// The bytes of a UTF-16LE file with its byte-order mark.
inline QByteArray utf16File(const QString& text) {
    return QByteArray("\xFF\xFE") + QStringEncoder(QStringEncoder::Utf16LE).encode(text);
}
