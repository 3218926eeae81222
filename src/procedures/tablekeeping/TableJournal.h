#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

#include "RunTableFile.h"

namespace sidekin {

class FlexGridModel;

// The journal of the run table: after every change of the grid
// (rows, cells, colours, the walk's current run) the table is written whole
// to one file, crash-safely, at the end of the event turn in which it changed.
// A process killed at any moment leaves the last table written.
//
// The journal found at the start is kept until the table first holds a run:
// that is what the operator may recover. Only then is it overwritten.
class TableJournal : public QObject {
public:
    // stamp fills in the operator, instrument and current run of a table about to be written.
    TableJournal(FlexGridModel& model, QString path, std::function<void(RunTableSnapshot&)> stamp,
                 QObject* parent = nullptr);

    // The table the journal held at the start, while it may still be recovered.
    const std::optional<RunTableSnapshot>& recoverable() const { return recoverable_; }
    // Forgets the offer (the table was recovered, or another put in its place).
    void dropRecoverable() { recoverable_.reset(); }

    // Writes a pending change now; true when the file holds the table as it is.
    bool flush();
    // Writes done so far, and whether the last one failed (a full or read-only disk).
    int writes() const { return writes_; }
    bool failing() const { return failing_; }
    const QString& path() const { return path_; }
    // Told the bytes of each write before it starts (done false) and after it
    // succeeded (done true); the kill tests follow the writes with it.
    std::function<void(const QByteArray& bytes, bool done)> watcher;

private:
    void changed();

    FlexGridModel& model_;
    QString path_;
    std::function<void(RunTableSnapshot&)> stamp_;
    std::optional<RunTableSnapshot> recoverable_;
    std::optional<RunTableSnapshot> written_;
    bool queued_ = false;
    bool failing_ = false;
    int writes_ = 0;
};

}  // namespace sidekin
