// The widget that shows paper: white in every theme, with a rule of its columns above it.
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>
#include <vector>

#include "paper/paper.h"
#include "platform/qt/paper_painter.h"

namespace varno {

class PaperSheet final : public QAbstractScrollArea {
  public:
    explicit PaperSheet(QWidget* parent);

    void ShowPaper(const Paper& paper);
    const Paper& Shown() const { return paper_; }
    void SetCaret(std::optional<PaperPlace> caret);
    std::optional<PaperPlace> Caret() const { return caret_; }
    void ZoomBy(int steps);  // 0: back to the first size
    void ScrollTo(PaperPlace place);

    // The cell at a place, in the viewport's coordinates; back, the place that is shown there.
    QRectF CellAt(PaperPlace place) const;
    PaperPlace PlaceAt(QPointF point) const;

    // The paper as readable text, each row ended by a line feed, and where in it its rows begin; a
    // column of the paper is a character of it.
    const QString& Text() const { return text_; }
    int OffsetOf(PaperPlace place) const;
    PaperPlace PlaceOf(int offset) const;

    std::function<void(PaperPlace)> OnClick;
    std::function<void(const QString& before)> OnTextChange;  // of the readable text
    std::function<void()> OnCaretMove;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void TakeText();
    void Measure();
    QSizeF SheetSize() const;
    QPointF Origin() const;
    std::size_t RowOfLine(int line) const;
    void DrawSheet(QPainter& painter) const;
    void DrawRule(QPainter& painter) const;
    void DrawCaret(QPainter& painter) const;
    void DrawRows(QPainter& painter, const QRect& region);

    Paper paper_;
    std::vector<int> lines_{0};  // the uppermost line of each row, and where the last one ends
    QString text_;
    std::vector<int> offsets_{0};  // in text_, of each row and of the end
    std::optional<PaperPlace> caret_;
    PaperGrid grid_;
    int zoom_ = 0;  // steps
};

}  // namespace varno
