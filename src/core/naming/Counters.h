#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

// Data file names made of a pair's prefix and a running count, kept in key
// DataFile ("prefix,count") of the pair's section of ORQ.INI.

// The name the next take would give; ORQ.INI stays untouched.
QString PeekNextFileName(const QString& sample, const QString& method);

// In counter mode the next name, with the stored count advanced before the name
// is handed out; otherwise the text of the form's data file field as given.
QString GetNextFileName(const QString& txtDataFile, const QString& sample, const QString& method);

// How many different names the prefix can give: the limit of tries.
std::int32_t GetDataFileCountMax(const QString& sample, const QString& method);

}  // namespace sidekin
