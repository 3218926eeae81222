#pragma once

#include <QString>

namespace sidekin {

// The run table on the default printer: a heading, then a block of labelled
// lines per run, the sample information wrapped at 80 characters.
void cmdRnTblPrint_Click();
void PrintTable();
// The last piece of a sample information, each of its lines after nine blanks.
void PrintIntended(const QString& text);

}  // namespace sidekin
