#pragma once

#include <QString>
#include <QStringList>

namespace sidekin {

// Section-and-key text files with the semantics of the legacy platform's
// profile calls. A bare file name (no folder) lives in profileFolder().
// Backslashes in paths are folder separators.

// Copies the value (or the default, its trailing blanks removed) into buffer,
// at most size - 1 characters; answers the number of characters copied.
int GetPrivateProfileStringA(const QString& section, const QString& key,
                             const QString& defaultValue, QString& buffer, int size,
                             const QString& file);

// The leading whole number of the value; the default when the key is missing or empty.
unsigned int GetPrivateProfileIntA(const QString& section, const QString& key, int defaultValue,
                                   const QString& file);

// Changes only this key's line, or adds it; the file is replaced atomically.
// Answers 1 on success, 0 on failure. A writer killed midway may leave a
// temporary ".NAME.tmp-XXXXXXXX" beside the file; the next write removes it.
int WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value,
                               const QString& file);

// Section names in file order (a repeated section once), and the keys of one section.
QStringList profileSections(const QString& file);
QStringList profileKeys(const QString& section, const QString& file);

// The folder of bare-named profile files: $ZENTROVAR_CONFIG_DIR if set, else
// the "zentrovar" folder in the user's configuration directory.
QString profileFolder();
// The real path a profile file name stands for.
QString resolveProfilePath(const QString& file);

}  // namespace sidekin
