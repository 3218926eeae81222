#include "Events.h"

#include <QCoreApplication>
#include <cstdlib>

namespace sidekin {

namespace {
std::function<void()>& endHook() {
    static std::function<void()> hook;
    return hook;
}
}  // namespace

void DoEvents() {
    if (QCoreApplication::instance()) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void endProgram() {
    if (endHook()) endHook()();
    // A nested event loop or a window parented into a foreign one would keep a
    // gentler exit waiting.
    std::_Exit(0);
}

void setEndProgramHook(std::function<void()> hook) { endHook() = std::move(hook); }

}  // namespace sidekin
