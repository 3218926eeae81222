#pragma once

#include <QString>
#include <QStringList>
#include <ostream>

// Failures show texts, not UTF-16 units.
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* os) {
    *os << "{";
    for (qsizetype i = 0; i < list.size(); ++i)
        *os << (i ? ",\n " : " ") << '"' << list[i].toStdString() << '"';
    *os << " }";
}
