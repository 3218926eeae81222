#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "FlexGrid.h"

namespace sidekin {

// A run table as it is kept on disk: the journal of the run table and the
// files the operator saves and opens share this one format (JSON, UTF-8).
// The legacy program kept no table.

struct RunTableRow {
    std::array<QString, 10> cells;
    std::array<GridColor, 10> colours{};  // GridDefaultColor where never coloured
    bool operator==(const RunTableRow&) const = default;
};

struct RunTableSnapshot {
    QString operatorName;
    int instrument = 0;
    QDateTime saved;     // local time of the write
    int currentRun = 0;  // the walk's current run, 0 when no walk went on
    std::vector<RunTableRow> rows;
    // The same rows, colours and current run (who and when aside).
    bool sameTable(const RunTableSnapshot& other) const {
        return rows == other.rows && currentRun == other.currentRun;
    }
};

enum class RunTableFileError {
    None,
    Unreadable,  // not there or not readable
    Damaged,     // cut short or not valid JSON
    NotATable,   // valid JSON, not a run table
    Newer,       // written by a later version of the format
    BadRow,      // a row without its ten cells or colours
    TooMany,     // more runs than the grid's 16-bit row counter allows (32,766)
};

struct RunTableFileRead {
    RunTableFileError error = RunTableFileError::None;
    int badRow = 0;  // 1-based, for BadRow
    std::optional<RunTableSnapshot> table;
};

// The data rows (below the header row) of a grid of ten or more columns.
RunTableSnapshot snapshotOf(const FlexGrid& grid);

QByteArray encodeRunTable(const RunTableSnapshot& table);
RunTableFileRead decodeRunTable(const QByteArray& bytes);
RunTableFileRead readRunTableFile(const QString& path);

// $XDG_STATE_HOME/sidekin, or ~/.local/state/sidekin when it is unset or not absolute.
QString stateFolder();
// The journal of one instrument's run table.
QString journalPath(int instrument);

}  // namespace sidekin
