#pragma once

#include <cstdint>

namespace sidekin {

// lblCurrentRun: a run progress text, with the current run's number behind it or alone.
void showRunText(std::int32_t id);
void showRunTextAlone(std::int32_t id);
void clearStatusTime();
// The language's character set on lblCurrentRun, at the head of each handler that writes it.
void applyRunLabelCharset();

// The Start button's caption and tool tip.
void setStartButton(std::int32_t captionId, std::int32_t toolTipId);

}  // namespace sidekin
