// Marked text in a Qt document: formats, positions, reading and writing.
#pragma once

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
void InsertMarked(QTextCursor& cursor, const MarkedText& text);

}  // namespace varno
