#include "WindowSystem.h"

namespace sidekin {

namespace {
NullWindowSystem nullSystem;
WindowSystem* current = &nullSystem;
}  // namespace

WindowSystem& windowSystem() { return *current; }

void setWindowSystem(WindowSystem* implementation) {
    current = implementation ? implementation : &nullSystem;
}

}  // namespace sidekin
