#pragma once

namespace sidekin {

class FrmOrq;

// Where every event of the program's forms meets its procedure.

// Connects the boxes of CPLinks now, and has frmORQ wired and loaded at its
// first access. Called once at start-up, before anything touches the forms.
void installEventWiring();
// CPLinks alone: the feed's notices read into its boxes, nothing more.
void installLinkFormWiring();

// frmORQ's events connected to their procedures.
void wireFrmOrq(FrmOrq& form);

void ddeShowORQ_Change();

}  // namespace sidekin
