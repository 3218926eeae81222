#pragma once

#include <QString>

namespace sidekin {

// Brings the program up, in order: texts, command line, main window and its
// place in the host window, then the host's show/hide value.
void Main(const QString& commandLine);

}  // namespace sidekin
