#include "AppState.h"

namespace sidekin {

AppState App;

void resetAppState() { App = AppState{}; }

}  // namespace sidekin
