#pragma once

#include <QDateTime>
#include <QString>

namespace sidekin {

// The date and time formats the program uses:
// "yyyymmdd", "yymmdd", "mmdd", "yyyy", "y" (day of the year),
// "dddddd" (the long date) and "ttttt" (the time with seconds).
// Error 5 for any other format.
QString FormatDate(const QDateTime& moment, const QString& format);

}  // namespace sidekin
