#pragma once

#include <QString>

#include "RunTableFile.h"

namespace sidekin {

class TableJournal;

// Keeping frmORQ's run table: its journal, saved tables and
// worklists. None of this runs in the legacy start-up; startTableJournal is
// called once the main window is up, and the rest from the grid's context
// menu and the keys Ctrl+S and Ctrl+O.

// Starts the journal of frmORQ's run table in journalPath(GlblInstrument).
void startTableJournal();
// Ends it (tests); the file stays.
void stopTableJournal();
// The journal, nullptr before the start.
TableJournal* tableJournal();

// "Recover the table of <date time> (<n> runs)" while the table is empty and
// the journal holds a table of the last session; empty otherwise.
QString recoverOfferText();
// Puts the journal's table back, colours included; never starts a walk.
void RecoverRunTable();

// The table to a file the operator names, and a file's table into the grid.
void SaveRunTable();
void OpenRunTable();

// Worklist CSV files: rows through the checks of Add, and the table out again.
void ImportWorklist();
void ExportWorklist();
// The same on a named file, without the file dialog (the benchmarks call these).
void ImportWorklistFile(const QString& path);
bool ExportWorklistFile(const QString& path);

// The table as it stands, with the operator, instrument and current run.
RunTableSnapshot currentRunTable();
// Rows, cells and colours of table into frmORQ's grid, its commands enabled as
// after Add; the walk's current run is not restored.
void putTableBack(const RunTableSnapshot& table);

}  // namespace sidekin
