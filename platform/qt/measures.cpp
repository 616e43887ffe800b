#include "platform/qt/measures.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QtMath>

namespace varno {
namespace {

double TwipsPerPixel() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dotsPerInch = screen != nullptr ? screen->logicalDotsPerInch() : 96.0;
    return 1440.0 / dotsPerInch;
}

QFont SansSerif(double points) {
    QFont font;
    font.setFamilies({"Liberation Sans", "Arial", "Helvetica", "sans-serif"});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    return font;
}

}  // namespace

int ToPixels(int twips) {
    return qRound(twips / TwipsPerPixel());
}
int ToTwips(int pixels) {
    return qRound(pixels * TwipsPerPixel());
}

// Edge by edge, so that controls side by side stay so however the pixels fall.
QRect ToPixels(const Place& place) {
    const int left = ToPixels(place.left);
    const int top = ToPixels(place.top);
    return {left, top, ToPixels(place.left + place.width) - left,
            ToPixels(place.top + place.height) - top};
}

Place ToTwips(const QRect& rect) {
    return {ToTwips(rect.x()), ToTwips(rect.y()), ToTwips(rect.width()), ToTwips(rect.height())};
}

int WidthForTitle(const QString& title) {
    constexpr int IconAndButtons = 120;
    return QFontMetrics(ToQt(FontFace::Interface)).horizontalAdvance(title) * 3 / 2 +
           IconAndButtons;
}

QFont ToQt(FontFace face) {
    switch (face) {
        case FontFace::FixedWidth: {
            QFont font;
            font.setFamilies({"Courier", "Liberation Mono", "monospace"});
            font.setStyleHint(QFont::Monospace);
            font.setFixedPitch(true);
            font.setPointSizeF(9.75);
            return font;
        }
        case FontFace::List:
            return SansSerif(9.75);
        case FontFace::Interface:
            break;
    }
    return SansSerif(8.25);
}

}  // namespace varno
