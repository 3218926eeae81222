#include "ListControls.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "RuntimeError.h"

namespace sidekin {

void AddItem(QComboBox& list, const QString& text) {
    const QSignalBlocker quiet(list);
    const int index = list.currentIndex();
    const QString edited = list.currentText();
    list.addItem(text);
    if (list.currentIndex() != index) list.setCurrentIndex(index);
    if (list.isEditable() && list.currentText() != edited) list.setEditText(edited);
}

void ClearList(QComboBox& list) {
    const QSignalBlocker quiet(list);
    list.clear();
    if (list.isEditable()) list.clearEditText();
}

void setListText(QComboBox& list, const QString& text) {
    if (list.isEditable()) {
        list.setEditText(text);
        return;
    }
    const int index = list.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        throw RuntimeError(ErrTextReadOnly, QStringLiteral("'Text' property is read-only"));
    list.setCurrentIndex(index);
}

void SetFocus(QWidget& field) {
    if (!field.isEnabled() || field.isHidden()) raiseError(ErrInvalidCall);
    field.setFocus(Qt::OtherFocusReason);
}

void selectFrom0Length100(QLineEdit& field) {
    field.setSelection(0, std::min<int>(100, static_cast<int>(field.text().size())));
}

void caretAt100(QLineEdit& field) {
    field.setCursorPosition(std::min<int>(100, static_cast<int>(field.text().size())));
}

}  // namespace sidekin
