// Any status line from the host: no crash and no undefined behaviour; the steps
// of a system status stand in their order, and a time text has its two parts.
#include <cstdint>

#include "Nls.h"
#include "StatusParsing.h"

using namespace sidekin;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    NLSInit(0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString line = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const SystemStatusUpdate update = parseSystemStatus(line);
    // Nested steps: none is taken unless the one before it was.
    if (update.readyText && !update.readyColours) abort();
    if (update.methodColours && !update.readyText) abort();
    if (update.methodText && !update.methodColours) abort();
    if (update.complete && !update.methodText) abort();
    if (const auto time = statusTimeText(line); time && !time->contains(QLatin1String(": ")))
        abort();
    return 0;
}
