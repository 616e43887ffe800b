#include "platform/qt/paper_painter.h"

#include <cmath>

#include "platform/qt/measures.h"

namespace varno {
namespace {

constexpr qreal Baseline = 0.75;  // of a line's height, below its top

}  // namespace

PaperGrid GridFor(const QFont& font, const QPaintDevice* device) {
    const QFontMetricsF metrics(font, device);
    return {font, metrics.horizontalAdvance(u'0')};
}

void PaperPainter::DrawRow(const PaperRow& row, QPointF origin, int line) {
    const qreal top = origin.y() + line * grid_.Line();
    if (row.kind == PaperRow::Kind::Cut) {
        painter_.setPen(QPen(ToQt(InkColour), grid_.column / 12, Qt::DashLine));
        const qreal middle = top + grid_.Line() / 2;
        painter_.drawLine(QPointF(origin.x(), middle),
                          QPointF(origin.x() + paperWidth_ * grid_.column, middle));
    }
    for (const PaperRun& run : RunsOf(row)) {
        const int lowered = LinesOf(row) - run.Lines();  // all stand on the lower edge
        DrawRun(run, {origin.x() + run.column * grid_.column, top + lowered * grid_.Line(),
                      run.Columns() * grid_.column, run.Lines() * grid_.Line()});
    }
    if (row.breaks) {
        DrawNote(QString(QChar(BreakMark)), origin, paperWidth_, line + LinesOf(row) - 1,
                 UnknownColour);
    }
}

void PaperPainter::DrawNote(const QString& text, QPointF origin, int column, int line,
                            Colour colour) {
    painter_.setPen(ToQt(colour));
    painter_.setFont(grid_.font);
    painter_.drawText(origin + QPointF(column * grid_.column, (line + Baseline) * grid_.Line()),
                      text);
}

void PaperPainter::DrawRun(const PaperRun& run, QRectF place) {
    const qreal stroke = grid_.column / 12;
    if (run.Has(PaperStyle::Inverse)) {
        painter_.fillRect(place, ToQt(InkColour));
    }
    if (run.IsBox()) {
        painter_.setPen(QPen(ToQt(UnknownColour), stroke));
        painter_.drawRect(place.adjusted(2 * stroke, 2 * stroke, -2 * stroke, -2 * stroke));
    }
    DrawCharacters(run, place);
    if (run.Has(PaperStyle::Underline)) {
        painter_.setPen(QPen(ToQt(run.Ink()), stroke));
        const qreal y = place.bottom() - 2 * stroke;
        painter_.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
    }
}

// In a place of simple width and height; what is double is stretched.
void PaperPainter::DrawCharacters(const PaperRun& run, QRectF place) {
    QFont font = grid_.font;
    font.setBold(run.Has(PaperStyle::Bold));
    painter_.save();
    painter_.translate(place.topLeft());
    painter_.scale(run.First().Columns(), run.Lines());
    painter_.translate(0, Baseline * grid_.Line());
    painter_.setPen(ToQt(run.Ink()));
    painter_.setFont(font);
    DrawText(QString::fromStdU16String(run.Text()), font);
    painter_.restore();
}

// In one piece, unless the font gives a character another width than a column's.
void PaperPainter::DrawText(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font, painter_.device());
    const qreal width = static_cast<qreal>(text.size()) * grid_.column;
    if (std::abs(metrics.horizontalAdvance(text) - width) < grid_.column / 4) {
        return painter_.drawText(QPointF(0, 0), text);
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        painter_.drawText(QPointF(static_cast<qreal>(i) * grid_.column, 0), text.mid(i, 1));
    }
}

}  // namespace varno
