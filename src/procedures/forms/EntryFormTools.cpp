#include "EntryFormTools.h"

#include <QApplication>
#include <QComboBox>
#include <QWidget>

#include "EntryForms.h"
#include "G11n.h"
#include "NameRules.h"
#include "platform/LegacyText.h"
#include "platform/OperatorDialogs.h"

namespace sidekin {

void setBackColour(QWidget& field, bool fixed) {
    QPalette palette = field.palette();
    const QPalette standard = QApplication::palette(&field);
    palette.setColor(QPalette::Base, standard.color(fixed ? QPalette::Button : QPalette::Base));
    field.setPalette(palette);
}

bool hasButtonFaceColour(const QWidget& field) {
    return field.palette().color(QPalette::Base) ==
           QApplication::palette(&field).color(QPalette::Button);
}

QString pairSection(const EntryForm& frm) {
    return frm.cboSample->currentText() + QLatin1Char(',') + frm.cboMethod->currentText();
}

void exclaim(int messageId, int titleId,
             std::initializer_list<std::pair<const char*, QString>> tokens) {
    QString text = GetResourceString(messageId);
    for (const auto& [token, value] : tokens)
        text = ReplaceString(text, QString::fromLatin1(token), value);
    dialogs().messageBox(BoxStyle::ExclamationOk, text, GetResourceString(titleId));
}

}  // namespace sidekin
