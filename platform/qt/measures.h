// Between the program's vocabulary and Qt's: texts, twips, colours, fonts.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "platform/design.h"

namespace varno {

inline QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

inline QColor ToQt(Colour colour) {
    return QColor::fromRgb(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                           static_cast<int>((colour >> 16) & 0xFF));
}
inline Colour FromQt(const QColor& colour) {
    return static_cast<Colour>(colour.red()) | static_cast<Colour>(colour.green()) << 8 |
           static_cast<Colour>(colour.blue()) << 16;
}

// A twip is 1/1440 inch of the screen's own inch.
int ToPixels(int twips);
int ToTwips(int pixels);
QRect ToPixels(const Place& place);
Place ToTwips(const QRect& rect);

// The width in pixels of a window whose title bar shows this title whole, as far as one can know:
// its font and buttons are the desktop's.
int WidthForTitle(const QString& title);

// The faces of the design tables. The interface font is small: the captions have to fit the
// places they were designed for.
QFont ToQt(FontFace face);

}  // namespace varno
