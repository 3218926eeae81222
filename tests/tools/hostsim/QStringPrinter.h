#pragma once

#include <QString>
#include <ostream>

// Failures show texts, not UTF-16 units. Every test file of this program
// includes it, so that all of them print a QString the same way.
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
