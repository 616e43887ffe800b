#include "platform/qt/line_text.h"

#include <QTextBlock>
#include <algorithm>

namespace varno {
namespace {

constexpr int LongestBlock = 1024;  // characters

enum LineBreak : int { CrLf, Cr, Lf, None };

constexpr int LineBreakProperty = QTextFormat::UserProperty;

QTextCharFormat FormatOf(LineBreak lineBreak) {
    QTextCharFormat format;
    format.setProperty(LineBreakProperty, lineBreak);
    return format;
}

// What the separator in front of the block stands for. Its format goes wherever it goes.
LineBreak LineBreakBefore(const QTextBlock& block) {
    return static_cast<LineBreak>(block.charFormat().intProperty(LineBreakProperty));
}

QString TextOf(LineBreak lineBreak) {
    switch (lineBreak) {
        case CrLf:
            return QStringLiteral("\r\n");
        case Cr:
            return QStringLiteral("\r");
        case Lf:
            return QStringLiteral("\n");
        case None:
            break;
    }
    return {};
}

// How many characters more than a position the separator in front of the block stands for.
int Extra(const QTextBlock& block) {
    return static_cast<int>(TextOf(LineBreakBefore(block)).size()) - 1;
}

// The line break that the text begins with.
LineBreak LineBreakAt(QStringView text) {
    return text.startsWith(u"\r\n") ? CrLf
           : text.startsWith(u'\r') ? Cr
           : text.startsWith(u'\n') ? Lf
                                    : None;
}

qsizetype LengthOfLine(QStringView text) {
    const auto isBreak = [](QChar character) { return character == u'\r' || character == u'\n'; };
    return std::find_if(text.begin(), text.end(), isBreak) - text.begin();
}

}  // namespace

void InsertLineText(QTextCursor& cursor, const QString& text) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    for (QStringView rest = text; !rest.isEmpty();) {
        const int room = LongestBlock - cursor.positionInBlock();
        const LineBreak lineBreak = LineBreakAt(rest);
        if (lineBreak != None || room <= 0) {
            cursor.insertBlock(QTextBlockFormat(), FormatOf(lineBreak));
            rest = rest.sliced(TextOf(lineBreak).size());
            continue;
        }
        const qsizetype taken = LengthOfLine(rest.first(std::min<qsizetype>(rest.size(), room)));
        cursor.insertText(rest.first(taken).toString(), QTextCharFormat());
        rest = rest.sliced(taken);
    }
    cursor.endEditBlock();
}

bool CompleteLineBreak(QTextDocument& document) {
    const QTextBlock last = document.lastBlock();
    if (last.length() > 1 || last.blockNumber() == 0 || LineBreakBefore(last) != Cr) {
        return false;
    }
    QTextCursor(last).setBlockCharFormat(FormatOf(CrLf));
    return true;
}

QString LineText(const QTextDocument& document, int from, int to) {
    QString text;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.position() > from) {
            text += TextOf(LineBreakBefore(block));
        }
        const int start = std::max(0, from - block.position());
        text += QStringView(block.text()).mid(start, to - block.position() - start);
    }
    return text;
}

bool IsJoint(const QTextDocument& document, int position) {
    const QTextBlock next = document.findBlock(position + 1);
    return next.isValid() && next.position() == position + 1 && LineBreakBefore(next) == None;
}

int OffsetAt(const QTextDocument& document, int position) {
    int extra = 0;
    for (QTextBlock block = document.begin().next();
         block.isValid() && block.position() <= position; block = block.next()) {
        extra += Extra(block);
    }
    return position + extra;
}

int PositionAt(const QTextDocument& document, int offset) {
    int extra = 0;
    for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next()) {
        if (offset < block.position() + extra + Extra(block)) {
            return std::min(offset - extra, block.position() - 1);
        }
        extra += Extra(block);
    }
    return std::min(offset - extra, document.characterCount() - 1);
}

}  // namespace varno
