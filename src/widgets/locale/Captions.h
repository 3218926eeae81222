#pragma once

#include <QString>

class QWidget;

namespace sidekin {

struct CaptionEntry;

// The control an entry names on its form: the form itself for its title.
QWidget* captionControl(QWidget& form, const CaptionEntry& entry);
// A label's or button's text, a frame's title, a window's title.
void setCaption(QWidget& control, const QString& text);

// Gives a form the captions and tool tips of its design, the English texts.
void applyDesignCaptions(QWidget& form);

}  // namespace sidekin
