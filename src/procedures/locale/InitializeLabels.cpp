#include <QGroupBox>
#include <QLabel>
#include <utility>
#include <vector>

#include "CaptionTable.h"
#include "Captions.h"
#include "EntryForms.h"
#include "FontCharset.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "Labels.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

namespace {

QWidget& formNamed(const char* name) {
    if (frmORQ().objectName() == QLatin1String(name)) return frmORQ();
    if (frmRnTblAdd().objectName() == QLatin1String(name)) return frmRnTblAdd();
    return frmRnTblEdit();
}

QWidget& controlOf(const CaptionEntry& entry) {
    QWidget* control = captionControl(formNamed(entry.form), entry);
    if (!control) raiseError(91);  // a control missing from its form's design
    return *control;
}

void setFontSize(QWidget& control, std::int32_t id) {
    // A frame's size is its caption's alone: the controls inside keep theirs.
    std::vector<std::pair<QWidget*, qreal>> inside;
    if (qobject_cast<QGroupBox*>(&control))
        for (QWidget* child : control.findChildren<QWidget*>())
            inside.emplace_back(child, child->font().pointSizeF());
    QFont font = control.font();
    // No digits reads as size 0, which the widget shows as its smallest.
    font.setPointSizeF(std::max(Val(GetResourceString(id)), 1.0));
    control.setFont(font);
    for (auto [child, size] : inside) {
        if (child->font().pointSizeF() == size) continue;
        QFont own;  // the size alone, so the rest still follows the form
        own.setPointSizeF(size);
        child->setFont(own);
    }
}

QString revision() {
    return QStringLiteral(" (Rev: %1.%2.%3)")
        .arg(SIDEKIN_VERSION_MAJOR)
        .arg(SIDEKIN_VERSION_MINOR)
        .arg(SIDEKIN_VERSION_PATCH);
}

}  // namespace

void InitializeLabelsAndButtons() {
    handled("InitializeLabels & Buttons", [] {
        const std::int16_t charset = readFontCharset();
        for (const CaptionEntry& entry : captionTable()) {
            QWidget& control = controlOf(entry);
            if (qobject_cast<QLabel*>(&control)) applyFontCharset(control, charset);
        }
        frmORQ().setWindowTitle(GetResourceString(17002) + revision());
        for (const CaptionEntry& entry : captionTable()) {
            QWidget& control = controlOf(entry);
            if (&control == &frmORQ()) continue;  // the title has its revision
            if (entry.caption) setCaption(control, GetResourceString(entry.caption));
            if (entry.fontSize) setFontSize(control, entry.fontSize);
        }
        for (const CaptionEntry& entry : captionTable())
            if (entry.toolTip) controlOf(entry).setToolTip(GetResourceString(entry.toolTip));
    });
}

}  // namespace sidekin
