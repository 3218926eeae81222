#pragma once

#include <QString>

namespace sidekin {

// Reads the host's command line (handle|service|"folder"|instrument|flag) into
// the shared state and looks for the host's "ViewMGR" child window.
void ParseCommandLine(const QString& commandLine);

inline const QString DefaultOrqDir = QStringLiteral("C:\\Zentro32\\ORQ\\");

}  // namespace sidekin
