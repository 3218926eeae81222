#pragma once

#include <QString>

namespace sidekin {

// Looks for the data files of the runs still to come, marks their rows, and
// answers a report with one line per existing file (empty: none exists).
// Each call appends txtSubDir to GlblDataDir, as the original did.
QString DataFileExits();

}  // namespace sidekin
