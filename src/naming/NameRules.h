#pragma once

#include <QString>

namespace sidekin {

constexpr int MaxFileNameChars = 40;

// The cheap test while the operator types: at most 40 characters, all from the
// permitted set. Leading blanks are dropped silently; at the first bad character
// the name is cut before it.
bool IsValidFileChar(QString& name);

// Every occurrence of find replaced; each search starts again at the front.
QString ReplaceString(const QString& source, const QString& find, const QString& replacement);

}  // namespace sidekin
