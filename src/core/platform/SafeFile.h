#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace sidekin {

// Replaces a file's whole content so that a reader sees the old file or the
// new one whenever the writer dies: a temporary ".NAME.tmp-XXXXXXXX" beside it,
// synced, renamed over it, the folder synced. Temporaries left by writers that
// died are removed at the next write. The counter's profile writes and the run
// table's journal both go through here. A mode (permission bits) is given to
// the new file when set. False when anything failed; the old file then stays.
bool replaceFileSafely(const QString& path, const QByteArray& bytes,
                       std::optional<unsigned> mode = std::nullopt);

}  // namespace sidekin
