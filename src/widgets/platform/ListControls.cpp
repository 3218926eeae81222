#include "ListControls.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <utility>

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

void onListClick(QComboBox& list, std::function<void()> click) {
    // An operator's pick of a new entry raises both signals, change first;
    // the flag outlives the click (and any yield in it) until that pick's
    // activation, or the next turn of the event loop after a program's write.
    auto justChanged = std::make_shared<bool>(false);
    QObject::connect(&list, &QComboBox::currentIndexChanged, &list,
                     [&list, click, justChanged](int index) {
                         if (index >= 0) click();
                         *justChanged = true;
                         QTimer::singleShot(0, &list, [justChanged] { *justChanged = false; });
                     });
    QObject::connect(&list, &QComboBox::activated, &list, [click, justChanged](int) {
        if (std::exchange(*justChanged, false)) return;
        click();
    });
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
