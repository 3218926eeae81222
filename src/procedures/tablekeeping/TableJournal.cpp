#include "TableJournal.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include "FlexGridModel.h"
#include "platform/SafeFile.h"

namespace sidekin {

TableJournal::TableJournal(FlexGridModel& model, QString path,
                           std::function<void(RunTableSnapshot&)> stamp, QObject* parent)
    : QObject(parent), model_(model), path_(std::move(path)), stamp_(std::move(stamp)) {
    const RunTableFileRead found = readRunTableFile(path_);
    if (found.table && !found.table->rows.empty()) recoverable_ = found.table;
    // Until the table changes, the file on disk stands for it.
    const auto watch = [this] { changed(); };
    connect(&model_, &QAbstractItemModel::rowsInserted, this, watch);
    connect(&model_, &QAbstractItemModel::rowsRemoved, this, watch);
    connect(&model_, &QAbstractItemModel::dataChanged, this, watch);
    connect(&model_, &QAbstractItemModel::modelReset, this, watch);
    connect(&model_, &QAbstractItemModel::layoutChanged, this, watch);
    connect(&model_, &FlexGridModel::gridSelectionChanged, this, watch);
}

void TableJournal::changed() {
    if (queued_) return;
    queued_ = true;
    QTimer::singleShot(0, this, [this] { flush(); });
}

bool TableJournal::flush() {
    queued_ = false;
    RunTableSnapshot table = snapshotOf(model_.grid());
    if (stamp_) stamp_(table);
    // An empty table at the start does not overwrite the journal of the last session.
    if (!written_ && table.rows.empty()) return true;
    if (written_ && written_->sameTable(table) && !failing_) return true;
    table.saved = QDateTime::currentDateTime();
    QDir().mkpath(QFileInfo(path_).absolutePath());
    const QByteArray bytes = encodeRunTable(table);
    if (watcher) watcher(bytes, false);
    failing_ = !replaceFileSafely(path_, bytes, 0600);
    if (failing_) return false;
    if (watcher) watcher(bytes, true);
    ++writes_;
    written_ = std::move(table);
    if (!written_->rows.empty()) recoverable_.reset();
    return true;
}

}  // namespace sidekin
