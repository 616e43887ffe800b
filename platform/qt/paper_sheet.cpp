#include "platform/qt/paper_sheet.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "paper/text.h"
#include "platform/qt/measures.h"
#include "platform/qt/paper_sheet_accessible.h"

namespace varno {
namespace {

constexpr int Edge = 2;        // columns of paper around what is printed
constexpr int RuleLines = 1;   // above the paper, as high as a line
constexpr int LeastZoom = -4;  // steps
constexpr int LargestZoom = 8;
constexpr qreal ZoomStep = 1.2;

const QColor RuleColour(225, 225, 225);
const QColor CaretColour(0, 90, 200);

}  // namespace

PaperSheet::PaperSheet(QWidget* parent)
    : QAbstractScrollArea(parent), grid_(GridFor(font(), this)) {
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setCursor(Qt::IBeamCursor);
    MakePaperSheetAccessible(this);
}

void PaperSheet::ShowPaper(const Paper& paper) {
    paper_ = paper;
    lines_.assign(1, 0);
    for (const PaperRow& row : paper_.rows) {
        lines_.push_back(lines_.back() + LinesOf(row));
    }
    TakeText();
    Measure();
}

void PaperSheet::TakeText() {
    QString text;
    offsets_.clear();
    for (const PaperRow& row : paper_.rows) {
        offsets_.push_back(static_cast<int>(text.size()));
        text += varno::ToQt(RowText(paper_, row)) + u'\n';
    }
    offsets_.push_back(static_cast<int>(text.size()));
    if (text == text_) {
        return;
    }
    text_.swap(text);
    if (OnTextChange) {
        OnTextChange(text);
    }
}

void PaperSheet::SetCaret(std::optional<PaperPlace> caret) {
    if (caret == caret_) {
        return;
    }
    caret_ = caret;
    viewport()->update();
    if (!caret) {
        return;
    }
    ScrollTo(*caret);
    if (OnCaretMove) {
        OnCaretMove();
    }
}

void PaperSheet::ZoomBy(int steps) {
    zoom_ = steps == 0 ? 0 : std::clamp(zoom_ + steps, LeastZoom, LargestZoom);
    Measure();
}

// No further than it has to, with the paper's edge around the place.
void PaperSheet::ScrollTo(PaperPlace place) {
    const qreal edge = Edge * grid_.column;
    const QRectF cell = CellAt(place).adjusted(-edge, -edge, edge, edge);
    const QRectF room = QRectF(viewport()->rect()).adjusted(0, RuleLines * grid_.Line(), 0, 0);
    const auto follow = [](QScrollBar* bar, qreal before, qreal behind) {
        const qreal by = std::min(before, std::max(behind, 0.0));
        bar->setValue(bar->value() + static_cast<int>(by < 0 ? std::floor(by) : std::ceil(by)));
    };
    follow(verticalScrollBar(), cell.top() - room.top(), cell.bottom() - room.bottom());
    follow(horizontalScrollBar(), cell.left() - room.left(), cell.right() - room.right());
}

void PaperSheet::Measure() {
    QFont zoomed = font();
    zoomed.setPointSizeF(font().pointSizeF() * std::pow(ZoomStep, zoom_));
    grid_ = GridFor(zoomed, this);
    const QSizeF sheet = SheetSize();
    const QSize room = viewport()->size();
    const auto range = [](QScrollBar* bar, qreal all, int seen, qreal step) {
        bar->setRange(0, std::max(0, static_cast<int>(std::ceil(all)) - seen));
        bar->setPageStep(seen);
        bar->setSingleStep(static_cast<int>(step));
    };
    range(verticalScrollBar(), sheet.height() + RuleLines * grid_.Line(), room.height(),
          grid_.Line());
    range(horizontalScrollBar(), sheet.width(), room.width(), 4 * grid_.column);
    viewport()->update();
}

QSizeF PaperSheet::SheetSize() const {
    return {(paper_.width + 2 * Edge) * grid_.column,
            lines_.back() * grid_.Line() + 2 * Edge * grid_.column};
}

// Of the first cell. A sheet that is narrower than the window stands in its middle.
QPointF PaperSheet::Origin() const {
    const qreal spare = std::max(0.0, std::floor((viewport()->width() - SheetSize().width()) / 2));
    return {spare + Edge * grid_.column - horizontalScrollBar()->value(),
            RuleLines * grid_.Line() + Edge * grid_.column - verticalScrollBar()->value()};
}

QRectF PaperSheet::CellAt(PaperPlace place) const {
    const bool isRow = place.row < paper_.rows.size();
    const std::size_t row = std::min(place.row, paper_.rows.size());
    const int height = isRow ? LinesOf(paper_.rows[row]) : 1;
    return {Origin() + QPointF(place.column * grid_.column, lines_[row] * grid_.Line()),
            QSizeF(grid_.column, height * grid_.Line())};
}

std::size_t PaperSheet::RowOfLine(int line) const {
    const auto next = std::upper_bound(lines_.begin(), lines_.end(), line);
    return next == lines_.begin() ? 0 : static_cast<std::size_t>(next - lines_.begin()) - 1;
}

PaperPlace PaperSheet::PlaceAt(QPointF point) const {
    const QPointF cell = (point - Origin()) / grid_.column;
    return {RowOfLine(static_cast<int>(std::floor(cell.y() / 2))),
            std::max(0, static_cast<int>(std::floor(cell.x())))};
}

int PaperSheet::OffsetOf(PaperPlace place) const {
    if (place.row + 1 >= offsets_.size()) {
        return offsets_.back();
    }
    const int length = offsets_[place.row + 1] - offsets_[place.row] - 1;
    return offsets_[place.row] + std::min(place.column, length);
}

PaperPlace PaperSheet::PlaceOf(int offset) const {
    const auto next = std::upper_bound(offsets_.begin(), offsets_.end(), offset);
    const auto row = static_cast<std::size_t>(next - offsets_.begin()) - 1;
    return {row, offset - offsets_[row]};
}

void PaperSheet::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    DrawSheet(painter);
    DrawCaret(painter);
    DrawRows(painter, event->rect());
    DrawRule(painter);
}

