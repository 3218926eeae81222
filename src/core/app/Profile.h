#pragma once

#include <QString>
#include <cstdint>

#include "ProfileKeys.h"

namespace sidekin {

// A key of a profile file: its text (at most 255 characters), or "-1" when the
// key, its section or the file is missing or the value is empty.
QString GetPvtProfileStr(const QString& section, const QString& key, const QString& file);

// The same for "zentrovar.ini", the host's file in the profile folder.
QString GetProfileStr(const QString& section, const QString& key);

// Field index (from 1) of a text whose fields are cut by separator.
QString GetParameter(const QString& text, std::int16_t index, const QString& separator);

}  // namespace sidekin
