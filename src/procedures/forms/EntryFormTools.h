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

// The sample information with each tab as seven blanks.
QString sampleInfoText(const EntryForm& form);
// A run table line of the form's fields, row number first, info last.
QString runTableLine(const EntryForm& form, std::int16_t row, const QString& info);

// A host reply compared with a number: empty compares as 0, other text must be a number.
bool replyIs(const QString& reply, double value);

// An exclamation box with OK: message and title by resource id, placeholders replaced.
void exclaim(int messageId, int titleId,
             std::initializer_list<std::pair<const char*, QString>> tokens = {});

}  // namespace sidekin
