#include "platform/qt/face_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace varno {
namespace {

constexpr int CaptionFlags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;
constexpr double SmallestPoints = 6.0;

// A caption of a disabled button is faint, but can be read.
QColor Faint(const QColor& ink, const QColor& face) {
    constexpr double Ink = 0.55;
    const auto mix = [&](double a, double b) {
        return static_cast<float>(Ink * a + (1 - Ink) * b);
    };
    return QColor::fromRgbF(mix(ink.redF(), face.redF()), mix(ink.greenF(), face.greenF()),
                            mix(ink.blueF(), face.blueF()));
}

bool Fits(const QFont& font, const QString& caption, const QRect& room) {
    // Lines break at blanks only: a word wider than the room does not fit.
    const QRect needed = QFontMetrics(font).boundingRect(room, CaptionFlags, caption);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

}  // namespace

// Which button of a dialog Enter presses is said by its design, not by the focus.
FaceButton::FaceButton(QWidget* parent) : QPushButton(parent) {
    setAutoDefault(false);
}

QRect FaceButton::CaptionRect() const {
    return rect().adjusted(2, 1, -2, -1);
}

QFont FaceButton::CaptionFont() const {
    QFont fitting = font();
    while (!Fits(fitting, text(), CaptionRect()) && fitting.pointSizeF() > SmallestPoints) {
        fitting.setPointSizeF(fitting.pointSizeF() - 0.25);
    }
    return fitting;
}

void FaceButton::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_PushButton, option);

    const bool pressed = isChecked();
    const QPalette::ColorRole faceRole = pressed ? QPalette::Highlight : QPalette::Button;
    const QColor face = palette().color(QPalette::Active, faceRole);
    if (pressed) {  // a plainly different face: the highlight colour, whatever the theme
        painter.setPen(face.darker(150));
        painter.setBrush(isEnabled() ? face : Faint(face, palette().color(QPalette::Button)));
        painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), 2, 2);
    }
    const QColor ink = palette().color(QPalette::Active,
                                       pressed ? QPalette::HighlightedText : QPalette::ButtonText);
    painter.setFont(CaptionFont());
    painter.setPen(isEnabled() || pressed ? ink : Faint(ink, face));
    painter.drawText(CaptionRect(), CaptionFlags, text());
    if (pressed && hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(2, 2, -3, -3));
    }
}

void FaceButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !event->isAutoRepeat()) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

}  // namespace varno
