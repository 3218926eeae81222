#pragma once

#include <QString>
#include <functional>

class QComboBox;
class QLineEdit;
class QWidget;

namespace sidekin {

// Lists and fields with the legacy platform's manners: filling or clearing a
// list raises no click, a drop-down list takes only a text of its list, and a
// field that cannot take the focus refuses it with a run-time error.

// Appends an entry; the selection and the text stay as they were.
void AddItem(QComboBox& list, const QString& text);
// Empties the list and its text without raising an event.
void ClearList(QComboBox& list);
// Selects the entry with this text (its click runs when the selection changes);
// error 383 when a drop-down list has no such entry. A list with free text takes any text.
void setListText(QComboBox& list, const QString& text);

// Wires a list's Click: a new selection, by program or by the operator, and
// every pick by the operator even of the entry already chosen. Emptying the
// list raises none.
void onListClick(QComboBox& list, std::function<void()> click);

// Focus to the field; error 5 when it is disabled or hidden.
void SetFocus(QWidget& field);
// Selection start 0 and length 100: all of a shorter text.
void selectFrom0Length100(QLineEdit& field);
// Caret at position 100: behind the last character of a shorter text.
void caretAt100(QLineEdit& field);

constexpr int ErrTextReadOnly = 383;

}  // namespace sidekin
