#pragma once

#include <QString>
#include <initializer_list>
#include <utility>

namespace sidekin {

// Small helpers of the table keeping procedures.

// A text with its tokens replaced.
QString withTokens(int id, std::initializer_list<std::pair<const char*, QString>> tokens);
// An exclamation box with OK, the title by id.
void tell(const QString& text, int titleId);
// A Yes/No question; true for Yes.
bool ask(const QString& text, int titleId);
// A walk is going on (or paused): the table's rows belong to it.
bool walking();
// The run table commands on, the subdirectory shown, as after Add.
void enableTableCommands();

}  // namespace sidekin
