#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace sidekin {

// Worklist files: CSV with a header row. Read: UTF-8 (with or without a
// byte-order mark) or, when the bytes are no UTF-8, Windows-1252; comma or
// semicolon, whichever the header row holds more of outside quotes; fields in
// double quotes may hold the separator, "" for a quote and line breaks; CR LF,
// LF and lone CR all end a record. Written: UTF-8 without mark, commas, CR LF,
// a field quoted when it holds a comma, semicolon, quote, line break or
// leading or trailing blank.

struct CsvRecord {
    int line = 0;  // 1-based line of the file where the record begins
    QStringList fields;
};

enum class CsvError { None, Empty, UnclosedQuote };

struct CsvRead {
    CsvError error = CsvError::None;
    int errorLine = 0;
    bool cp1252 = false;
    QChar separator = u',';
    std::vector<CsvRecord> records;  // the header first; blank lines skipped
};

CsvRead readCsv(const QByteArray& bytes);
QByteArray writeCsv(const std::vector<QStringList>& records);

}  // namespace sidekin
