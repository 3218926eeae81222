#include "WorklistCsv.h"

#include <QStringDecoder>

#include "platform/Cp1252.h"

namespace sidekin {

namespace {

QString decode(QByteArrayView bytes, bool& cp1252) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    cp1252 = utf8.hasError();
    if (!cp1252) return text;
    text.clear();
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        text += QChar(b >= 0x80 && b < 0xA0 ? kCp1252High[b - 0x80] : char16_t(b));
    }
    return text;
}

// Commas and semicolons outside quotes on the first line.
QChar separatorOf(const QString& text) {
    int commas = 0, semicolons = 0;
    bool quoted = false;
    for (const QChar c : text) {
        if (c == u'"') quoted = !quoted;
        if (quoted) continue;
        if (c == u'\r' || c == u'\n') break;
        commas += c == u',';
        semicolons += c == u';';
    }
    return semicolons > commas ? u';' : u',';
}

bool needsQuotes(const QString& field) {
    for (const QChar c : field)
        if (c == u',' || c == u';' || c == u'"' || c == u'\r' || c == u'\n') return true;
    return !field.isEmpty() && (field.front().isSpace() || field.back().isSpace());
}

}  // namespace

CsvRead readCsv(const QByteArray& bytes) {
    CsvRead read;
    QByteArrayView body(bytes);
    if (body.startsWith("\xEF\xBB\xBF")) body = body.sliced(3);
    const QString text = decode(body, read.cp1252);
    read.separator = separatorOf(text);

    int line = 1;
    CsvRecord record{line, {}};
    QString field;
    bool quoted = false, wasQuoted = false, any = false;
    const auto endField = [&] {
        record.fields << field;
        field.clear();
        wasQuoted = false;
    };
    const auto endRecord = [&] {
        endField();
        const bool blank = record.fields.size() == 1 && record.fields[0].isEmpty() && !any;
        if (!blank) read.records.push_back(std::move(record));
        record = CsvRecord{line, {}};
        any = false;
    };
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c == u'"') {
                if (i + 1 < n && text[i + 1] == u'"') {
                    field += u'"';
                    ++i;
                } else {
                    quoted = false;
                }
            } else {
                if (c == u'\n' || (c == u'\r' && !(i + 1 < n && text[i + 1] == u'\n'))) ++line;
                field += c;
            }
            continue;
        }
        if (c == u'"' && field.isEmpty() && !wasQuoted) {
            quoted = wasQuoted = any = true;
        } else if (c == read.separator) {
            any = true;
            endField();
        } else if (c == u'\r' || c == u'\n') {
            if (c == u'\r' && i + 1 < n && text[i + 1] == u'\n') ++i;
            ++line;
            endRecord();
        } else {
            any = true;
            field += c;
        }
    }
    if (quoted) {
        read.error = CsvError::UnclosedQuote;
        read.errorLine = record.line;
        return read;
    }
    if (!field.isEmpty() || any || !record.fields.isEmpty()) endRecord();
    if (read.records.empty()) read.error = CsvError::Empty;
    return read;
}

QByteArray writeCsv(const std::vector<QStringList>& records) {
    QString text;
    for (const QStringList& record : records) {
        for (qsizetype f = 0; f < record.size(); ++f) {
            if (f > 0) text += u',';
            QString field = record[f];
            if (needsQuotes(field)) {
                field.replace(QStringLiteral("\""), QStringLiteral("\"\""));
                field = u'"' + field + u'"';
            }
            text += field;
        }
        text += QStringLiteral("\r\n");
    }
    return text.toUtf8();
}

}  // namespace sidekin
