// Draws paper, on the screen as on a printer.
#pragma once

#include <QFont>
#include <QPainter>

#include "paper/look.h"

namespace varno {

// The measures of the cells, in the painter's units. A line is twice as high as a column is wide.
struct PaperGrid {
    QFont font;    // whose characters are as wide as a column
    qreal column;  // width

    qreal Line() const { return 2 * column; }  // height
};

// In a fixed-width font for a device.
PaperGrid GridFor(const QFont& font, const QPaintDevice* device);

// Draws the rows of one paper. `origin`: the upper left corner of its first cell.
class PaperPainter {
  public:
    PaperPainter(QPainter& painter, const PaperGrid& grid, int paperWidth)
        : painter_(painter), grid_(grid), paperWidth_(paperWidth) {}

    // `line`: the uppermost one that the row takes.
    void DrawRow(const PaperRow& row, QPointF origin, int line);
    // Text that says something about the paper.
    void DrawNote(const QString& text, QPointF origin, int column, int line, Colour colour);

  private:
    void DrawRun(const PaperRun& run, QRectF place);
    void DrawCharacters(const PaperRun& run, QRectF place);
    void DrawText(const QString& text, const QFont& font);

    QPainter& painter_;
    const PaperGrid& grid_;
    int paperWidth_;  // columns
};

}  // namespace varno
