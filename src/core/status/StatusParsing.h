#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace sidekin {

// Background and text colour as 24-bit numbers of the legacy platform.
struct LabelColours {
    std::int32_t background = 0;
    std::int32_t text = 0;
};

// What one system status "x|x|ready colour|ready text|method colour|method text"
// does to the ready and method labels. The steps are nested: an empty field or an
// unknown colour ends the update, and the steps before it stand.
struct SystemStatusUpdate {
    std::optional<LabelColours> readyColours;
    std::optional<QString> readyText;
    std::optional<LabelColours> methodColours;
    std::optional<QString> methodText;
    bool complete = false;  // every step taken: the host's words are kept as the last status
    QString hostReady;
    QString hostMethod;
};

SystemStatusUpdate parseSystemStatus(const QString& status);

// The time status "what|value|unit" as the label shows it, "what: value unit",
// translated; nothing when the first or second field is empty.
std::optional<QString> statusTimeText(const QString& status);

}  // namespace sidekin
