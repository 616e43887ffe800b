// Tells the marks of a ticket apart by more than their colours: frames of different shapes around
// the codes, and hatching under what is in no ticket. It only paints; the document knows nothing.
#pragma once

#include <QPainter>
#include <QTextEdit>
#include <QTextLayout>
#include <vector>

#include "codec/pieces.h"
#include "platform/qt/marked_cursor.h"

namespace varno {

class MarkPainter {
  public:
    // `exposed`: what is painted of the editor's viewport.
    MarkPainter(const QTextEdit& editor, const QRect& exposed);

    void PaintUnderText() const;
    void PaintOverText() const;

  private:
    // Pieces side by side that look the same, and one code by itself. Viewport measures.
    struct Stretch {
        Piece::Kind look;
        QRect box;
        QRect selected;  // the part of the box that is; maybe empty
    };

    double TopOf(const QTextBlock& block) const;
    void AddBlock(const QTextBlock& block);
    void AddLine(const QTextBlock& block, const QTextLine& line, const std::vector<Piece>& pieces);

    void PaintSelected(QPainter& painter, const Stretch& stretch) const;

    const QTextEdit& editor_;
    MarkedReader reader_;
    QRectF exposed_;
    QPointF origin_;  // of the document
    std::vector<Stretch> stretches_;
};

}  // namespace varno
