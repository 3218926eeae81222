#include "DateFormats.h"

#include <QLocale>

#include "RuntimeError.h"

namespace sidekin {

namespace {

// The locale's long time format with seconds, without a time zone.
QString timeWithSeconds(const QTime& time) {
    QString format = QLocale::system().timeFormat(QLocale::LongFormat);
    format.remove(QLatin1Char('t'));
    return QLocale::system().toString(time, format.trimmed());
}

}  // namespace

QString FormatDate(const QDateTime& moment, const QString& format) {
    const QDate d = moment.date();
    if (format == QLatin1String("yyyymmdd")) return d.toString(QStringLiteral("yyyyMMdd"));
    if (format == QLatin1String("yymmdd")) return d.toString(QStringLiteral("yyMMdd"));
    if (format == QLatin1String("mmdd")) return d.toString(QStringLiteral("MMdd"));
    if (format == QLatin1String("yyyy")) return d.toString(QStringLiteral("yyyy"));
    if (format == QLatin1String("y")) return QString::number(d.dayOfYear());
    if (format == QLatin1String("dddddd"))
        return QLocale::system().toString(d, QLocale::LongFormat);
    if (format == QLatin1String("ttttt")) return timeWithSeconds(moment.time());
    raiseError(ErrInvalidCall);
}

}  // namespace sidekin
