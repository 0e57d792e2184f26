#include "corvex/qt/screen.h"

#include <QGuiApplication>
#include <QScreen>

#include "corvex/qt/control_host.h"

namespace corvex::qt {

namespace {

// A screen of 96 dots per inch when the application has none at all.
constexpr double kDefaultTwipsPerPixel = 15;

QScreen* primary() {
    return QGuiApplication::primaryScreen();
}

}  // namespace

double QtScreen::twipsPerPixelX() const {
    QScreen* s = primary();
    return s ? 1440.0 / s->logicalDotsPerInchX() : kDefaultTwipsPerPixel;
}

double QtScreen::twipsPerPixelY() const {
    QScreen* s = primary();
    return s ? 1440.0 / s->logicalDotsPerInchY() : kDefaultTwipsPerPixel;
}

float QtScreen::width() const {
    QScreen* s = primary();
    return s ? static_cast<float>(s->geometry().width() * twipsPerPixelX()) : 0.f;
}

float QtScreen::height() const {
    QScreen* s = primary();
    return s ? static_cast<float>(s->geometry().height() * twipsPerPixelY()) : 0.f;
}

Screen& QtControlHost::screen() {
    static QtScreen theScreen;
    return theScreen;
}

}  // namespace corvex::qt
