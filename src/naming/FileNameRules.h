#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

constexpr int MaxFileNameChars = 40;

// The cheap test while the operator types: at most 40 characters, all from the
// permitted set. Leading blanks are dropped silently; at the first bad character
// the name is cut before it.
bool IsValidFileChar(QString& name);

// The full test: the host tries to create the file in the program's folder.
// The name is trimmed in the caller's variable.
bool IsValidFileName(QString& name);

// True if no run of the table has this data file name. Mode "IgSelRow" skips
// the selected row.
bool FileNameUniqueToTable(const QString& name, const QString& mode);

// The Return key moves on to the next field.
void ConvReturn2Tab(std::int16_t& keyCode);

// Every occurrence of find replaced; each search starts again at the front.
QString ReplaceString(const QString& source, const QString& find, const QString& replacement);

}  // namespace sidekin
