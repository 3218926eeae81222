#pragma once

namespace sidekin {

// Writes every caption, font size and tool tip of the three forms in the
// language in use; brings the entry forms into being, hidden.
void InitializeLabelsAndButtons();

}  // namespace sidekin
