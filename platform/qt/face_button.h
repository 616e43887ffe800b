// A push button that shows its whole caption in whatever place it was given: it breaks the caption
// into lines and, where even that is too wide, takes a smaller size of the font. A QPushButton has
// one line and cuts what does not fit.
#pragma once

#include <QPushButton>

namespace varno {

class FaceButton : public QPushButton {
  public:
    explicit FaceButton(QWidget* parent);

    // The font the caption is drawn in, chosen so that it fits.
    QFont CaptionFont() const;
    // What is left of the button for its caption.
    QRect CaptionRect() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace varno
