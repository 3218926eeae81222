#include "Screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

namespace sidekin {

namespace {

constexpr float kTwipsPerInch = 1440.0f;
constexpr float kFallbackTwipsPerPixel = 15.0f;

QScreen* primaryScreen() { return qGuiApp ? QGuiApplication::primaryScreen() : nullptr; }

float twipsPerPixel(qreal dotsPerInch) {
    return dotsPerInch > 0 ? kTwipsPerInch / static_cast<float>(dotsPerInch)
                           : kFallbackTwipsPerPixel;
}

}  // namespace

float TwipsPerPixelX() {
    QScreen* screen = primaryScreen();
    return screen ? twipsPerPixel(screen->logicalDotsPerInchX()) : kFallbackTwipsPerPixel;
}

float TwipsPerPixelY() {
    QScreen* screen = primaryScreen();
    return screen ? twipsPerPixel(screen->logicalDotsPerInchY()) : kFallbackTwipsPerPixel;
}

int twipsToPixelsX(double twips) { return static_cast<int>(std::lround(twips / TwipsPerPixelX())); }

int twipsToPixelsY(double twips) { return static_cast<int>(std::lround(twips / TwipsPerPixelY())); }

WindowHandle windowHandleOf(QWidget& widget) { return static_cast<WindowHandle>(widget.winId()); }

}  // namespace sidekin
