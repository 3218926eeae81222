#pragma once

#include <cstdint>

class QWidget;

namespace sidekin {

// Reads the language's font character set (the numeric prefix of text 17320)
// into App.GlblFontCharset and answers it.
std::int16_t readFontCharset();

// Gives the widget a font that can show the script of a legacy character set
// number (0 ANSI, 128 Shift-JIS, 134 GB2312, 204 Cyrillic, ...). Latin sets and
// unknown numbers restore the application's font family. The number is kept in
// the widget's property "fontCharset".
void applyFontCharset(QWidget& widget, int charset);

}  // namespace sidekin
