#pragma once

#include <QString>
#include <cstdint>
#include <initializer_list>
#include <utility>

class QWidget;

namespace sidekin {

class EntryForm;

// Window background for a field the operator may change, button face for a fixed one.
void setBackColour(QWidget& field, bool fixed);
bool hasButtonFaceColour(const QWidget& field);

// The pair section of ORQ.INI: sample, comma, method.
QString pairSection(const EntryForm& frm);

// A run table line of the form's fields, row number first; tabs of the
// sample information become seven blanks.
QString runTableLine(const EntryForm& form, std::int16_t row);

// A host reply compared with a number: empty compares as 0, other text must be a number.
bool replyIs(const QString& reply, double value);

// An exclamation box with OK: message and title by resource id, placeholders replaced.
void exclaim(int messageId, int titleId,
             std::initializer_list<std::pair<const char*, QString>> tokens = {});

}  // namespace sidekin
