#include "platform/qt/style.h"

#include <QPainter>
#include <QStyleOption>

namespace varno {
namespace {

// Half-way between the window's ink and its paper it stands out from both.
QColor BorderColour(const QStyleOption& option) {
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    if (focused) {
        return option.palette.color(QPalette::Highlight);
    }
    const QColor ink = option.palette.color(QPalette::Active, QPalette::WindowText);
    const QColor paper = option.palette.color(QPalette::Window);
    return QColor::fromRgb((ink.red() + paper.red()) / 2, (ink.green() + paper.green()) / 2,
                           (ink.blue() + paper.blue()) / 2);
}

// Filled strips, not lines: at 125 or 150 % a line of one pixel can fall between the pixels of the
// screen, under the control that the border surrounds; a strip keeps at least one of them.
void DrawBorder(const QStyleOption& option, QPainter* painter) {
    const QRect& all = option.rect;
    const QColor colour = BorderColour(option);
    for (const QRect& edge : {QRect(all.left(), all.top(), all.width(), 1),
                              QRect(all.left(), all.bottom(), all.width(), 1),
                              QRect(all.left(), all.top(), 1, all.height()),
                              QRect(all.right(), all.top(), 1, all.height())}) {
        painter->fillRect(edge, colour);
    }
}

}  // namespace

Style::Style() : QProxyStyle(QStringLiteral("Fusion")) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
        case PE_Frame:  // of lists and editors
        case PE_FrameLineEdit:
        case PE_FrameMenu:
            DrawBorder(*option, painter);
            return;
        case PE_IndicatorCheckBox:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            DrawBorder(*option, painter);
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item->menuItemType == QStyleOptionMenuItem::Separator) {
        constexpr int Margin = 5;
        const QRect& room = option->rect;
        painter->fillRect(room.left() + Margin, room.center().y(), room.width() - 2 * Margin, 1,
                          BorderColour(*option));
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
    if (metric == PM_MenuBarItemSpacing) {
        return 0;  // the captions fit beside each other at the smallest width of the window
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace varno
