#pragma once

class QMenu;

namespace sidekin {

class FrmOrq;

// The additions to frmORQ, installed once the legacy start-up is done
// (after Main): the run table's journal, the grid's context menu (recover,
// save, open, import, export), Ctrl+S and Ctrl+O, and the desktop notices of
// a walk that completes, is stopped or loses a run. Nothing of the legacy
// start-up, texts or screens changes.
void installTableKeeping();

// The pieces, for tests.
void wireTableKeeping(FrmOrq& form);
// A walk's end as the run label tells it: the notice to send, if any.
void noticeWalkOutcome();
// The grid's context menu as it would show now.
void fillRunTableMenu(QMenu& menu);

}  // namespace sidekin
