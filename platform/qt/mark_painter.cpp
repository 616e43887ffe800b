#include "platform/qt/mark_painter.h"

#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <cmath>

#include "platform/qt/measures.h"

namespace varno {
namespace {

using Kind = Piece::Kind;

const QColor HatchColour(176, 208, 176);
constexpr double HatchDistance = 5;  // between its lines, along the text

// What takes the room of several pieces looks like one.
std::vector<Piece> Joined(const MarkedText& text) {
    std::vector<Piece> joined;
    for (std::size_t next = 0; next < text.Length(); next = joined.back().end) {
        Piece piece = PieceAt(text, next);
        piece.kind = piece.IsInTicket() ? piece.kind : Kind::LeftOut;
        const bool goesOn = !piece.IsCode() && !joined.empty() && joined.back().kind == piece.kind;
        if (goesOn) {
            joined.back().end = piece.end;
        } else {
            joined.push_back(piece);
        }
    }
    return joined;
}

QColor InkOf(Kind look) {
    switch (look) {
        case Kind::Ascii:
            return ToQt(AsciiCodeColour);
        case Kind::Control:
            return ToQt(ControlCodeColour);
        case Kind::Print:
            return ToQt(PrintCodeColour);
        case Kind::LeftOut:
        case Kind::Text:
            break;
    }
    return HatchColour;
}

// A tile of hatching for a screen of so many pixels to the unit. The lines go on in the next tile.
QImage HatchTile(double pixels, const QColor& ink) {
    const int side = qRound(HatchDistance * pixels);
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, pixels));
    for (const int shift : {-side, 0, side}) {
        painter.drawLine(shift - side, 2 * side, shift + 2 * side, -side);
    }
    return tile;
}

QBrush Hatching(double pixels, const QColor& ink) {
    QBrush brush(HatchTile(pixels, ink));
    brush.setTransform(QTransform::fromScale(1 / pixels, 1 / pixels));
    return brush;
}

// Around whole pixels, so that its lines are sharp.
void Frame(QPainter& painter, Kind look, const QRect& all, const QColor& ink) {
    if (look == Kind::Control) {
        painter.fillRect(QRect(all.left(), all.top(), all.width(), 1), ink);
        painter.fillRect(QRect(all.left(), all.bottom(), all.width(), 1), ink);
        painter.fillRect(QRect(all.left(), all.top(), 1, all.height()), ink);
        painter.fillRect(QRect(all.right(), all.top(), 1, all.height()), ink);
        return;
    }
    QPen pen(ink, 1);
    if (look == Kind::Ascii) {
        pen.setDashPattern({2, 2});
        pen.setCapStyle(Qt::FlatCap);
    }
    const QRectF frame = QRectF(all).adjusted(0.5, 0.5, -0.5, -0.5);
    // As round as the letters leave room for.
    const double corner = look == Kind::Print ? frame.height() / 3 : 0;
    painter.setPen(pen);
    painter.drawRoundedRect(frame, corner, corner);
}

}  // namespace

MarkPainter::MarkPainter(const QTextEdit& editor, const QRect& exposed)
    : editor_(editor),
      reader_(*editor.document()),
      exposed_(exposed),
      origin_(-editor.horizontalScrollBar()->value(), -editor.verticalScrollBar()->value()) {
    QTextBlock block = editor.cursorForPosition(exposed.topLeft()).block();
    for (; block.isValid() && TopOf(block) < exposed_.bottom(); block = block.next()) {
        AddBlock(block);
    }
}

double MarkPainter::TopOf(const QTextBlock& block) const {
    return block.layout()->position().y() + origin_.y();
}

// Text that is still being composed stands in the lines, but not in the block.
void MarkPainter::AddBlock(const QTextBlock& block) {
    const QTextLayout& layout = *block.layout();
    if (!layout.preeditAreaText().isEmpty()) {
        return;
    }
    const QString text = block.text();
    MarkedText marked;
    reader_.Read(block, text, 0, block.length(), marked);
    const std::vector<Piece> pieces = Joined(marked);
    for (int line = 0; line < layout.lineCount(); ++line) {
        AddLine(block, layout.lineAt(line), pieces);
    }
}

// In a long line only what is in sight is measured: each measure takes a walk through the line.
void MarkPainter::AddLine(const QTextBlock& block, const QTextLine& line,
                          const std::vector<Piece>& pieces) {
    const QPointF origin = origin_ + block.layout()->position();
    const auto box = [&](int start, int end) {
        const double a = line.cursorToX(start);
        const double b = line.cursorToX(end);
        return QRectF(origin.x() + std::min(a, b), origin.y() + line.y(), std::abs(b - a),
                      line.height())
            .toRect();
    };
    const QRectF whole = line.rect().translated(origin);
    if (whole.top() >= exposed_.bottom() || whole.bottom() <= exposed_.top()) {
        return;
    }
    const int first = line.xToCursor(exposed_.left() - origin.x(), QTextLine::CursorOnCharacter);
    const int last = line.xToCursor(exposed_.right() - origin.x(), QTextLine::CursorOnCharacter);
    const QTextCursor cursor = editor_.textCursor();
    for (const Piece& piece : pieces) {
        const int start = std::max(static_cast<int>(piece.start), line.textStart());
        const int end = std::min(static_cast<int>(piece.end), line.textStart() + line.textLength());
        if (piece.kind == Kind::Text || start >= end || end <= first || start > last) {
            continue;
        }
        const int selectionStart = std::max(start, cursor.selectionStart() - block.position());
        const int selectionEnd = std::min(end, cursor.selectionEnd() - block.position());
        stretches_.push_back(
            {piece.kind, box(start, end),
             selectionStart < selectionEnd ? box(selectionStart, selectionEnd) : QRect()});
    }
}

void MarkPainter::PaintUnderText() const {
    if (stretches_.empty()) {
        return;
    }
    QPainter painter(editor_.viewport());
    const QBrush hatching = Hatching(editor_.devicePixelRatioF(), HatchColour);
    for (const Stretch& stretch : stretches_) {
        if (stretch.look == Kind::LeftOut) {
            painter.fillRect(stretch.box, hatching);
        }
    }
}

void MarkPainter::PaintOverText() const {
    if (stretches_.empty()) {
        return;
    }
    QPainter painter(editor_.viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Stretch& stretch : stretches_) {
        if (stretch.look != Kind::LeftOut) {
            painter.setClipRegion(QRegion(stretch.box).subtracted(stretch.selected));
            Frame(painter, stretch.look, stretch.box, InkOf(stretch.look));
            painter.setClipping(false);
        }
        if (!stretch.selected.isEmpty()) {
            PaintSelected(painter, stretch);
        }
    }
}

// The selection hides what is under it: on it all stands once more, in the ink of its text.
void MarkPainter::PaintSelected(QPainter& painter, const Stretch& stretch) const {
    QColor ink = editor_.palette().color(QPalette::HighlightedText);
    if (stretch.look == Kind::LeftOut) {
        ink.setAlphaF(0.3F);
        painter.fillRect(stretch.selected, Hatching(editor_.devicePixelRatioF(), ink));
        return;
    }
    painter.setClipRect(stretch.selected);
    Frame(painter, stretch.look, stretch.box, ink);
    painter.setClipping(false);
}

}  // namespace varno
