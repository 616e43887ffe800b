#include "platform/qt/style.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

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

constexpr double LeastContrast = 4.5;

// As the eye sees it, 0 to 1.
double Lightness(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& ink, const QColor& paper) {
    const auto [dark, light] = std::minmax({Lightness(ink), Lightness(paper)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace

// The face is made darker under light ink and lighter under dark ink, and a little more: a selected
// row is shaded from above to below, by 3 % around its colour.
void Style::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor ink = palette.color(group, QPalette::HighlightedText);
        QColor face = palette.color(group, QPalette::Highlight);
        const bool lightInk = Lightness(ink) > 0.18;
        const auto worst = [&] { return lightInk ? face.lighter(104) : face.darker(104); };
        for (int step = 0; step < 40 && Contrast(ink, worst()) < LeastContrast; ++step) {
            face = lightInk ? face.darker(105) : face.lighter(105);
        }
        palette.setColor(group, QPalette::Highlight, face);
    }
}

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
