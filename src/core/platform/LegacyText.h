#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

// Text operations with the legacy platform's rules: 1-based positions,
// trimming of spaces only, error 5 on a negative length or a start below 1.

QString Left(const QString& text, int length);
QString Right(const QString& text, int length);
QString Mid(const QString& text, int start);
QString Mid(const QString& text, int start, int length);
// Position of sought in text from start (1-based), 0 when absent; case-sensitive.
int InStr(int start, const QString& text, const QString& sought);
int InStr(const QString& text, const QString& sought);

QString Trim(const QString& text);
QString LTrim(const QString& text);
QString RTrim(const QString& text);

// Number to text with a leading blank for positive numbers and zero: " 5", "-5".
QString Str(double value);
// Plain decimal text: "5", "-5", "2.5".
QString CStr(double value);
// "0"-placeholder format: FormatZeros(7, "000") is "007".
QString FormatZeros(std::int64_t value, const QString& pattern);

// The text up to its first NUL character, as a fixed buffer is read back.
QString UpToNul(const QString& buffer);

// Every occurrence of find replaced; each search starts again at the front.
QString ReplaceString(const QString& source, const QString& find, const QString& replacement);

}  // namespace sidekin
