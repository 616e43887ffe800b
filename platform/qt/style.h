// The style of every window and dialog: Fusion, with borders that can be seen in any colours and at
// any scale of the screen.
#pragma once

#include <QProxyStyle>

namespace varno {

class Style final : public QProxyStyle {
  public:
    Style();

    // What is selected can be read in any theme.
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
};

}  // namespace varno
