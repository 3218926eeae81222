#include "Captions.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

#include "CaptionTable.h"
#include "Nls.h"

namespace sidekin {

QWidget* captionControl(QWidget& form, const CaptionEntry& entry) {
    if (*entry.control == '\0') return &form;
    return form.findChild<QWidget*>(QLatin1String(entry.control));
}

void setCaption(QWidget& control, const QString& text) {
    if (auto* label = qobject_cast<QLabel*>(&control))
        label->setText(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setText(text);
    else if (auto* frame = qobject_cast<QGroupBox*>(&control))
        frame->setTitle(text);
    else
        control.setWindowTitle(text);
}

void applyDesignCaptions(QWidget& form) {
    for (const CaptionEntry& entry : captionTable()) {
        if (form.objectName() != QLatin1String(entry.form)) continue;
        QWidget* control = captionControl(form, entry);
        if (!control) continue;
        if (entry.caption) setCaption(*control, englishText(entry.caption));
        if (entry.toolTip) control->setToolTip(englishText(entry.toolTip));
    }
}

}  // namespace sidekin
