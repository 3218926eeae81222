#include "LabelColours.h"

#include <QLabel>
#include <QPalette>

namespace sidekin {

QColor fromVbColor(std::int32_t value) {
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

void setLabelColours(QLabel& label, std::int32_t background, std::int32_t text) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::Window, fromVbColor(background));
    palette.setColor(QPalette::WindowText, fromVbColor(text));
    label.setPalette(palette);
    label.setAutoFillBackground(true);
}

}  // namespace sidekin
