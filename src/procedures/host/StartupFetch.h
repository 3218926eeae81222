#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

// The start-up fetch of the host's items and their arrival.

void FillArray();
std::int16_t Fetch();
void OpenDDELinks();
// Puts the newest value of a host item into its box on CPLinks.
void GetData(const QString& item);
// A notice of the feed on CPLinks: reads the item of that index into its box.
void Form_KeyPress(int keyAscii);
// The item's newest value, padded with blanks or cut to exactly 80 characters.
QString GetstringVal(const QString& item);
QString GetStringValFromVC(const QString& item, QString& buffer, int length);

}  // namespace sidekin
