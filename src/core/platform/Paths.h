#pragma once

#include <QString>

namespace sidekin {

// A path as the host and the configuration write it (backslashes as folder
// separators) in the form this platform's file system takes.
QString nativePath(const QString& path);

}  // namespace sidekin
