#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

// The national-language library's three calls over a table from ids to texts.
// The table of a language is a data file (texts/<language>.txt) loaded by NLSInit.

// Prepares the library for this process; 0 on failure.
std::int16_t NLSTaskInit();
// Opens the text table of the language in use; 0 on failure (no table found).
std::int16_t NLSInit(std::int32_t handle);
// Writes the text of id into buffer (at most size characters, no end mark) and
// answers how many were written; 0 for an unknown id or before NLSInit.
std::int32_t NLSLoadStringW(std::int32_t handle, std::int32_t id, char16_t* buffer,
                            std::int32_t size);

// The language of the table NLSInit opens: $SIDEKIN_LANG if set (for example "en"),
// else the system locale's, falling back to English.
QString nlsLanguage();
// Overrides the language for the next NLSInit; an empty text restores the default rule.
void setNlsLanguage(const QString& language);
// The built-in English text of id, whatever language is in use: the forms'
// design captions.
QString englishText(std::int32_t id);

// Forgets the open table, as a fresh process has none.
void resetNls();

}  // namespace sidekin
