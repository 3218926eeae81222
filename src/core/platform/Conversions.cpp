#include "Conversions.h"

#include <cmath>
#include <limits>
#include <optional>

#include "RuntimeError.h"

namespace sidekin {

namespace {

bool isBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

// A number written with the radix prefix &H or &O: up to four digits make a
// 16-bit value, more make a 32-bit one, as the legacy reader has it.
std::optional<double> radixNumber(const QString& s, qsizetype& pos, bool strict) {
    if (pos + 1 >= s.size() || s[pos] != u'&') return std::nullopt;
    const QChar kind = s[pos + 1].toUpper();
    const int base = kind == u'H' ? 16 : kind == u'O' ? 8 : 0;
    if (base == 0) return std::nullopt;
    qsizetype p = pos + 2;
    double value = 0;
    int digits = 0;
    for (; p < s.size(); ++p) {
        const int d = s[p].isDigit() ? s[p].digitValue()
                      : (base == 16 && s[p].toUpper() >= u'A' && s[p].toUpper() <= u'F')
                          ? s[p].toUpper().unicode() - u'A' + 10
                          : -1;
        if (d < 0 || d >= base) break;
        value = value * base + d;
        ++digits;
    }
    if (digits == 0 && strict) return std::nullopt;
    if (value > 4294967295.0) {
        if (strict) raiseError(ErrOverflow);
    }
    const bool short16 =
        (base == 16 && digits <= 4) || (base == 8 && digits <= 6 && value <= 65535);
    if (short16 && value > 32767)
        value -= 65536;
    else if (value > 2147483647.0)
        value -= 4294967296.0;
    pos = p;
    return value;
}

// Reads [sign] digits [. digits] [(E|D) [sign] digits] from pos. Answers the
// number and moves pos behind it; nullopt when no digit was found.
std::optional<double> decimalNumber(const QString& s, qsizetype& pos) {
    qsizetype p = pos;
    QString text;
    if (p < s.size() && (s[p] == u'+' || s[p] == u'-')) text += s[p++];
    int mantissaDigits = 0;
    while (p < s.size() && s[p].isDigit() && s[p].unicode() < 128) {
        text += s[p++];
        ++mantissaDigits;
    }
    if (p < s.size() && s[p] == u'.') {
        text += s[p++];
        while (p < s.size() && s[p].isDigit() && s[p].unicode() < 128) {
            text += s[p++];
            ++mantissaDigits;
        }
    }
    if (mantissaDigits == 0) return std::nullopt;
    if (p < s.size() && (s[p].toUpper() == u'E' || s[p].toUpper() == u'D')) {
        qsizetype q = p + 1;
        QString exponent = QStringLiteral("e");
        if (q < s.size() && (s[q] == u'+' || s[q] == u'-')) exponent += s[q++];
        const qsizetype firstDigit = q;
        while (q < s.size() && s[q].isDigit() && s[q].unicode() < 128) exponent += s[q++];
        if (q > firstDigit) {
            text += exponent;
            p = q;
        }
    }
    pos = p;
    return std::strtod(text.toLatin1().constData(), nullptr);
}

}  // namespace

double Val(const QString& text) {
    QString s;
    s.reserve(text.size());
    for (QChar c : text)
        if (!isBlank(c)) s += c;
    qsizetype pos = 0;
    if (auto radix = radixNumber(s, pos, false)) return *radix;
    pos = 0;
    return decimalNumber(s, pos).value_or(0.0);
}

double CDbl(const QString& text) {
    qsizetype begin = 0, end = text.size();
    while (begin < end && isBlank(text[begin])) ++begin;
    while (end > begin && isBlank(text[end - 1])) --end;
    const QString s = text.mid(begin, end - begin);
    qsizetype pos = 0;
    std::optional<double> value = radixNumber(s, pos, true);
    if (!value) {
        pos = 0;
        value = decimalNumber(s, pos);
    }
    if (!value || pos != s.size()) raiseError(ErrTypeMismatch);
    if (!std::isfinite(*value)) raiseError(ErrOverflow);
    return *value;
}

bool IsNumeric(const QString& text) {
    try {
        CDbl(text);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

double roundHalfEven(double value) { return std::nearbyint(value); }

std::int16_t CInt(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= -32768.0 && r <= 32767.0)) raiseError(ErrOverflow);
    return static_cast<std::int16_t>(r);
}

std::int32_t CLng(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) raiseError(ErrOverflow);
    return static_cast<std::int32_t>(r);
}

std::int16_t CInt(const QString& text) { return CInt(CDbl(text)); }
std::int32_t CLng(const QString& text) { return CLng(CDbl(text)); }

std::int16_t toInt16(std::int64_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max())
        raiseError(ErrOverflow);
    return static_cast<std::int16_t>(value);
}

std::int16_t add16(std::int16_t a, std::int16_t b) { return toInt16(std::int64_t{a} + b); }
std::int16_t sub16(std::int16_t a, std::int16_t b) { return toInt16(std::int64_t{a} - b); }

}  // namespace sidekin
