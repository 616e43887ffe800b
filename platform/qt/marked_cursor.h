// Marked text in a Qt document: formats, positions, reading and writing.
#pragma once

#include <QHash>
#include <QList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include "codec/marked_text.h"

namespace varno {

QTextCharFormat ToQt(const CharFormat& format);
CharFormat FromQt(const QTextCharFormat& format);

// Between the program's positions (a line break counts two) and Qt's (it counts one). A position
// inside a line break means its start; one past the end means the end.
int ToMarkedPosition(const QTextDocument& document, int qtPosition);
int ToQtPosition(const QTextDocument& document, int markedPosition);

// The format of the character before a Qt position; plain black at the start.
CharFormat FormatBefore(const QTextDocument& document, int qtPosition);

MarkedText ReadMarked(const QTextDocument& document, int from, int to);  // Qt positions

// Reads a document piece by piece; what a Qt format means is worked out once for each format.
class MarkedReader {
  public:
    explicit MarkedReader(const QTextDocument& document) : formats_(document.allFormats()) {}

    // Adds what of the block lies between two places in it, from 0, and returns its length; all
    // without its line break.
    int Read(const QTextBlock& block, QStringView blockText, int from, int to, MarkedText& text);
    const CharFormat& Format(int index);

  private:
    QList<QTextFormat> formats_;
    QHash<int, CharFormat> known_;
};

void InsertMarked(QTextCursor& cursor, const MarkedText& text);

}  // namespace varno
