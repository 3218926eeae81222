#pragma once

#include "WindowSystem.h"

class QWidget;

namespace sidekin {

// Twips per pixel of the primary screen, in single precision like the legacy
// Screen object: 1440 over the logical DPI, 15 when there is no screen.
float TwipsPerPixelX();
float TwipsPerPixelY();

// Twips to whole pixels, rounded to nearest.
int twipsToPixelsX(double twips);
int twipsToPixelsY(double twips);

// The native handle of the widget's window; creates the window if needed.
WindowHandle windowHandleOf(QWidget& widget);

}  // namespace sidekin
