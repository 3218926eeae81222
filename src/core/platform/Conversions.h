#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

// Numeric-prefix conversion: the longest numeric beginning of the text, blanks
// skipped, 0 when there is none. Never fails.
double Val(const QString& text);

// Strict conversions of the whole text (surrounding blanks allowed).
// Error 13 when the text is no number, error 6 when the value does not fit.
double CDbl(const QString& text);
std::int16_t CInt(const QString& text);
std::int32_t CLng(const QString& text);

// Rounding of a number into 16 or 32 bits: half to even, error 6 out of range.
std::int16_t CInt(double value);
std::int32_t CLng(double value);

// True when CDbl would accept the text: sign, decimal point, exponent.
bool IsNumeric(const QString& text);

// 16-bit signed arithmetic for counters and row numbers: error 6 on overflow.
std::int16_t toInt16(std::int64_t value);
std::int16_t add16(std::int16_t a, std::int16_t b);
std::int16_t sub16(std::int16_t a, std::int16_t b);

double roundHalfEven(double value);

}  // namespace sidekin
