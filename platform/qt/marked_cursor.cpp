#include "platform/qt/marked_cursor.h"

#include <algorithm>

#include "platform/qt/measures.h"

namespace varno {
namespace {

// The program's position of a block's first character: each earlier block ended in CR LF.
int MarkedStart(const QTextBlock& block) {
    return block.position() + block.blockNumber();
}

QTextBlock BlockAtMarked(const QTextDocument& document, int markedPosition) {
    int low = 0;
    int high = document.blockCount() - 1;
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (MarkedStart(document.findBlockByNumber(middle)) <= markedPosition) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return document.findBlockByNumber(low);
}

}  // namespace

QTextCharFormat ToQt(const CharFormat& format) {
    QTextCharFormat result;
    result.setForeground(ToQt(format.colour));
    if (format.bold) {
        result.setFontWeight(QFont::Bold);
    }
    if (format.italic) {
        result.setFontItalic(true);
    }
    if (format.underline) {
        result.setFontUnderline(true);
    }
    if (format.strikeThrough) {
        result.setFontStrikeOut(true);
    }
    return result;
}

// The colour and the line under a link are the link's, not the text's.
CharFormat FromQt(const QTextCharFormat& format) {
    const bool link = format.isAnchor();
    const bool coloured = !link && format.hasProperty(QTextFormat::ForegroundBrush) &&
                          format.foreground().style() != Qt::NoBrush;
    return {.colour = coloured ? FromQt(format.foreground().color()) : TextColour,
            .bold = format.fontWeight() >= QFont::DemiBold,
            .italic = format.fontItalic(),
            .underline = format.fontUnderline() && !link,
            .strikeThrough = format.fontStrikeOut()};
}

int ToMarkedPosition(const QTextDocument& document, int qtPosition) {
    return qtPosition + document.findBlock(qtPosition).blockNumber();
}

int ToQtPosition(const QTextDocument& document, int markedPosition) {
    const QTextBlock block = BlockAtMarked(document, std::max(0, markedPosition));
    const int offset = std::max(0, markedPosition) - MarkedStart(block);
    return block.position() + std::min(offset, block.length() - 1);
}

CharFormat FormatBefore(const QTextDocument& document, int qtPosition) {
    if (qtPosition <= 0) {
        return {};
    }
    const QTextBlock block = document.findBlock(qtPosition);
    if (qtPosition == block.position()) {
        return FromQt(block.charFormat());  // the format of the line break before it
    }
    QTextCursor cursor(block);
    cursor.setPosition(qtPosition);
    return FromQt(cursor.charFormat());
}

const CharFormat& MarkedReader::Format(int index) {
    const auto known = known_.find(index);
    return known != known_.end() ? known.value()
                                 : *known_.insert(index, FromQt(formats_.at(index).toCharFormat()));
}

int MarkedReader::Read(const QTextBlock& block, QStringView blockText, int from, int to,
                       MarkedText& text) {
    int offset = 0;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const int start = std::max(from, offset);
        offset += fragment.length();
        const int end = std::min(to, offset);
        if (start < end) {
            text.Append({blockText.utf16() + start, static_cast<std::size_t>(end - start)},
                        Format(fragment.charFormatIndex()));
        }
    }
    return offset;
}

// Qt would look every position up in a tree; here they add up.
MarkedText ReadMarked(const QTextDocument& document, int from, int to) {
    MarkedReader reader(document);
    const QString raw = document.toRawText();
    MarkedText text;
    text.Reserve(static_cast<std::size_t>(to - from + 2 * document.blockCount()));
    QTextBlock block = document.findBlock(from);
    for (int position = block.position(); block.isValid() && position <= to; ++position) {
        if (position > from) {
            text.Append(LineBreak, reader.Format(block.charFormatIndex()));
        }
        position += reader.Read(block, QStringView(raw).mid(position), from - position,
                                to - position, text);
        block = block.next();
    }
    return text;
}

void InsertMarked(QTextCursor& cursor, const MarkedText& text) {
    for (std::size_t start = 0; start < text.Length();) {
        const std::size_t end = text.RunEnd(start);
        QString piece =
            QString::fromUtf16(text.Text().data() + start, static_cast<qsizetype>(end - start));
        piece.replace(QChar::LineSeparator, QLatin1Char('\n'));
        cursor.insertText(piece, ToQt(text.FormatAt(start)));
        start = end;
    }
}

}  // namespace varno
