#include "LegacyText.h"

#include <cmath>

#include "ErrorHandler.h"
#include "RuntimeError.h"

namespace sidekin {

QString Left(const QString& text, int length) {
    if (length < 0) raiseError(ErrInvalidCall);
    return text.left(length);
}

QString Right(const QString& text, int length) {
    if (length < 0) raiseError(ErrInvalidCall);
    return text.right(length);
}

QString Mid(const QString& text, int start) {
    if (start < 1) raiseError(ErrInvalidCall);
    return text.mid(start - 1);
}

QString Mid(const QString& text, int start, int length) {
    if (start < 1 || length < 0) raiseError(ErrInvalidCall);
    if (start > text.size()) return {};
    return text.mid(start - 1, length);
}

int InStr(int start, const QString& text, const QString& sought) {
    if (start < 1) raiseError(ErrInvalidCall);
    if (start > text.size()) return 0;
    if (sought.isEmpty()) return start;
    return static_cast<int>(text.indexOf(sought, start - 1, Qt::CaseSensitive)) + 1;
}

int InStr(const QString& text, const QString& sought) { return InStr(1, text, sought); }

QString LTrim(const QString& text) {
    qsizetype i = 0;
    while (i < text.size() && text[i] == u' ') ++i;
    return text.mid(i);
}

QString RTrim(const QString& text) {
    qsizetype n = text.size();
    while (n > 0 && text[n - 1] == u' ') --n;
    return text.left(n);
}

QString Trim(const QString& text) { return LTrim(RTrim(text)); }

QString CStr(double value) {
    if (value == std::trunc(value) && std::fabs(value) < 1e15)
        return QString::number(static_cast<long long>(value));
    QString s = QString::number(value, 'g', 15).toUpper();
    // The legacy form drops the zero before the decimal point: ".5", "-.5".
    if (s.startsWith(QLatin1String("0.")))
        s.remove(0, 1);
    else if (s.startsWith(QLatin1String("-0.")))
        s.remove(1, 1);
    return s;
}

QString Str(double value) {
    const QString s = CStr(value);
    return value >= 0 ? QLatin1Char(' ') + s : s;
}

QString FormatZeros(std::int64_t value, const QString& pattern) {
    const int width = static_cast<int>(pattern.count(QLatin1Char('0')));
    // Negated as unsigned, so the lowest value has a magnitude too.
    const auto magnitude = value < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(value)
                                     : static_cast<std::uint64_t>(value);
    const QString digits = QString::number(magnitude);
    const QString padded = digits.rightJustified(width, QLatin1Char('0'));
    return value < 0 ? QLatin1Char('-') + padded : padded;
}

QString UpToNul(const QString& buffer) {
    const qsizetype nul = buffer.indexOf(QChar(u'\0'));
    return nul < 0 ? buffer : buffer.left(nul);
}

QString ReplaceString(const QString& source, const QString& find, const QString& replacement) {
    QString result;
    handled("ReplaceString", [&] {
        // A replacement holding the find text (or an empty find text) never ends,
        // as in the original; callers replace tokens only.
        result = source;
        for (int hit = InStr(result, find); hit > 0; hit = InStr(result, find))
            result = Left(result, hit - 1) + replacement + Mid(result, hit + find.size());
    });
    return result;
}

}  // namespace sidekin
