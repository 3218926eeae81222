#pragma once

#include <QString>

namespace sidekin {

constexpr int MaxFileNameChars = 40;

// The cheap test while the operator types: at most 40 characters, all from the
// permitted set. Leading blanks are dropped silently; at the first bad character
// the name is cut before it.
bool IsValidFileChar(QString& name);

}  // namespace sidekin
