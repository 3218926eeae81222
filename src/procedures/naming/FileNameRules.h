#pragma once

#include <QString>
#include <cstdint>

#include "NameRules.h"

namespace sidekin {

// The full test: the host tries to create the file in the program's folder.
// The name is trimmed in the caller's variable.
bool IsValidFileName(QString& name);

// True if no run of the table has this data file name. Mode "IgSelRow" skips
// the selected row.
bool FileNameUniqueToTable(const QString& name, const QString& mode);

// The Return key moves on to the next field.
void ConvReturn2Tab(std::int16_t& keyCode);

}  // namespace sidekin
