#pragma once

#include <cstdint>
#include <span>

namespace sidekin {

// Where each form's captions, tool tips and font sizes come from: text ids by
// control. 0 means none. An empty control name stands for the form's title.
// The order is the order in which InitializeLabels & Buttons writes them.
struct CaptionEntry {
    const char* form;
    const char* control;
    std::int32_t caption;
    std::int32_t toolTip;
    std::int32_t fontSize;
};

std::span<const CaptionEntry> captionTable();

}  // namespace sidekin