// With a faint line at every tenth column.
void PaperSheet::DrawSheet(QPainter& painter) const {
    const QPointF origin = Origin();
    const QPointF edge(Edge * grid_.column, Edge * grid_.column);
    const QRectF sheet(origin - edge, SheetSize());
    painter.fillRect(sheet, Qt::white);
    for (int column = 0; column <= paper_.width; column += 10) {
        painter.fillRect(
            QRectF(std::floor(origin.x() + column * grid_.column), sheet.top(), 1, sheet.height()),
            RuleColour);
    }
}

void PaperSheet::DrawRule(QPainter& painter) const {
    const QPointF origin(Origin().x(), 0);
    const QRectF rule(origin.x() - Edge * grid_.column, 0, SheetSize().width(),
                      RuleLines * grid_.Line());
    painter.fillRect(rule, RuleColour);
    QFont small = grid_.font;
    small.setPointSizeF(small.pointSizeF() * 0.8);
    painter.setFont(small);
    painter.setPen(varno::ToQt(NoteColour));
    for (int column = 5; column <= paper_.width; column += 5) {
        const QPointF end = origin + QPointF(column * grid_.column, rule.height());
        const bool isNumbered = column % 10 == 0;
        painter.fillRect(
            QRectF(std::floor(end.x()), end.y() - rule.height() / 4, 1, rule.height() / 4),
            varno::ToQt(NoteColour));
        if (isNumbered) {
            painter.drawText(
                QRectF(end.x() - 2 * grid_.column, 0, 4 * grid_.column, rule.height() * 0.75),
                Qt::AlignCenter, QString::number(column));
        }
    }
}

void PaperSheet::DrawCaret(QPainter& painter) const {
    if (!caret_) {
        return;
    }
    const QRectF cell = CellAt(*caret_);
    QColor shade = CaretColour;
    shade.setAlpha(40);
    painter.fillRect(cell, shade);
    painter.fillRect(QRectF(std::floor(cell.left()) - 1, cell.top(), 2, cell.height()),
                     CaretColour);
}

void PaperSheet::DrawRows(QPainter& painter, const QRect& region) {
    PaperPainter paperPainter(painter, grid_, paper_.width);
    const std::size_t first = PlaceAt(region.topLeft()).row;
    const std::size_t last = PlaceAt(region.bottomRight()).row;
    for (std::size_t row = first; row <= last && row < paper_.rows.size(); ++row) {
        paperPainter.DrawRow(paper_.rows[row], Origin(), lines_[row]);
    }
}

void PaperSheet::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    Measure();
}

void PaperSheet::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        Measure();
    }
}

void PaperSheet::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        return QAbstractScrollArea::wheelEvent(event);
    }
    if (event->angleDelta().y() != 0) {
        ZoomBy(event->angleDelta().y() > 0 ? 1 : -1);
    }
}

void PaperSheet::keyPressEvent(QKeyEvent* event) {
    QScrollBar* bar = verticalScrollBar();
    switch (event->modifiers() & ~Qt::KeypadModifier ? 0 : event->key()) {
        case Qt::Key_Home:
            return bar->setValue(bar->minimum());
        case Qt::Key_End:
            return bar->setValue(bar->maximum());
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

void PaperSheet::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && OnClick) {
        OnClick(PlaceAt(event->position()));
    }
}

}  // namespace varno
